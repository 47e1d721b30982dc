// Small helpers of many pages.

String.prototype.insertAt = function (index, string) {
    return this.substr(0, index) + string + this.substr(index);
};

// Calls what a fragment in another region answers to, if one does.
function callPage(name) {
    return typeof window[name] === "function" ? window[name].apply(window, [].slice.call(arguments, 1)) : undefined;
}

// The text of an element, touched only where it changes.
function setText(element, text) {
    if (element.text() !== text) {
        element.text(text);
    }
}

// The number that an element shows, such as the id that a dialog keeps.
function textNumber(selector) {
    return Number($(selector).text());
}

// A long text without a blank gets one in its middle, so that it can wrap.
String.prototype.splitByLength = function () {
    if (this.length > 30 && this.indexOf(" ") === -1) {
        return this.insertAt(Math.floor(this.length / 2), " ");
    }
    return this.toString();
};

// The keys of a name field that are refused, by code: with shift, without, or either way. With the
// other state of shift a key is another character: "?" and "|" may stand in a name.
const refusedWithShift = {50: "@", 54: "^", 55: "&", 188: "<", 190: ">"};
const refusedWithoutShift = {191: "/", 220: "\\"};
const refusedAlways = {222: "'\""};

// Bound to the keys of name fields: refuses the characters that a name may not hold. Pressed keys are
// told by their codes, which are those of the Latin layout; typed characters by themselves.
function checkValue(object, event) {
    if (event.type === "keypress") {
        return event.charCode === 0 || !"@^&<>\\/'\"".includes(String.fromCharCode(event.charCode));
    }
    const refused = event.shiftKey ? refusedWithShift : refusedWithoutShift;
    return !(event.keyCode in refused) && !(event.keyCode in refusedAlways);
}

// Bound to onkeyup of name fields: a name has 32 characters at the most.
function checkValueSize(object) {
    if (object.value.length > 32) {
        object.value = object.value.substr(0, 32);
    }
}

// Bound to onkeydown of number fields: control keys, digits and the numeric keypad.
function checkNumber(object, event) {
    const code = event.keyCode;
    const isControl = code > 0 && code < 47 && code !== 32; // a letter of another layout has none
    return isControl || (!event.shiftKey && code >= 48 && code <= 57) || (code >= 96 && code <= 105);
}

// Bound to onkeyup of number fields: digits only, 255 at the most.
function checkNumberSize(object) {
    var digits = object.value.replace(/\D/g, "");
    object.value = digits !== "" && Number(digits) > 255 ? "255" : digits;
}

// Gives an option of a dressed select box another text. The box keeps what it knows of an option, so
// a new one takes the old one's place.
function renameOption(option, text) {
    if (option.length) {
        var renamed = $("<option>").val(option.val()).text(text);
        var select = option.parent();
        var chosen = select.val();
        option.replaceWith(renamed);
        select.val(chosen).trigger("change.select2");
    }
}
