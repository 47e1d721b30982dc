// The page of presets: their list, and the form of the one that is active.

(function () {
    const play = playForm({place: "#preset_play", prefix: "", region: "#main"});

    const presets = listPage({
        table: "#presetList",
        prefix: "preset_",
        active: "preset_active",
        empty: "Нет предустановок",
        cells: (preset) => [
            {name: "preset_title", text: preset.title},
            {name: "preset_status", text: playbackGroups[preset.group] || "", class: "user_state quiet"},
        ],
        buttons: [
            {icon: "fa-copy", title: "Копировать", quiet: true, action: (id, preset) => modalAdminCopyPreset(id, preset.title)},
            {icon: "fa-trash", title: "Удалить", action: (id, preset) => modalAdminDeletePreset(id, preset.title)},
        ],
        select: (id) => wrapper_AdminPreset_loadPreset(id),
        emptied: () => (form.id = null),
    });

    const form = formPage({
        fields: {title: "#preset_title", count: play.count},
        parts: play.parts,
        rules: {title: nameError, count: () => play.countError()},
        request: "preset/edit",
        save: () => savePreset(),
    });

    function onShown(action) {
        return function (id) {
            if (presets.isActive(id)) {
                action.apply(null, [].slice.call(arguments, 1));
            }
        };
    }

    page(
        Object.assign(play.functions(), {
            wrapper_AdminDevice_loadList: () => wrapper.admin_loadDeviceList(),
            // One that is known has another folder or other targets.
            wrapperInput_preset_add: function (id, name, playlist, track, group) {
                const isKnown = presets.has(id);
                presets.add(id, {title: name, group: group});
                presets.set(id, {title: name, group: group});
                if (isKnown && presets.isActive(id)) {
                    wrapper_AdminPreset_loadPreset(id);
                }
            },
            wrapperInput_preset_delete: (id) => presets.remove(id),
            wrapperInput_preset_select: (id) => presets.activate(id),
            wrapperInput_preset_setId: onShown(() => {
                $("#preset_id").text(presets.activeId);
                form.show(presets.activeId, {});
            }),
            wrapperInput_preset_setTitle: function (id, title) {
                presets.set(id, {title: title});
                if (presets.isActive(id)) {
                    form.show(id, {title: title});
                }
            },
            wrapperInput_preset_setType: onShown((group) => $("#preset_type").text(playbackGroups[group] || "")),
            wrapperInput_preset_setPlaylist: onShown((title) => $("#preset_playlist").text(title)),
            wrapperInput_preset_setTrack: onShown((title) => $("#preset_track").text(title)),
            wrapperInput_preset_setTargetPlaying: onShown((target) => play.target.store(target === "track")),
            wrapperInput_preset_setRepeats: onShown((count) => form.show(presets.activeId, {count: String(count + 1)})),
            wrapperInput_preset_setActionIfEnd: onShown((action) => play.action.store(action === "stop")),
            wrapperInput_preset_clearDevices: onShown(() => play.devices.clear()),
            wrapperInput_preset_clearZones: onShown(() => play.zones.clear()),
            wrapperInput_preset_selectZone: onShown((zone) => play.zones.store(zone)),
            wrapperInput_preset_selectDevice: onShown((device) => play.devices.store(device)),
            // Answers false where nothing could be sent.
            savePreset: function () {
                if ($("#preset_id").text() === "" || !markField("#preset_title", nameError($("#preset_title").val()))) {
                    return false;
                }
                if (!play.isTicked) {
                    modalAdminAddPresetNoSelectedDevices();
                    return false;
                }
                wrapper_AdminPreset_editPreset(
                    textNumber("#preset_id"),
                    $("#preset_title").val(),
                    play.zones.ticks(),
                    play.devices.ticks(),
                    play.targetPlaying,
                    play.repeatCount,
                    play.actionIfEnd
                );
                return true;
            },
        })
    );

    limitName("#preset_title");
    $("#add_preset").on("click", () => modalAdminAddPreset());
    wrapper_AdminPreset_loadList();
    wrapper_AdminZone_loadList(true);
    wrapper_AdminDevice_loadList();
    if (presets.rows.size) {
        presets.open(Array.from(presets.rows.keys()).pop());
    }
})();
