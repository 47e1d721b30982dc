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
