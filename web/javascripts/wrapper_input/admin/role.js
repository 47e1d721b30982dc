// The page of roles: their list, the rights of the one that is active, and what it may use. What
// presets and tasks need is ticked and can't be taken away as long as they are ticked.

(function () {
    const administrator = "admin"; // the role that every server has
    const rights = [
        {label: "Управление сервером", on: "role_server"},
        {label: "Управление пользователями", on: "role_user"},
        {label: "Управление группами", on: "role_control"},
        {label: "Управление зонами", on: "role_zone", changed: (status) => changeAdminRoleZones(status)},
        {label: "Управление устройствами", on: "role_device"},
        {label: "Управление воспроизведениями", on: "role_playback", changed: (status) => changeAdminRolePlaylists(status)},
        {label: "Управление предустановками", on: "role_preset", changed: (status) => changeAdminRolePresets(status)},
        {label: "Управление заданиями", on: "role_tasks", changed: (status) => changeAdminRoleTasks(status)},
        {label: "Вещание с микрофона", on: "role_microphone_broadcast"},
        {label: "Тревожное вещание", on: "role_microphone_alarm"},
    ];
    const switches = {};

    rights.forEach(function (right) {
        const row = $("<div class='panel_row'>").append($("<span class='panel_label wide_label'>").text(right.label), "<span class='panel_value'>");
        row.appendTo("#role_rights");
        buildSwitch(row.find(".panel_value"), right.on, right.on, right.on + "_disabled");
        switches[right.on] = switchField("#" + right.on, "#" + right.on + "_disabled");
        if (right.changed) {
            row.on("change", "input", () => right.changed(switches[right.on].value()));
        }
    });

    function boxes(list, prefix, title, note, empty, ticked) {
        return tickList({list: list, prefix: prefix, title: title, note: note, region: "#main", empty: empty, ticked: ticked});
    }
    const zones = boxes("#zoneList", "zone_", "name", "type", "Нет зон");
    const playlists = boxes("#playlistList", "playlist_", "name", undefined, "Нет папок");
    const presets = boxes("#presetList", "preset_", "title", "status", "Нет предустановок", () => reloadBlocks());
    const tasks = boxes("#taskList", "task_", "title", "status", "Нет заданий", () => reloadBlocks());
    const lists = [zones, playlists, presets, tasks];
    const frequencies = {once: "однократно", daily: "ежедневно", weekly: "еженедельно", monthly: "ежемесячно", annually: "ежегодно"};

    const roles = listPage({
        table: "#roleList",
        prefix: "",
        active: "role_active",
        empty: "Нет групп",
        cells: (role) => [
            {name: "name", text: role.name},
            {name: "role_row_title", text: role.title, class: "ellipsis quiet"},
        ],
        buttons: [
            {
                icon: "fa-trash",
                title: "Удалить",
                shown: (role) => !role.isCurrent && role.name !== administrator,
                action: (id, role) => modalAdminDeleteRole(id, role.name),
            },
        ],
        select: (id) => wrapper_AdminRole_selectRole(id),
        emptied: () => (form.id = null),
    });

    const form = formPage({
        fields: {title: "#role_title"},
        rules: {title: nameError},
        parts: lists.concat(Object.keys(switches).map((name) => switches[name])),
        request: () => ["role/edit", areListsShown() ? "role/setPermissions" : "role/setServer", "role/setRedirection"],
        save: () => saveRole(),
    });

    const blocks = ["#role_zone_table", "#role_playback_table", "#role_preset_table", "#role_task_table"];

    function areListsShown() {
        return blocks.some((block) => $(block).css("display") === "block");
    }

    function isFixed(name) {
        return name === administrator || name === $("#name_0").text();
    }

    // Presets and tasks come one by one: what they lock is asked for behind the last.
    let isReloading = false;
    let timer = null;

    function reloadBlocks() {
        clearTimeout(timer);
        timer = null;
        isReloading = true;
        wrapper_AdminRole_reloadBlocksForRole(
            $("#role_name").text(),
            switches.role_preset.value(),
            presets.ticks(),
            switches.role_tasks.value(),
            tasks.ticks()
        );
        isReloading = false;
    }

    function reloadSoon() {
        if (timer === null) {
            timer = setTimeout(reloadBlocks, 0);
        }
    }

    function onShown(action) {
        return (id, ...values) => roles.isActive(id) && action(...values);
    }

    function setRight(right) {
        return onShown((name, value) => switches[right].store(Number(value) === 1));
    }

    // A right to manage all of a kind needs no list of it.
    function setListRight(right, block) {
        return onShown(function (name, value, isAvailable) {
            switches[right].store(Number(value) === 1);
            if (Number(value) === 1) {
                $(block).hide();
            } else if (isAvailable) {
                $(block).show();
            } else {
                $(blocks.join()).hide();
            }
            lists.forEach((list) => list.list.view.update());
        });
    }

    function clean(list) {
        return function () {
            list.unlockAll();
            list.clear();
        };
    }

    function select(list) {
        return onShown((id) => (isReloading ? list.mark(id) : list.store(id)));
    }

    function showBlock(block, status) {
        $(block).toggle(!status);
        lists.forEach((list) => list.list.view.update());
    }

    // The management rights, in the order of the functions that send them.
    function rightValues() {
        const order = ["role_server", "role_user", "role_control", "role_zone", "role_device", "role_playback", "role_tasks", "role_preset"];
        return order.map((name) => switches[name].value());
    }

    function idsFor(list, right) {
        return switches[right].value() ? list.ids() : list.ticks();
    }

    const zoneTypes = ["Физическая", "Логическая"];

    page(Object.assign(zoneBoxFunctions(zones, zonePath, (type) => zoneTypes[type]), {
        wrapperInput_role_add: (id, name, title, isCurrent) => roles.add(id, {name: name, title: title, isCurrent: Boolean(isCurrent)}),
        wrapperInput_role_delete: (id) => roles.remove(id),
        wrapperInput_role_edit: function (id, name, title) {
            roles.set(id, {name: name, title: title});
            if (roles.isActive(id)) {
                form.show(id, {title: title});
                $("#role_name").text(name);
                $("#role_title").prop("disabled", isFixed(name));
                $("#role_rights input").prop("disabled", isFixed(name));
                $("#role_rights .btn").toggleClass("disabled", isFixed(name));
                lists.forEach((list) => list.setEnabled(!isFixed(name)));
            }
        },
        wrapperInput_role_select: function (id) {
            roles.activate(id);
            form.show(id, {});
        },
        wrapperInput_role_editServerManagement: setRight("role_server"),
        wrapperInput_role_editUserManagement: setRight("role_user"),
        wrapperInput_role_editRoleManagement: setRight("role_control"),
        wrapperInput_role_editDeviceManagement: setRight("role_device"),
        wrapperInput_role_editMicrophone: setRight("role_microphone_broadcast"),
        wrapperInput_role_editMicrophoneAlarm: setRight("role_microphone_alarm"),
        wrapperInput_role_editZoneManagement: setListRight("role_zone", blocks[0]),
        wrapperInput_role_editPlaybackManagement: setListRight("role_playback", blocks[1]),
        wrapperInput_role_editPresetManagement: setListRight("role_preset", blocks[2]),
        wrapperInput_role_editScheduleManagement: setListRight("role_tasks", blocks[3]),
        wrapperInput_role_cleanZones: clean(zones),
        wrapperInput_role_cleanPlaylists: clean(playlists),
        wrapperInput_role_cleanPresets: clean(presets),
        wrapperInput_role_cleanTasks: clean(tasks),
        wrapperInput_role_selectZone: select(zones),
        wrapperInput_role_selectPlaylist: select(playlists),
        wrapperInput_role_selectPreset: select(presets),
        wrapperInput_role_selectTask: select(tasks),
        wrapperInput_role_blockZone: onShown((id) => zones.lock(id)),
        wrapperInput_role_blockPlaylist: onShown((id) => playlists.lock(id)),
        wrapperInput_role_unblockZone: onShown((id) => zones.unlock(id)),
        wrapperInput_role_unblockPlaylist: onShown((id) => playlists.unlock(id)),
        wrapperInput_role_unblockZones: () => zones.unlockAll(),
        wrapperInput_role_unblockPlaylists: () => playlists.unlockAll(),
        wrapperInput_role_reloadPermissions: reloadBlocks,

        wrapperInput_playback_addItem: (id, parentId, name, type) => type === 1 && playlists.add(id, {title: name}),
        wrapperInput_playback_setPlaylistName: (id, name) => playlists.set(id, {title: name}),
        wrapperInput_playback_deletePlaylist: (id) => playlists.remove(id),
        wrapperInput_preset_add: function (id, name, playlist, track, group) {
            presets.add(id, {title: name, note: playbackGroups[group] || ""});
            reloadSoon();
        },
        wrapperInput_preset_setTitle: (id, title) => presets.set(id, {title: title}),
        wrapperInput_preset_delete: function (id) {
            presets.remove(id);
            reloadSoon();
        },
        wrapperInput_task_add: function (id, title, group, frequency) {
            tasks.add(id, {title: title, note: frequencies[frequency] || ""});
            reloadSoon();
        },
        wrapperInput_task_setTitle: (id, title) => tasks.set(id, {title: title}),
        wrapperInput_task_setFrequency: (id, frequency) => tasks.set(id, {note: frequencies[frequency] || ""}),
        wrapperInput_task_delete: function (id) {
            tasks.remove(id);
            reloadSoon();
        },

        changeAdminRoleZones: (status) => showBlock(blocks[0], status),
        changeAdminRolePlaylists: (status) => showBlock(blocks[1], status),
        changeAdminRolePresets: function (status) {
            showBlock(blocks[2], status);
            reloadBlocks();
        },
        changeAdminRoleTasks: function (status) {
            showBlock(blocks[3], status);
            reloadBlocks();
        },
        wrapper_AdminRole_editRole: function (id, name, title, server, user, role, zone, device, playback, task, preset) {
            wrapper.admin_editRole(id, name, title);
            wrapper.admin_editRoleSettings(name, server, user, role, zone, device, playback, task, preset);
        },
        wrapper_AdminRole_savePermissions: function (name, zoneList, playlistList, presetList, taskList, server, user, role, zone, device, playback, task, preset) {
            wrapper.admin_savePermissions(name, zoneList, playlistList, presetList, taskList, {
                serverManagement: server,
                userManagement: user,
                roleManagement: role,
                zoneManagement: zone,
                deviceManagement: device,
                playbackManagement: playback,
                taskManagement: task,
                presetManagement: preset,
            });
        },
        // Answers false where nothing could be sent.
        saveRole: function () {
            const name = $("#role_name").text();
            if (name === administrator) {
                modalAdminRoleError();
            } else if (name === $("#name_0").text()) {
                modalAdminCurrentRoleError();
            } else {
                return savePermissions();
            }
            return false;
        },
        savePermissions: function () {
            const name = $("#role_name").text();
            if (!areListsShown()) {
                return saveRoleSettings() && (saveRoleTranslationSettings(), true);
            }
            if (!markField("#role_title", nameError($("#role_title").val()))) {
                return false;
            }
            wrapper_AdminRole_editRoleTitle(0, name, $("#role_title").val());
            wrapper_AdminRole_savePermissions(
                name,
                idsFor(zones, "role_zone"),
                idsFor(playlists, "role_playback"),
                idsFor(presets, "role_preset"),
                idsFor(tasks, "role_tasks"),
                ...rightValues()
            );
            return true;
        },
        saveRoleSettings: function () {
            if (!markField("#role_title", nameError($("#role_title").val()))) {
                return false;
            }
            wrapper_AdminRole_editRole(
                0,
                $("#role_name").text(),
                $("#role_title").val(),
                ...rightValues()
            );
            return true;
        },
        saveRoleTranslationSettings: () =>
            wrapper_AdminRole_editRoleTranslation(
                $("#role_name").text(),
                switches.role_microphone_broadcast.value(),
                switches.role_microphone_alarm.value()
            ),
        // The chain that saves list by list; each reply goes on to the next.
        saveZone: () => saveList(blocks[0], () => wrapper_AdminRole_saveZones($("#role_name").text(), idsFor(zones, "role_zone")), () => savePlaylist()),
        savePlaylist: () =>
            saveList(blocks[1], () => wrapper_AdminRole_savePlaylists($("#role_name").text(), idsFor(playlists, "role_playback")), () => savePreset()),
        savePreset: () =>
            saveList(blocks[2], () => wrapper_AdminRole_savePresets($("#role_name").text(), idsFor(presets, "role_preset")), () => saveTask()),
        saveTask: () =>
            saveList(blocks[3], () => wrapper_AdminRole_saveTasks($("#role_name").text(), idsFor(tasks, "role_tasks")), () => saveRoleSettings()),
    }));

    function saveList(block, send, goOn) {
        ($(block).css("display") === "block" ? send : goOn)();
    }

    $("#main").on("leave", () => clearTimeout(timer));
    limitName("#role_title");
    $("#add_role").on("click", () => modalAdminAddRole());
    wrapper_AdminRole_LoadList();
    wrapper_AdminZone_loadList(true);
    wrapper_AdminPlaylist_loadList(true);
    wrapper_AdminPreset_loadList();
    wrapper_AdminTask_loadList();
})();
