// What the forms of administration and settings have in common.

const longestName = 32;

// Keeps a name field to the characters and the length that a name may have.
function limitName(selector) {
    $(selector)
        .on("keydown", function (event) {
            return checkValue(this, event);
        })
        .on("keyup", function () {
            checkValueSize(this);
        });
}

function hasNameLength(text) {
    return text.length >= 1 && text.length <= longestName;
}

// Marks or unmarks the fields and answers whether they are right.
function markFields(selector, isRight) {
    $(selector).closest(".form_field").toggleClass("has-error", !isRight);
    return isRight;
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

// A select box with its list in the dialog that it stands in, if there is one.
function buildSelect(selector) {
    var select = $(selector);
    var dialog = select.closest(".modal");
    select.select2({
        language: "ru",
        width: "100%",
        minimumResultsForSearch: 10,
        dropdownParent: dialog.length ? dialog : $(document.body),
    });
}

// The active row of a list, marked by the list's own class.
function activateRow(row, activeClass) {
    $(row).addClass(activeClass).siblings().removeClass(activeClass);
}
