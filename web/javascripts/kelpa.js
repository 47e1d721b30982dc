// The card of a unit: what the pages with cards have in common.

const linkStates = {
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

function setZoneOfCard(zoneId, deviceId, isIncluded) {
    var card = findCard(deviceId);
    if (card && card.classList.contains("zone_device_" + zoneId) !== isIncluded) {
        $(card).toggleClass("zone_device_" + zoneId, isIncluded);
        wallHasChanged();
        showEmptyList();
    }
}

// What a page with cards answers to. `own` has what the page does in another way, or beyond that.
function unitCards(own) {
    return $.extend(
        {
            wrapperInput_device_add: function (id, name, status, volume, playback, zonePermission, playbackClass) {
                var icons = $("<div class='tile_icons'>").append(playingIcon(id, playback), taskIcon(id), selectIcon(id));
                addPlaybackCard(id, name, status, playbackClass, icons, device_select);
            },
            wrapperInput_device_delete: function (id) {
                $(".device_" + id).remove();
                wallHasChanged();
                showEmptyList();
                showSelection();
            },
            wrapperInput_device_setName: function (id, name) {
                $("#device_name_" + id).text(name).attr("title", name);
            },
            wrapperInput_device_linkOn: function (id) {
                showLink(id, 2);
            },
            wrapperInput_device_linkIncoming: function (id) {
                showLink(id, 1);
            },
            wrapperInput_device_linkOff: function (id) {
                showLink(id, 0);
            },
            wrapperInput_device_setVolume: function (id, volume) {
                $("#device_volume_" + id)
                    .css("width", volume + "%")
                    .data("value", volume)
                    .parent()
                    .attr("title", "Громкость: " + volume);
            },
            wrapperInput_device_setPlaybackCategory: function (id, playback) {
                setOneClass("#device_playing_" + id, allPlaybackIcons, getPlaybackIcon(playback));
            },
            wrapperInput_device_setPlayback: function (id, oldPlayback, playback) {
                var card = findCard(id);
                if (card && card.classList.contains("playback_device")) {
                    $(card).removeClass("playback_" + oldPlayback).addClass("playback_" + playback);
                    showEmptyList();
                }
            },
            wrapperInput_device_setTask: function (id, taskId, title) {
                $("#device_task_" + id).attr("title", "Расписание: " + title).toggleClass("hidden", taskId <= 0);
            },
            wrapperInput_zone_includeDevice: function (zoneId, deviceId) {
                setZoneOfCard(zoneId, deviceId, true);
            },
            wrapperInput_zone_excludeDevice: function (zoneId, deviceId) {
                setZoneOfCard(zoneId, deviceId, false);
            },
            device_select: function (id) {
                var button = $("#device_button_" + id);
                if (!button.hasClass("disabled")) {
                    setTicks(button, !button.hasClass("fa-check-square-o"));
                }
            },
        },
        own
    );
}
