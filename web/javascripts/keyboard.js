// What can be clicked can be reached and worked by keys.

const keyboard = (function () {
    // What the pages let click that is no button, field or link of its own.
    const clickable =
        ".top_tab, .side_entry, .menu_entry, .header_alarm, #global_user_name, .zone, i.zone_expand, " +
        ".playback, #playlistTable .track, #playlistTable .folder, .tile_select, [role='button']";

    // Elements come and go with the pages; they are made stops when somebody goes from stop to stop.
    function makeStops() {
        $(clickable).not("[tabindex]").attr("tabindex", 0);
    }

    function isOwn(element) {
        return $(element).is("button, input, select, textarea, a[href], .select2-selection, .modal, tr *");
    }

    // Enter and Space click what has the focus, unless it has a use for them itself.
    function press(event) {
        const isPress = event.which === 13 || event.which === 32;
        if (!isPress || event.isDefaultPrevented() || isOwn(event.target) || !$(event.target).is("[tabindex]")) {
            return;
        }
        event.preventDefault();
        event.target.click();
        $(event.target).filter(".track").trigger("dblclick");
    }

    $(document).on("keydown", press);

    // A key that is held acts once: what it has opened would hear it next. The engine doesn't tell
    // the repeats.
    const held = {};

    function isHeld(event) {
        const wasHeld = held[event.which];
        held[event.which] = true;
        return wasHeld && (event.which === 13 || (event.which === 32 && !$(event.target).is("input, textarea")));
    }

    // The ring shows where the keys go once somebody uses them.
    window.addEventListener(
        "keydown",
        function (event) {
            if (isHeld(event)) {
                event.preventDefault();
                event.stopImmediatePropagation();
            }
            if (event.which === 9) {
                makeStops();
            }
            document.body.classList.add("by_keys");
        },
        true
    );
    window.addEventListener("keyup", (event) => delete held[event.which], true);
    window.addEventListener("blur", () => Object.keys(held).forEach((key) => delete held[key]));
    window.addEventListener(
        "mousedown",
        function () {
            document.body.classList.remove("by_keys");
        },
        true
    );

    // A key that has moved a slider ends what a pull by the mouse would end.
    $(document).on("keyup", "input[type='range']", function (event) {
        if (event.which >= 33 && event.which <= 40) {
            $(this).trigger("mouseup");
        }
    });

    // Puts the focus on what may not be a stop yet.
    function focus(element) {
        makeStops();
        $(element).trigger("focus");
    }

    return {press: press, focus: focus};
})();
