// The home page: one tile a unit.

var linkStates = {
    0: {name: "offline", word: "Отключен"},
    1: {name: "incoming", word: "Подключение"},
    2: {name: "online", word: "Подключен"},
};

function tileIcon(id, name, icon, title) {
    return $("<span class='btn tile_icon'>")
        .attr({id: "device_" + name + "_" + id, title: title})
        .append($("<i class='fa'>").addClass(icon));
}

function wrapperInput_device_add(id, name, status, volume, playback) {
    if ($("#device_" + id).length) {
        return;
    }
    var battery = $("<span class='btn tile_icon btn-danger'>")
        .attr({id: "device_battery_" + id, title: "АКБ"})
        .append($("<i class='fa fa-battery-0'>").attr("id", "device_battery_level_" + id));
    var select = $("<span class='btn tile_icon tile_select fa fa-square-o'>")
        .attr({id: "device_button_" + id, title: "Выбрать"})
        .on("click", function (event) {
            event.stopPropagation();
            device_select(id);
        });
    var header = $("<div>")
        .attr("id", "device_header_" + id)
        .append(
            $("<span class='tile_name ellipsis'>").attr({id: "device_name_" + id, title: name}).text(name),
            $("<span class='tile_state'>").attr("id", "device_state_" + id)
        );
    var icons = $("<div class='tile_icons'>").append(
        $("<span class='btn tile_icon fa'>")
            .attr({id: "device_playing_" + id, title: "Воспроизведение"})
            .addClass(getPlaybackIcon(playback)),
        tileIcon(id, "task", "fa-calendar", "Расписание").addClass("btn-default hidden"),
        tileIcon(id, "lines", "fa-volume-up", "Линии").addClass("btn-success"),
        battery,
        tileIcon(id, "power", "fa-bolt", "Сеть 220 В").addClass("btn-danger"),
        tileIcon(id, "hull", "fa-unlock-alt", "Крышка корпуса").addClass("btn-danger"),
        select
    );
    var bar = $("<div class='tile_volume'>").append($("<div>").attr("id", "device_volume_" + id));
    $("<div class='zone_device tile'>")
        .attr("id", "device_" + id)
        .addClass("device_" + id)
        .append(
            $("<div class='kelpa_item'>")
                .attr("id", "device_border_" + id)
                .append(header, icons, bar)
                .on("click", function () {
                    wrapperLoadDeviceInfo(id);
                })
        )
        .appendTo("#main_kelpa_list");
    showEmptyList();
    showLink(id, status);
    wrapperInput_device_setVolume(id, volume);
}

function wrapperInput_device_delete(id) {
    $(".device_" + id).remove();
    showEmptyList();
    showSelection();
}

function wrapperInput_device_setName(id, name) {
    $("#device_name_" + id).text(name).attr("title", name);
}

function showLink(id, status) {
    var state = linkStates[status];
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
    var select = $("#device_button_" + id).toggleClass("disabled", status !== 2);
    if (status !== 2 && select.hasClass("fa-check-square-o")) {
        select.toggleClass("fa-square-o fa-check-square-o");
        showSelection();
    }
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

function wrapperInput_device_setLinesStatus(id, state) {
    setMode("#device_lines_" + id, state === 1 ? "btn-success" : "btn-danger");
}

function wrapperInput_device_setBattery(id, status) {
    setMode("#device_battery_" + id, {2: "btn-success", 1: "btn-warning"}[status] || "btn-danger");
}

function wrapperInput_device_setBatteryLevel(id, level) {
    var step = level >= 100 ? 4 : level > 75 ? 3 : level > 50 ? 2 : level > 25 ? 1 : 0;
    setOneClass(
        "#device_battery_level_" + id,
        ["fa-battery-0", "fa-battery-1", "fa-battery-2", "fa-battery-3", "fa-battery-4"],
        "fa-battery-" + step
    );
    $("#device_battery_" + id).attr("title", "АКБ: " + level + "%");
}

function wrapperInput_device_setPower(id, status) {
    setMode("#device_power_" + id, status === 1 ? "btn-success" : "btn-danger");
}

function wrapperInput_device_setHull(id, status) {
    setMode("#device_hull_" + id, status === 1 ? "btn-success" : "btn-danger");
}

function wrapperInput_device_setVolume(id, volume) {
    $("#device_volume_" + id)
        .css("width", volume + "%")
        .data("value", volume)
        .parent()
        .attr("title", "Громкость: " + volume);
}

function wrapperInput_device_setPlaybackCategory(id, playback) {
    var all = Object.keys(playbackIcons).map(function (number) {
        return playbackIcons[number];
    });
    setOneClass("#device_playing_" + id, all, getPlaybackIcon(playback));
}

function wrapperInput_device_setTask(id, taskId, title) {
    $("#device_task_" + id).attr("title", "Расписание: " + title).toggleClass("hidden", taskId <= 0);
}

function wrapperInput_zone_includeDevice(zoneId, deviceId) {
    $("#device_" + deviceId).addClass("zone_device_" + zoneId);
    if (zoneId === activeZone) {
        showEmptyList();
    }
}

function wrapperInput_zone_excludeDevice(zoneId, deviceId) {
    $("#device_" + deviceId).removeClass("zone_device_" + zoneId);
    if (zoneId === activeZone) {
        showEmptyList();
    }
}

function device_select(id) {
    var button = $("#device_button_" + id);
    if (!button.hasClass("disabled")) {
        button.toggleClass("fa-square-o fa-check-square-o");
        showSelection();
    }
}
