// What the forms of administration and settings have in common.

const longestName = 32;

// Keeps a name field to the characters and the length that a name may have.
function limitName(selector) {
    $(selector)
        .on("keypress", function (event) {
            return checkValue(this, event);
        })
        .on("keyup", function () {
            checkValueSize(this);
        });
}

// Marks fields with a word for what is wrong with them, or unmarks them with ""; answers whether
// they are right.
function markField(selector, word) {
    $(selector)
        .closest(".form_field")
        .each(function () {
            $(this).toggleClass("has-error", word !== "").find(".help-block").remove();
            if (word !== "") {
                $("<div class='help-block'>").text(word).appendTo(this);
            }
        });
    return word === "";
}

function nameError(text) {
    return text.length >= 1 && text.length <= longestName ? "" : "От 1 до " + longestName + " символов";
}

// Words for what is wrong with an address or a number that is typed; "" where it is right.

function isAddress(text, first, last) {
    const numbers = text.split(".");
    return (
        numbers.length === 4 &&
        numbers.every((number) => /^\d{1,3}$/.test(number) && Number(number) <= 255) &&
        Number(numbers[0]) >= first &&
        Number(numbers[0]) <= last
    );
}

function addressError(text) {
    return isAddress(text, 0, 255) ? "" : "Четыре числа от 0 до 255 через точку";
}

function multicastError(text) {
    return isAddress(text, 224, 239) ? "" : "От 224.0.0.0 до 239.255.255.255";
}

function rangeError(text, least, most) {
    const isInside = /^\d{1,9}$/.test(text) && Number(text) >= least && Number(text) <= most;
    return isInside ? "" : "От " + least + " до " + most;
}

function portError(text) {
    return rangeError(text, 1, 65535);
}

// A pair of buttons for on and off: two radio boxes, each in its label.
function buildSwitch(place, name, onId, offId) {
    function side(id, text) {
        return $("<label class='btn btn-default'>").append(
            $("<input type='radio' autocomplete='off'>").attr({name: name, id: id}),
            document.createTextNode(text)
        );
    }
    $("<div class='btn-group switch' data-toggle='buttons'>")
        .append(side(onId, "Вкл"), side(offId, "Выкл"))
        .appendTo(place);
}

function setSwitch(on, off, value) {
    [
        [on, Boolean(value)],
        [off, !value],
    ].forEach(function (side) {
        $(side[0]).prop("checked", side[1]).parent().toggleClass("active", side[1]);
    });
}

// A pair of buttons as a part of a form.
class SwitchField {
    constructor(on, off) {
        this.on = on;
        this.off = off;
        this.foreign = $.noop; // called when the mirror changes what the operator has turned round
        this.begin();
    }

    value() {
        return $(this.on).is(":checked");
    }

    // Shows what the mirror holds, unless the operator has turned it round.
    store(value) {
        const isOwn = this.isTouched();
        this.stored = Boolean(value);
        if (!isOwn) {
            this.reset();
        } else if (!this.isTouched()) {
            this.foreign();
        }
    }

    isTouched() {
        return this.stored !== null && this.value() !== this.stored;
    }

    reset() {
        if (this.stored !== null) {
            setSwitch(this.on, this.off, this.stored);
        }
    }

    begin() {
        this.stored = null;
    }

    take() {
        this.stored = this.value();
    }
}

function switchField(on, off) {
    return new SwitchField(on, off);
}

// A range field as a part of a form. What the mirror holds may lie between two of its steps, and is
// kept as it is until the operator moves the field. A turned one counts downwards.
class SliderField {
    constructor(selector) {
        this.field = $(selector);
        this.sign = this.field.hasClass("slider_turned") ? -1 : 1;
        this.foreign = $.noop; // called when the mirror changes what the operator has moved
        this.isOwn = false;
        this.stored = 0;
        this.field.on("input change", () => (this.isOwn = true));
    }

    value() {
        return this.isOwn ? this.sign * Number(this.field.val()) : this.stored;
    }

    store(value) {
        const isForeign = this.isTouched() && value !== this.stored && value !== this.value();
        this.stored = value;
        if (isForeign) {
            this.foreign();
        } else if (!this.isTouched()) {
            this.reset();
        }
    }

    isTouched() {
        return this.isOwn && this.value() !== this.stored;
    }

    // Puts the field somewhere as the operator would.
    move(value) {
        setSlider(this.field, this.sign * value);
        this.field.trigger("input");
    }

    reset() {
        this.isOwn = false;
        setSlider(this.field, this.sign * this.stored);
        this.field.trigger("slider:shown");
    }

    begin() {
        this.isOwn = false;
    }

    take() {
        this.stored = this.value();
        this.isOwn = false;
    }
}

function sliderField(selector) {
    return new SliderField(selector);
}

// A select box with its list in the dialog that it stands in, if there is one. The placeholder is
// what it shows while nothing is chosen.
function buildSelect(selector, placeholder) {
    var select = $(selector);
    var dialog = select.closest(".modal");
    select.select2({
        language: "ru",
        width: "100%",
        minimumResultsForSearch: 10,
        placeholder: placeholder,
        dropdownParent: dialog.length ? dialog : $(document.body),
    });
}
