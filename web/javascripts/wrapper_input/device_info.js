// The page of one unit. Which unit is on show stands in #device_id.

(function () {
    const bandCount = 10;
    const labelStates = ["state_offline", "state_incoming", "state_online"]; // by the link

    let simpleBands = []; // bass and treble

    function shownDevice() {
        return Number($("#device_id").val());
    }

    function isDeviceShown(id) {
        return id !== 0 && shownDevice() === id;
    }

    // Writes a label of the unit on show.
    function setDeviceLabel(id, label, text) {
        if (isDeviceShown(id)) {
            $("#device_" + label).text(text).attr("title", text);
        }
    }

    function addPanelRow(label, content) {
        $("<div class='panel_row'>")
            .append($("<span class='panel_label'>").text(label), content)
            .appendTo("#device_panel");
    }

    function buildEqualizer() {
        var simple = $("<div id='device_equalizer_v2'>").append(
            $("<div class='panel_row'>").append(
                $("<span class='panel_label'>").text("Нижние частоты"),
                deviceSlider("device_bass", 0, 15, 1).attr("data-unit", "дБ")
            ),
            $("<div class='panel_row'>").append(
                $("<span class='panel_label'>").text("Высокие частоты"),
                deviceSlider("device_treble", -8, 7, 1.5).attr("data-unit", "дБ")
            )
        );
        var bands = $("<div class='equalizer_bands'>");
        for (var band = 0; band < bandCount; ++band) {
            bands.append(bandSlider(band));
        }
        var full = $("<div id='device_equalizer_v3' style='display: none'>").append(
            $("<div class='panel_row'>").append($("<span class='panel_label'>").text("Эквалайзер, дБ"), bands)
        );
        $("#device_panel").append(simple, full);
        simpleBands = [sliderField(simple.find("#device_bass")), sliderField(simple.find("#device_treble"))];
        onSliderSet(simple.find("input"), function () {
            wrapper_device_setEqualizer(shownDevice(), simpleBands.map((slider) => slider.value()));
        });
        onSliderSet(full.find("input"), function () {
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
            ["Связь", "link"],
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
        $("#device_lines, #device_akb, #device_220, #device_case").addClass("health_label");
        addPanelRow("Громкость", deviceSlider("device_volume", 0, 100, 1));
        onSliderSet($("#main #device_volume"), (field) => wrapperSetDeviceVolume(shownDevice(), Number(field.value)));
        buildEqualizer();
    }

    function zoneRow(id) {
        return $("#device_zone #zone_" + id);
    }

    function showZonePath(row, name, parentName) {
        row.data("name", name).text(parentName + "/" + name);
    }

    function clearDevicePage() {
        $("#device_zone .zone_row").hide();
        $("#line_control, #scenario_tbody").empty();
        $("#device_id").val(0);
        $("#device_panel").addClass("unread");
        $("#device_panel .panel_value").not("#device_zone").text("--").attr("title", "").removeClass(labelStates.join(" "));
        setSlider("#device_treble, #device_bass, #main #device_volume", 0);
        $("#device_panel input").prop("disabled", true);
        $("#messagesAndScenarios").show();
        $("#messagesAndScenariosStop").hide();
    }

    // A label that tells a fault looks so.
    function setHealthLabel(id, label, isGood, text) {
        setDeviceLabel(id, label, text);
        if (isDeviceShown(id)) {
            setOneClass("#device_" + label, labelStates, isGood ? "state_online" : "state_offline");
        }
    }

    function showLink(id, status) {
        if (isDeviceShown(id)) {
            setDeviceLabel(id, "link", linkStates[status].word);
            setOneClass("#device_link", labelStates, labelStates[status]);
            $("#device_treble, #device_bass, #main #device_volume").prop("disabled", status !== 2);
        }
    }

    page({
        wrapperInput_device_setId: function (id) {
            $("#device_id").val(id);
            $("#device_panel").addClass("unread");
        },
        // What a unit's health is isn't known before its state has come.
        wrapperInput_device_setRead: function (id) {
            if (isDeviceShown(id)) {
                $("#device_panel").removeClass("unread");
            }
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
        wrapperInput_device_setName: function (id, name) {
            setDeviceLabel(id, "name", name);
        },
        // The list at the side has gone on to another unit, if there is one.
        wrapperInput_device_delete: function (id) {
            if (isDeviceShown(id)) {
                clearDevicePage();
            }
        },
        wrapperInput_device_setVolume: function (id, volume) {
            if (isDeviceShown(id)) {
                setSlider("#main #device_volume", volume);
            }
        },
        deviceInfo_setAudioPlaylist: function (playlist) {
            $("#device_playlist").text(playlist).attr("title", playlist);
        },
        deviceInfo_setAudioTrack: function (track) {
            $("#device_track").text(track).attr("title", track);
        },
        wrapperInput_device_setPlaybackInfo: function (id, playlistName, trackName) {
            setDeviceLabel(id, "playlist", playlistName);
            setDeviceLabel(id, "track", trackName);
        },
        wrapperInput_device_setTask: function (id, taskId, title) {
            setDeviceLabel(id, "schedule", taskId > 0 ? title : "--");
        },
        wrapperInput_device_setLinesStatus: function (id, status) {
            setHealthLabel(id, "lines", status === 1, status === 1 ? "Нормально" : "Ошибка");
        },
        wrapperInput_device_setBatteryLevel: function (id, value) {
            setHealthLabel(id, "akb", value > 0, value > 0 ? value + "%" : "Отсутствует");
        },
        wrapperInput_device_setPower: function (id, status) {
            setHealthLabel(id, "220", status === 1, status === 1 ? "Нормально" : "Отсутствует");
        },
        wrapperInput_device_setHull: function (id, status) {
            setHealthLabel(id, "case", status === 1, status === 1 ? "Закрыта" : "Открыта");
        },
        wrapperInput_device_setEqualizer: function (id, band, value) {
            if (!isDeviceShown(id)) {
                return;
            }
            if (band < 2) {
                simpleBands[band].begin(); // the server's word counts, whatever was sent
                simpleBands[band].store(value);
            }
            setSlider("#device_equalizer_" + band, -value);
            $("#device_equalizer_" + band).trigger("slider:shown");
        },
        wrapperInput_device_setEqualizerEnabled: function (id, status) {
            if (isDeviceShown(id)) {
                $(".equalizer_bands input").prop("disabled", status !== 1);
            }
        },
        wrapperInput_device_setVersion: function (id, main) {
            if (isDeviceShown(id)) {
                $("#device_equalizer_v3").toggle(main > 2);
                $("#device_equalizer_v2").toggle(main <= 2);
            }
        },
        deviceInfo_changePlaying: function (id, playbackId) {
            if (isDeviceShown(id)) {
                $("#messagesAndScenarios").toggle(!(playbackId > 0));
                $("#messagesAndScenariosStop").toggle(playbackId > 0);
            }
        },
        deviceInfo_playInsideAudio: function (audioId, type) {
            wrapperDeviceInfoPlay(shownDevice(), audioId, type);
        },
        deviceInfo_stopInsideAudio: function () {
            wrapperDeviceInfoStop(shownDevice());
        },
        wrapperInput_device_addScenario: function (id, position, title) {
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
                                deviceInfo_playInsideAudio(Number($(this).closest("tr").attr("id").substr("scenario_".length)), 1);
                            })
                    )
                )
                .appendTo("#scenario_tbody");
        },
        wrapperInput_device_deleteScenario: function (id, position) {
            if (isDeviceShown(id)) {
                $("#scenario_" + position).remove();
            }
        },
        // The entries behind one that goes move up.
        wrapperInput_device_setScenarioId: function (id, oldPosition, position) {
            if (isDeviceShown(id)) {
                $("#scenario_" + oldPosition).attr("id", "scenario_" + position).children().first().text(position + 1);
            }
        },
        deviceInfo_cleanScenarioList: function () {
            $("#scenario_tbody").empty();
        },
        deviceInfo_cleanScenarioListByDevice: function (id) {
            if (isDeviceShown(id)) {
                deviceInfo_cleanScenarioList();
            }
        },
        deviceInfo_cleanLines: function () {
            $("#line_control").empty();
        },
        wrapperInput_deviceLine_add: function (deviceId, id, name, state, isNew, editable) {
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
        },
        wrapperInput_deviceLine_delete: function (deviceId, id) {
            if (isDeviceShown(deviceId)) {
                $("#line_control_" + id).remove();
            }
        },
        wrapperInput_deviceLine_setName: function (deviceId, id, name) {
            if (isDeviceShown(deviceId)) {
                $("#line_control_name_" + id).text(name);
            }
        },
        wrapperInput_deviceLine_setState: function (deviceId, id, state, isNew, editable) {
            if (isDeviceShown(deviceId)) {
                showLineState($("#line_control_state_" + id), state, isNew, editable);
            }
        },
        wrapperInput_deviceLine_setNew: function (deviceId, id, state, isNew, editable) {
            wrapperInput_deviceLine_setState(deviceId, id, state, isNew, editable);
        },
        wrapperInput_zone_add: function (id, parentId, name, parentName, type) {
            if (id === 1) {
                return;
            }
            if (zoneRow(id).length === 0) {
                $("<div class='zone_row'>").attr("id", "zone_" + id).hide().appendTo("#device_zone");
            }
            setOneClass(zoneRow(id), ["state_online", "state_incoming"], type === 0 ? "state_online" : "state_incoming");
            showZonePath(zoneRow(id).data("parent", parentId), name, parentName);
        },
        // The zones below it have its name in their paths.
        wrapperInput_zone_setName: function (id, name, parentName) {
            showZonePath(zoneRow(id), name, parentName);
            $("#device_zone .zone_row").each(function () {
                if ($(this).data("parent") === id) {
                    showZonePath($(this), $(this).data("name"), name);
                }
            });
        },
        wrapperInput_zone_delete: function (id) {
            zoneRow(id).remove();
        },
        wrapperInput_zone_includeDevice: function (zoneId, deviceId) {
            if (isDeviceShown(deviceId)) {
                zoneRow(zoneId).show();
            }
        },
        wrapperInput_zone_excludeDevice: function (zoneId, deviceId) {
            if (isDeviceShown(deviceId)) {
                zoneRow(zoneId).hide();
            }
        },
        deviceInfo_clearZones: function () {
            $("#device_zone .zone_row").hide();
        },
    });

    addInsideAudioPanel("#messagesAndScenarios");
    buildDevicePanel();
    clearDevicePage();
    wrapperLoadDeviceInfoZoneList();
    wrapper_Global_loadPermissions();
    if (callPage("menu_hasUnits")) {
        wrapperLoadCurrentDeviceInfo(deviceForLoad);
    }
})();
