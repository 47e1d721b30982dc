// What several pages show of a unit.

var playbackIcons = {
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

// The two classes that show what a unit plays; the number must come as a number.
function getPlaybackIcon(playback) {
    return typeof playback === "number" ? playbackIcons[playback] : undefined;
}

// Sets one of several classes, and takes the others of them away.
function setOneClass(element, classes, chosen) {
    $(element).removeClass(classes.join(" ")).addClass(chosen);
}

var statusModes = ["btn-success", "btn-warning", "btn-danger"];

function setMode(element, mode) {
    setOneClass(element, statusModes, mode);
}

// The part of a range field that lies before its button has the accent's colour.
function paintSlider() {
    var share = (100 * (this.value - this.min)) / (this.max - this.min);
    this.style.backgroundImage =
        "linear-gradient(to right, var(--accent) " + share + "%, var(--line-strong) " + share + "%)";
}

// How many units the volume of the bottom bar goes to.
function showSelection() {
    var count = $(".tile_select.fa-check-square-o").length;
    $("#selected_devices").text(count ? "Выбрано устройств: " + count : "Устройства не выбраны");
    $("#volume_value").toggleClass("nothing_selected", count === 0);
}

function setVolumeOfSelected(volume) {
    $(".kelpa_item").each(function () {
        var id = Number(this.id.substr("device_border_".length));
        if ($("#device_button_" + id).hasClass("fa-check-square-o")) {
            wrapperSetDeviceVolume(id, volume);
        }
    });
}

var activeZone = 0; // the zone whose tiles the home page shows; 0 is all

// The home page says so when there is nothing to show. Asked for at each tile that comes, so it looks
// for the first one only, and never for a computed style.
function showEmptyList() {
    var tiles = activeZone === 0 ? ".zone_device" : ".zone_device_" + activeZone;
    $("#no_devices")
        .text(activeZone === 0 ? "Нет устройств" : "В этой зоне нет устройств")
        .toggleClass("hidden", document.querySelector(tiles) !== null);
}
