// What several pages show of a unit.

const playbackIcons = {
    "-4": "btn-danger fa-microphone",
    "-3": "btn-danger fa-upload",
    "-2": "btn-danger fa-upload",
    "-1": "btn-danger fa-exclamation-triangle",
    0: "btn-default fa-stop",
    1: "btn-default fa-podcast",
    2: "btn-default fa-play-circle-o",
    3: "btn-default fa-exclamation-circle",
    4: "btn-default fa-exclamation-circle",
    5: "btn-default fa-microphone",
    6: "btn-default fa-exclamation-triangle",
    7: "btn-default fa-bell-o",
};

const allPlaybackIcons = Object.keys(playbackIcons).map(function (number) {
    return playbackIcons[number];
});

// The two classes that show what a unit plays; the number must come as a number.
function getPlaybackIcon(playback) {
    return typeof playback === "number" ? playbackIcons[playback] : undefined;
}

// Sets one of several classes, or of several pairs of them, and takes the others away. Touches the
// element only where something changes: this is what most of a state stream ends in.
function setOneClass(selector, classes, chosen) {
    $(selector).each(function () {
        if (this.className === this.knownClassName && this.knownChoice === chosen) {
            return;
        }
        var others = classes.join(" ").split(" ");
        var kept = this.className.split(" ").filter(function (name) {
            return name !== "" && others.indexOf(name) < 0;
        });
        var wanted = (chosen ? kept.concat(chosen) : kept).join(" ");
        if (this.className !== wanted) {
            this.className = wanted;
        }
        this.knownClassName = wanted;
        this.knownChoice = chosen;
    });
}

const statusModes = ["btn-success", "btn-warning", "btn-danger"];

function setMode(element, mode) {
    setOneClass(element, statusModes, mode);
}

// The part of a range field that lies before its button has the accent's colour.
function paintSlider() {
    var share = (100 * (this.value - this.min)) / (this.max - this.min);
    this.style.backgroundImage =
        "linear-gradient(to right, var(--accent) " + share + "%, var(--line-strong) " + share + "%)";
}

// The ids of the units that are ticked.
function selectedDevices() {
    return $(".tile_select.fa-check-square-o")
        .toArray()
        .map(function (button) {
            return Number(button.id.substr("device_button_".length));
        });
}

function setTicks(buttons, isTicked) {
    setOneClass(buttons, ["fa-square-o", "fa-check-square-o"], isTicked ? "fa-check-square-o" : "fa-square-o");
    showSelection();
}

function zone_selectAll() {
    setTicks(".tile_select:not(.disabled)", true);
}

// Ticks those that the filter shows.
function zone_selectCurrent() {
    setTicks($(shownCards).find(".tile_select:not(.disabled)"), true);
}

function zone_deselectAll() {
    setTicks(".tile_select", false);
}

// The three buttons that tick many units at once.
function selectionButtons() {
    var box = $("<div class='selection_buttons'>").append($("<span class='quiet'>").text("Выбрать устройства:"));
    [
        ["Все", "zone_select_all", zone_selectAll],
        ["В зоне", "zone_select_current", zone_selectCurrent],
        ["Сброс", "zone_deselect_all", zone_deselectAll],
    ].forEach(function (button) {
        $("<button type='button' class='btn btn-default'>")
            .attr("id", button[1])
            .text(button[0])
            .on("click", button[2])
            .appendTo(box);
    });
    return box;
}

// How many units the bottom bar acts on.
function showSelection() {
    var count = $(".tile_select.fa-check-square-o").length;
    $("#selected_devices").text(count ? "Выбрано устройств: " + count : "Устройства не выбраны");
    $("#volume_value").toggleClass("nothing_selected", count === 0);
}

function setVolumeOfSelected(volume) {
    selectedDevices().forEach(function (id) {
        wrapperSetDeviceVolume(id, volume);
    });
}

// The cards on show, as a selector; null where nothing can be shown yet.
var shownCards = ".zone_device";
var emptyCardsText = "Нет устройств";

// Says so where there is no card to show. Asked for at each card that comes, so it looks for the
// first one only, and never for a computed style.
function showEmptyList() {
    var hint = document.getElementById("no_devices");
    if (!hint) {
        return;
    }
    var isShown = shownCards === null || document.querySelector(shownCards) === null;
    if (isShown === hint.classList.contains("hidden") || hint.textContent !== emptyCardsText) {
        $(hint).text(emptyCardsText).toggleClass("hidden", !isShown);
    }
}

// Filters the cards by one style rule in place of a change at each of a thousand.
function showOnlyCards(selector, emptyText) {
    shownCards = selector;
    emptyCardsText = emptyText;
    $("#card_filter").remove();
    if (selector !== ".zone_device") {
        $("<style id='card_filter'>")
            .text(".zone_device { display: none; } " + (selector ? selector + " { display: block; }" : ""))
            .appendTo("head");
    }
    $("#main").scrollTop(0);
    showNearTiles();
    showEmptyList();
}

// The cards that `kind` selects, of all zones (0) or of one.
function showCardsOfZone(kind, zoneId) {
    showOnlyCards(
        zoneId === 0 ? kind : kind + ".zone_device_" + zoneId,
        zoneId === 0 ? "Нет устройств" : "В этой зоне нет устройств"
    );
}

// The page of one unit.
function wrapperLoadDeviceInfo(id) {
    deviceForLoad = id;
    loadMainBody("device_info");
    loadSideMenu("device_list");
    loadTopMenu("device_info");
    loadBotMenu("device_info");
    loadModal("device_info");
}
