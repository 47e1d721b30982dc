// The clock of the header: the server's time as last told, running on this machine's timer.

var clockTimer = null;

function startTime() {
    currentTime.add(1, "second");
    $("#clock").text(currentTime.format("HH:mm:ss"));
    clearTimeout(clockTimer);
    clockTimer = setTimeout(startTime, 1000);
}
