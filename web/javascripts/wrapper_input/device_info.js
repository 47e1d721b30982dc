// The page of one unit, and the list of all units at its side.

var menuStates = ["offline", "incoming", "online"];
var menuActiveStates = ["offline_active", "incoming_active", "online_active"];
var bandCount = 10;

function shownDevice() {
    return Number($("#device_id").val());
}

function isDeviceShown(id) {
    return $("#device_menu_" + id).is("." + menuActiveStates.join(",."));
}

// Writes a label of the unit on show.
function setDeviceLabel(id, label, text) {
    if (isDeviceShown(id)) {
        $("#device_" + label).text(text).attr("title", text);
    }
}

// The page's left column.

function addPanelRow(label, content) {
    $("<div class='panel_row'>")
        .append($("<span class='panel_label'>").text(label), content)
        .appendTo("#device_panel");
}

function deviceSlider(id, minimum, maximum, step) {
    return $("<input type='range' class='slider'>").attr({id: id, min: minimum, max: maximum, step: step});
}

function buildEqualizer() {
    var simple = $("<div id='device_equalizer_v2'>").append(
        $("<div class='panel_row'>").append(
            $("<span class='panel_label'>").text("Нижние частоты"),
            deviceSlider("device_bass", 0, 15, 1)
        ),
        $("<div class='panel_row'>").append(
            $("<span class='panel_label'>").text("Высокие частоты"),
            deviceSlider("device_treble", -8, 7, 1.5)
        )
    );
    var bands = $("<div class='equalizer_bands'>");
    for (var band = 0; band < bandCount; ++band) {
        bands.append($("<span>").append(deviceSlider("device_equalizer_" + band, -6, 6, 1)));
    }
    var full = $("<div id='device_equalizer_v3' style='display: none'>").append(
        $("<div class='panel_row'>").append($("<span class='panel_label'>").text("Эквалайзер"), bands)
    );
    $("#device_panel").append(simple, full);
    simple.on("mouseup", "input", function () {
        wrapper_device_setEqualizer(shownDevice(), [Number($("#device_bass").val()), Number($("#device_treble").val())]);
    });
    full.on("mouseup", "input", function () {
        wrapper_device_setEqualizer(
            shownDevice(),
            bands
                .find("input")
                .toArray()
                .map(function (slider) {
                    return -1 * Number(slider.value);
                })
        );
    });
}

function buildDevicePanel() {
    [
        ["Название", "name"],
        ["Включен в зоны", "zone"],
        ["Аудио источник", "playlist"],
        ["Аудио данные", "track"],
        ["Расписание", "schedule"],
        ["Контроль линий", "lines"],
        ["АКБ", "akb"],
        ["Сеть 220 В", "220"],
        ["Крышка корпуса", "case"],
    ].forEach(function (row) {
        addPanelRow(row[0], $("<div class='panel_value'>").attr("id", "device_" + row[1]));
    });
    addPanelRow("Громкость", deviceSlider("device_volume", 0, 100, 1));
    $("#device_volume").on("mouseup", function () {
        wrapperSetDeviceVolume(shownDevice(), Number(this.value));
    });
    buildEqualizer();
    $("#device_panel").on("input", "input", paintSlider);
}

function setSlider(selector, value) {
    $(selector).val(value).each(paintSlider);
}

// The list at the side.

function showMenuLink(id, status) {
    var item = $("#device_menu_" + id);
    var shown = isDeviceShown(id);
    setOneClass(item, menuStates.concat(menuActiveStates), menuStates[status]);
    if (shown) {
        item.addClass(menuActiveStates[status]);
        $("#device_treble, #device_bass, #device_volume").prop("disabled", status !== 2);
    }
}

function wrapperInput_device_add(id, name, status, volume, playback) {
    if ($("#device_menu_" + id).length) {
        return;
    }
    $("<div class='device_menu'>")
        .attr({id: "device_menu_" + id, title: name})
        .addClass(menuStates[status])
        .toggleClass(menuActiveStates[status], id === deviceForLoad)
        .append(
            $("<span class='btn tile_icon fa'>").attr("id", "device_playing_" + id).addClass(getPlaybackIcon(playback)),
            $("<span class='device_menu_text'>").append(
                $("<span class='ellipsis'>").attr("id", "device_name_" + id).text(name),
                $("<span class='tile_volume'>").append(
                    $("<div>").attr("id", "device_volume_" + id).css("width", volume + "%")
                )
            )
        )
        .on("click", function () {
            wrapperLoadCurrentDeviceInfo(id);
        })
        .appendTo("#deviceList");
    if (id === deviceForLoad) {
        wrapperLoadCurrentDeviceInfo(id);
    }
}

function wrapperInput_device_setId(id) {
    $("#device_id").val(id);
    deviceForLoad = id;
    menuStates.forEach(function (state) {
        $(".device_menu." + state).removeClass(state + "_active");
        $("#device_menu_" + id + "." + state).addClass(state + "_active");
    });
}

function wrapperInput_device_linkOn(id) {
    showMenuLink(id, 2);
}

function wrapperInput_device_linkIncoming(id) {
    showMenuLink(id, 1);
}

function wrapperInput_device_linkOff(id) {
    showMenuLink(id, 0);
}

function wrapperInput_device_setName(id, name) {
    $("#device_name_" + id).text(name);
    $("#device_menu_" + id).attr("title", name);
    setDeviceLabel(id, "name", name);
}

function clearDevicePage() {
    deviceInfo_clearZones();
    deviceInfo_cleanLines();
    deviceInfo_cleanScenarioList();
    $("#device_id").val(0);
    $("#device_name, #device_playlist, #device_track, #device_schedule, #device_akb, #device_220, #device_case").text("--");
    setSlider("#device_treble, #device_bass, #device_volume", 0);
}

function wrapperInput_device_delete(id) {
    var shown = isDeviceShown(id);
    $("#device_menu_" + id).remove();
    if (!shown) {
        return;
    }
    var next = $(".device_menu").first();
    if (next.length) {
        wrapperLoadCurrentDeviceInfo(Number(next.attr("id").substr("device_menu_".length)));
    } else {
        clearDevicePage();
    }
}

// What the unit on show plays, and how it is.

function deviceInfo_setAudioPlaylist(playlist) {
    $("#device_playlist").text(playlist).attr("title", playlist);
}

function deviceInfo_setAudioTrack(track) {
    $("#device_track").text(track).attr("title", track);
}

function wrapperInput_device_setPlaybackInfo(id, playlistName, trackName) {
    setDeviceLabel(id, "playlist", playlistName);
    setDeviceLabel(id, "track", trackName);
}

function wrapperInput_device_setTask(id, taskId, title) {
    setDeviceLabel(id, "schedule", taskId > 0 ? title : "--");
}

function wrapperInput_device_setLinesStatus(id, status) {
    setDeviceLabel(id, "lines", status === 1 ? "Нормально" : "Ошибка");
}

function wrapperInput_device_setBatteryLevel(id, value) {
    setDeviceLabel(id, "akb", value > 0 ? value + "%" : "Отсутствует");
}

function wrapperInput_device_setPower(id, status) {
    setDeviceLabel(id, "220", status === 1 ? "Нормально" : "Отсутствует");
}

function wrapperInput_device_setHull(id, status) {
    setDeviceLabel(id, "case", status === 1 ? "Закрыта" : "Открыта");
}

function wrapperInput_device_setVolume(id, volume) {
    $("#device_volume_" + id).css("width", volume + "%");
    if (isDeviceShown(id)) {
        setSlider("#device_volume", volume);
    }
}

function wrapperInput_device_setEqualizer(id, band, value) {
    if (!isDeviceShown(id)) {
        return;
    }
    if (band < 2) {
        setSlider(["#device_bass", "#device_treble"][band], value);
    }
    setSlider("#device_equalizer_" + band, -value);
}

function wrapperInput_device_setEqualizerEnabled(id, status) {
    if (isDeviceShown(id)) {
        $(".equalizer_bands input").prop("disabled", status !== 1);
    }
}

function wrapperInput_device_setVersion(id, main) {
    if (isDeviceShown(id)) {
        $("#device_equalizer_v3").toggle(main > 2);
        $("#device_equalizer_v2").toggle(main <= 2);
    }
}

// The messages in the unit's memory.

function deviceInfo_changePlaying(id, playbackId) {
    if (isDeviceShown(id)) {
        $("#messagesAndScenarios").toggle(!(playbackId > 0));
        $("#messagesAndScenariosStop").toggle(playbackId > 0);
    }
}

function deviceInfo_playInsideAudio(audioId, type) {
    wrapperDeviceInfoPlay(shownDevice(), audioId, type);
}

function deviceInfo_stopInsideAudio() {
    wrapperDeviceInfoStop(shownDevice());
}

function wrapperInput_device_addScenario(id, position, title) {
    if (!isDeviceShown(id) || $("#scenario_" + position).length) {
        return;
    }
    $("<tr>")
        .attr("id", "scenario_" + position)
        .append(
            $("<td>").text(position + 1),
            $("<td>").text(title),
            $("<td>").append(
                $("<button type='button' class='btn btn-default icon_button' title='Воспроизвести'>")
                    .append($("<i class='fa fa-play'>"))
                    .on("click", function () {
                        deviceInfo_playInsideAudio(position, 1);
                    })
            )
        )
        .appendTo("#scenario_tbody");
}

function wrapperInput_device_deleteScenario(id, position) {
    if (isDeviceShown(id)) {
        $("#scenario_" + position).remove();
    }
}

function deviceInfo_cleanScenarioList() {
    $("#scenario_tbody").empty();
}

function deviceInfo_cleanScenarioListByDevice(id) {
    if (isDeviceShown(id)) {
        deviceInfo_cleanScenarioList();
    }
}

// The lines and terminal devices.

function lineState(state, isNew, editable) {
    if (isNew) {
        return {text: "Новое", style: "state_incoming"};
    }
    if (state === 0) {
        return {text: editable ? "Подключено" : "Нормально", style: "state_online"};
    }
    return {text: editable ? "Отключено" : "Ошибка", style: "state_offline"};
}

function deviceInfo_cleanLines() {
    $("#line_control").empty();
}

function wrapperInput_deviceLine_add(deviceId, id, name, state, isNew, editable) {
    if (!isDeviceShown(deviceId) || $("#line_control_" + id).length) {
        return;
    }
    $("<tr>")
        .attr("id", "line_control_" + id)
        .append(
            $("<td>").attr("id", "line_control_id_" + id).text(id),
            $("<td>").attr("id", "line_control_name_" + id).text(name),
            $("<td>").attr("id", "line_control_state_" + id)
        )
        .appendTo("#line_control");
    wrapperInput_deviceLine_setState(deviceId, id, state, isNew, editable);
}

function wrapperInput_deviceLine_delete(deviceId, id) {
    if (isDeviceShown(deviceId)) {
        $("#line_control_" + id).remove();
    }
}

function wrapperInput_deviceLine_setName(deviceId, id, name) {
    if (isDeviceShown(deviceId)) {
        $("#line_control_name_" + id).text(name);
    }
}

function wrapperInput_deviceLine_setState(deviceId, id, state, isNew, editable) {
    if (isDeviceShown(deviceId)) {
        var shown = lineState(state, isNew, editable);
        setOneClass("#line_control_state_" + id, ["state_online", "state_incoming", "state_offline"], shown.style);
        $("#line_control_state_" + id).text(shown.text);
    }
}

function wrapperInput_deviceLine_setNew(deviceId, id, state, isNew, editable) {
    wrapperInput_deviceLine_setState(deviceId, id, state, isNew, editable);
}

// All zones once, and shown are those that the unit is in.

function zoneRowText(name, parentName) {
    return parentName + "/" + name;
}

function wrapperInput_zone_add(id, parentId, name, parentName, type) {
    if (id === 1 || $("#device_zone #zone_" + id).length) {
        return;
    }
    $("<div class='zone_row'>")
        .attr("id", "zone_" + id)
        .addClass(type === 0 ? "state_online" : "state_incoming")
        .text(zoneRowText(name, parentName))
        .hide()
        .appendTo("#device_zone");
}

function wrapperInput_zone_setName(id, name, parentName) {
    $("#device_zone #zone_" + id).text(zoneRowText(name, parentName));
}

function wrapperInput_zone_delete(id) {
    $("#device_zone #zone_" + id).remove();
}

function wrapperInput_zone_includeDevice(zoneId, deviceId) {
    if (isDeviceShown(deviceId)) {
        $("#device_zone #zone_" + zoneId).show();
    }
}

function wrapperInput_zone_excludeDevice(zoneId, deviceId) {
    if (isDeviceShown(deviceId)) {
        $("#device_zone #zone_" + zoneId).hide();
    }
}

function deviceInfo_clearZones() {
    $("#device_zone .zone_row").hide();
}
