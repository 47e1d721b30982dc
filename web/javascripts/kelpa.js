// The card of a unit: what the pages with cards have in common. A page that shows more of a unit
// defines its own `wrapperInput_device_add` behind this file.

var linkStates = {
    0: {name: "offline", word: "Отключен"},
    1: {name: "incoming", word: "Подключение"},
    2: {name: "online", word: "Подключен"},
};

function playingIcon(id, playback) {
    return $("<span class='btn tile_icon fa'>")
        .attr({id: "device_playing_" + id, title: "Воспроизведение"})
        .addClass(getPlaybackIcon(playback));
}

function tileIcon(id, name, icon, title) {
    return $("<span class='btn tile_icon'>")
        .attr({id: "device_" + name + "_" + id, title: title})
        .append($("<i class='fa'>").addClass(icon));
}

function taskIcon(id) {
    return tileIcon(id, "task", "fa-calendar", "Расписание").addClass("btn-default hidden");
}

function selectIcon(id) {
    return $("<span class='btn tile_icon tile_select fa fa-square-o'>")
        .attr({id: "device_button_" + id, title: "Выбрать"})
        .on("click", function (event) {
            event.stopPropagation();
            device_select(id);
        });
}

function volumeBar(id) {
    return $("<div class='tile_volume'>").append($("<div>").attr("id", "device_volume_" + id));
}

function findCard(id) {
    return document.getElementById("device_" + id);
}

// Adds a unit's card with the rows of `content` below its header; does nothing if it is there.
function addCard(id, name, status, content, action) {
    if (findCard(id)) {
        return;
    }
    var header = $("<div>")
        .attr("id", "device_header_" + id)
        .append(
            $("<span class='tile_name ellipsis'>").attr({id: "device_name_" + id, title: name}).text(name),
            $("<span class='tile_state'>").attr("id", "device_state_" + id)
        );
    $("<div class='zone_device tile'>")
        .attr("id", "device_" + id)
        .addClass("device_" + id)
        .toggleClass("near", $("#main_kelpa_list").prop("childElementCount") < nearAtFirst)
        .append(
            $("<div class='kelpa_item'>")
                .attr("id", "device_border_" + id)
                .append(header, content)
                .on("click", function () {
                    action(id);
                })
        )
        .appendTo("#main_kelpa_list");
    wallHasChanged();
    showLink(id, status);
}

function addPlaybackCard(id, name, status, playbackClass, content, action) {
    addCard(id, name, status, content, action);
    $("#device_" + id).addClass("playback_device " + (playbackClass || "playback_0"));
    showEmptyList();
}

function wrapperInput_device_add(id, name, status, volume, playback, zonePermission, playbackClass) {
    var icons = $("<div class='tile_icons'>").append(playingIcon(id, playback), taskIcon(id), selectIcon(id));
    addPlaybackCard(id, name, status, playbackClass, icons, device_select);
}

function wrapperInput_device_delete(id) {
    $(".device_" + id).remove();
    wallHasChanged();
    showEmptyList();
    showSelection();
}

function wrapperInput_device_setName(id, name) {
    $("#device_name_" + id).text(name).attr("title", name);
}

// A state stream mostly repeats what is known.
function showLink(id, status) {
    var card = findCard(id);
    if (!card || card.linkStatus === status) {
        return;
    }
    card.linkStatus = status;
    var state = linkStates[status];
    var button = $("#device_button_" + id).toggleClass("disabled", status !== 2);
    setOneClass(
        "#device_border_" + id,
        ["kelpa_item_offline", "kelpa_item_incoming", "kelpa_item_online"],
        "kelpa_item_" + state.name
    );
    setOneClass(
        "#device_header_" + id,
        ["kelpa_item_heading_offline", "kelpa_item_heading_incoming", "kelpa_item_heading_online"],
        "kelpa_item_heading_" + state.name
    );
    $("#device_state_" + id).text(state.word);
    $(card).toggleClass("device_online", status === 2);
    if (status !== 2 && button.hasClass("fa-check-square-o")) {
        setTicks(button, false);
    }
    showEmptyList();
}

function wrapperInput_device_linkOn(id) {
    showLink(id, 2);
}

function wrapperInput_device_linkIncoming(id) {
    showLink(id, 1);
}

function wrapperInput_device_linkOff(id) {
    showLink(id, 0);
}

function wrapperInput_device_setVolume(id, volume) {
    $("#device_volume_" + id)
        .css("width", volume + "%")
        .data("value", volume)
        .parent()
        .attr("title", "Громкость: " + volume);
}

function wrapperInput_device_setPlaybackCategory(id, playback) {
    setOneClass("#device_playing_" + id, allPlaybackIcons, getPlaybackIcon(playback));
}

function wrapperInput_device_setPlayback(id, oldPlayback, playback) {
    var card = findCard(id);
    if (card && card.classList.contains("playback_device")) {
        $(card).removeClass("playback_" + oldPlayback).addClass("playback_" + playback);
        showEmptyList();
    }
}

function wrapperInput_device_setTask(id, taskId, title) {
    $("#device_task_" + id).attr("title", "Расписание: " + title).toggleClass("hidden", taskId <= 0);
}

function setZoneOfCard(zoneId, deviceId, isIncluded) {
    var card = findCard(deviceId);
    if (card && card.classList.contains("zone_device_" + zoneId) !== isIncluded) {
        $(card).toggleClass("zone_device_" + zoneId, isIncluded);
        wallHasChanged();
        showEmptyList();
    }
}

function wrapperInput_zone_includeDevice(zoneId, deviceId) {
    setZoneOfCard(zoneId, deviceId, true);
}

function wrapperInput_zone_excludeDevice(zoneId, deviceId) {
    setZoneOfCard(zoneId, deviceId, false);
}

function device_select(id) {
    var button = $("#device_button_" + id);
    if (!button.hasClass("disabled")) {
        setTicks(button, !button.hasClass("fa-check-square-o"));
    }
}
