// What every dialog has in common: how it opens and ends, its keys, and where the focus goes.

// Ends a dialog at once, also in the middle of its fading in or out, which would outlive it.
function endDialog() {
    var dialog = $(this).removeClass("fade").data("bs.modal");
    if (dialog && dialog.isShown) {
        dialog.hide();
    } else if (dialog && dialog.$backdrop) {
        dialog.hideModal();
    }
}

// A dialog that is shown again while it still fades away starts anew, or the end of its fading would
// hide it. A dialog on top of others darkens them too.
$(document).on("show.bs.modal", ".modal", function () {
    var dialog = $(this).data("bs.modal");
    if (dialog.isShown) {
        return; // asked for twice: it is there, or on its way
    }
    $(this).off("bsTransitionEnd");
    dialog.removeBackdrop();
    var below = $(".modal.in").not(this).length;
    $(this).css("z-index", 1050 + 20 * below);
    setTimeout(function () {
        $(".modal-backdrop").last().css("z-index", 1040 + 20 * below);
    }, 0);
});

// In every dialog the focus goes to the first field or button, Enter accepts and Esc cancels where
// the dialog has a button for it.
$(document).on("shown.bs.modal", ".modal", function () {
    var fields = $(this).find("input:visible:enabled, select:visible:enabled");
    (fields.length ? fields : $(this).find(".modal-footer .btn:visible").last()).first().focus();
});

$(document).on("keydown.dialog", ".modal.in", function (event) {
    var button = event.which === 13 ? ".accept" : event.which === 27 ? ".cancel" : null;
    if (button && !$(event.target).is("button, textarea, .select2-selection")) {
        $(this).find(button + ":visible:enabled").first().click();
        event.preventDefault();
    } else if (event.which === 27) {
        $(this).find(".cancel:visible:enabled").first().click();
    }
});

// A dialog on top of another takes the focus with it when it goes.
$(document).on("hidden.bs.modal", ".modal", function () {
    var below = $(".modal.in").last();
    if (below.length) {
        $("body").addClass("modal-open");
        below.find("input:visible:enabled, .btn:visible").first().focus();
    }
});
