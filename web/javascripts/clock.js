// The clock of the header: the server's time as last told, running on this machine's timer.

window.startTime = (function () {
    let timer = null;

    return function () {
        currentTime.add(1, "second");
        $("#clock").text(currentTime.format("HH:mm:ss"));
        clearTimeout(timer);
        timer = setTimeout(startTime, 1000);
    };
})();
