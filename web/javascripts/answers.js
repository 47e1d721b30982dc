// Controls that are off while the answer to what they have sent is under way.

const answers = (function () {
    const longest = 10000; // milliseconds until a control comes back without an answer
    const awaited = []; // {request, controls, focused, ended, timer}

    // Whether a control still waits.
    function isAwaited(control) {
        return awaited.some((wait) => wait.controls.is(control));
    }

    function end(wait, word) {
        clearTimeout(wait.timer);
        awaited.splice(awaited.indexOf(wait), 1);
        wait.controls.not((index, control) => isAwaited(control)).prop("disabled", false);
        if (wait.focused && document.activeElement === document.body) {
            dialogs.giveFocus(wait.focused);
        }
        (wait.ended || $.noop)(word);
    }

    function endThose(belong, word) {
        awaited.filter(belong).forEach(function (wait) {
            end(wait, word);
        });
    }

    return {
        // Turns controls off until a reply to `request`, "user/edit", has come, whatever its word.
        // `ended` hears the word, or undefined when none has come in time.
        wait: function (request, controls, ended) {
            const wait = {request: request, controls: $(controls), ended: ended};
            wait.focused = wait.controls.filter(document.activeElement)[0];
            wait.timer = setTimeout(end, longest, wait);
            awaited.push(wait);
            wait.controls.prop("disabled", true);
        },
        isAwaited: isAwaited,
        come: function (request, word) {
            endThose(function (wait) {
                return wait.request === request;
            }, word);
        },
        // Forgets what controls wait for: what they have sent is of no interest any more.
        forget: function (controls) {
            endThose(function (wait) {
                return wait.controls.is(controls);
            });
        },
    };
})();

page({
    wrapperInput_global_answered: (request, word) => answers.come(request, word),
});
