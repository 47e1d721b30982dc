// What every dialog has in common: which one is on top, what it keeps away from what lies behind,
// its keys, and where the focus goes.

const dialogs = (function () {
    let open = []; // the open dialogs, the top one last: {element, focus, shown}
    const page = {element: null, focus: null}; // what lies below them all
    let closedByClick = false; // the click of this double click has closed a dialog

    // The lock and what belongs to it stay above the others, whenever those open.
    function isLock(element) {
        return $(element).hasClass("lock_dialog");
    }

    // A dialog that went without saying so, with its fragment, holds nothing back.
    function isGone(level) {
        return level.shown && !$(level.element).is(":visible");
    }

    function top() {
        while (open.length && isGone(open[open.length - 1])) {
            open.pop();
        }
        return open.length ? open[open.length - 1] : page;
    }

    function isIn(level, element) {
        return level.element === null || level.element === element || $.contains(level.element, element);
    }

    // The level that an element stands in, whether it is on top or not.
    function levelOf(element) {
        return (
            open.filter(function (level) {
                return isIn(level, element);
            })[0] || page
        );
    }

    // What is gone may have come again under its old id: a row that was built anew.
    function present(element) {
        return element && element.id && !document.contains(element) ? document.getElementById(element.id) : element;
    }

    function canHaveFocus(element) {
        return Boolean(element) && !element.disabled && document.contains(element) && $(element).is(":visible");
    }

    // What Tab goes round in a dialog.
    function stops(element) {
        return $(element)
            .find("a[href], button, input, select, textarea, [tabindex]")
            .filter(function () {
                return this.tabIndex >= 0 && canHaveFocus(this);
            });
    }

    // The first field; without one the button that accepts, or "Отмена" where accepting destroys.
    function firstStop(element) {
        const fields = stops(element).filter("input, select, textarea, .select2-selection");
        const buttons = $(element).find(".modal-footer .btn:visible:enabled");
        const cancel = buttons.is(".btn-danger") ? buttons.filter(".cancel") : $();
        return fields.add(cancel)[0] || buttons.last()[0] || element;
    }

    // Nothing that can't be seen keeps the focus: its next Enter would act.
    function takeFocus() {
        const level = top();
        const target = present(level.focus);
        if (canHaveFocus(target)) {
            target.focus();
        } else if (level.element) {
            firstStop(level.element).focus();
        } else {
            document.activeElement.blur();
        }
    }

    // Gives an element the focus, or keeps it for it until the dialogs above have gone.
    function giveFocus(element) {
        const level = levelOf(element);
        level.focus = element;
        if (level === top()) {
            takeFocus();
        }
    }

    function layer() {
        open.forEach(function (level, index) {
            const backdrop = ($(level.element).data("bs.modal") || {}).$backdrop;
            $(level.element).css("z-index", 1060 + 20 * index);
            $(backdrop || []).css("z-index", 1055 + 20 * index);
        });
        $("body").toggleClass("modal-open", open.length > 0);
    }

    // A list that is open would stay on top of the dialog, and take its keys.
    function closeLists() {
        $(".select2-container--open").prev("select").select2("close");
    }

    function opening(element) {
        closeLists();
        const below = top();
        const focused = document.activeElement;
        if (isIn(below, focused) && focused !== document.body) {
            below.focus = focused;
        }
        const firstLock = open.findIndex(function (level) {
            return isLock(level.element);
        });
        open.splice(isLock(element) || firstLock < 0 ? open.length : firstLock, 0, {element: element, focus: null, shown: false});
    }

    function closing(element) {
        const wasTop = top().element === element;
        open = open.filter(function (level) {
            return level.element !== element;
        });
        closedByClick = true;
        if (wasTop) {
            takeFocus();
        }
    }

    // Fading, a dialog would take neither keys nor focus for a moment.
    $(function () {
        $.support.transition = false;
    });
    $.fn.modal.Constructor.prototype.enforceFocus = $.noop;

    $(document)
        .on("show.bs.modal", ".modal", function () {
            if (!$(this).data("bs.modal").isShown) {
                opening(this);
            }
        })
        .on("shown.bs.modal", ".modal", function () {
            levelOf(this).shown = true;
            layer();
            takeFocus();
        })
        .on("hide.bs.modal", ".modal", function () {
            if (levelOf(this) !== page) {
                closing(this);
            }
        })
        .on("hidden.bs.modal", ".modal", layer);

    function isBehind(target) {
        return open.length > 0 && !isIn(top(), target);
    }

    // What lies behind a dialog hears no key and no click. The end of a press gets through to the
    // engine, which would go on dragging.
    function keepAway(event) {
        if (event.type === "mousedown" && event.detail < 2) {
            closedByClick = false;
        }
        const isRest = closedByClick && event.detail > 1;
        if (!isRest && !isBehind(event.target)) {
            return;
        }
        event.stopImmediatePropagation();
        if (event.type !== "mouseup" && event.type !== "keyup") {
            event.preventDefault();
        }
        if (event.type === "keydown") {
            takeFocus();
            answerKey(event);
        }
    }

    // A key belongs to what was on top when it went down. The dialog that it has opened, or the button
    // below the one that it has closed, doesn't hear the rest of it.
    let pressedIn = null;

    function keepRestOfKey(event) {
        if (event.type === "keydown") {
            pressedIn = top();
        } else if (pressedIn !== null && pressedIn !== top()) {
            event.preventDefault();
        }
    }

    ["keydown", "keypress", "keyup"].forEach((name) => window.addEventListener(name, keepRestOfKey, true));
    ["keydown", "keypress", "keyup", "input", "mousedown", "mouseup", "click", "dblclick", "wheel", "dragstart"].forEach(function (name) {
        window.addEventListener(name, keepAway, true);
    });
    document.addEventListener(
        "focus",
        function (event) {
            if (event.target !== document && isBehind(event.target)) {
                takeFocus();
            }
        },
        true
    );

    function goRound(event, element) {
        const all = stops(element);
        const at = all.index(document.activeElement);
        const edge = event.shiftKey ? 0 : all.length - 1;
        if (at < 0 || at === edge) {
            $(all[event.shiftKey ? all.length - 1 : 0] || element).focus();
            event.preventDefault();
        }
    }

    // Enter accepts and Esc cancels, where the dialog has a button for it. A button and an open list
    // know their own Enter, and what destroys wants its button pressed.
    function answerKey(event) {
        const element = top().element;
        if (event.which === 9) {
            goRound(event, element);
        } else if (event.which === 27) {
            $(element).find(".cancel:visible:enabled").first().click();
        } else if (event.which === 13 && !$(event.target).is("button, textarea, .select2-selection")) {
            event.preventDefault();
            $(element).find(".accept:visible:enabled").not(".btn-danger").first().click();
        }
    }

    // Keys end at the dialog: the lists of a page listen to the document.
    $(document).on("show.bs.modal", ".modal", function () {
        $(this)
            .off("keydown.dialog")
            .on("keydown.dialog", function (event) {
                event.stopPropagation();
                keyboard.press(event);
                if (!event.isDefaultPrevented()) {
                    answerKey(event);
                }
            });
    });

    return {giveFocus: giveFocus};
})();

// Ends a dialog whose fragment goes.
function endDialog() {
    $(this).modal("hide");
}
