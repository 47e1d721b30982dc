// What native code tells the page: batches of calls, as data.

var waitingCalls = [];

// Runs one call. A page that doesn't know the function isn't disturbed, and one that fails takes no
// other along.
function runCall(call, known) {
    var name = call[0];
    if (known[name] === undefined) {
        known[name] = typeof window[name] === "function";
    }
    if (!known[name]) {
        return;
    }
    try {
        window[name].apply(window, call.slice(1));
    } catch (error) {
        console.error(String(error));
    }
}

// Native code says that there are calls. What a call causes while it runs goes behind those that
// came with it.
function takeCalls() {
    var known = {};
    waitingCalls = waitingCalls.concat(JSON.parse(wrapper.frame_takeCalls()));
    while (waitingCalls.length > 0) {
        runCall(waitingCalls.shift(), known);
    }
}
