// The page of tasks: their list, and the form of the one that is active.

(function () {
    const when = new TaskFields("#task_when", "task_", "");
    const play = playForm({place: "#task_play", prefix: "", region: "#main"});
    const enabled = switchField("#task_enabled", "#task_disabled");
    let raw = {}; // what the server has of the moments: {start, endTime, days}

    const words = {once: "однократно", daily: "ежедневно", weekly: "еженедельно", monthly: "ежемесячно", annually: "ежегодно"};

    const tasks = listPage({
        table: "#taskList",
        prefix: "task_",
        active: "task_active",
        empty: "Нет заданий",
        cells: (task) => [
            {name: "task_list_title", text: task.title},
            {name: "task_status", text: task.enabled ? words[task.frequency] || "" : "выключено", class: "user_state " + (task.enabled ? "quiet" : "state_offline")},
        ],
        buttons: [
            {icon: "fa-copy", title: "Копировать", quiet: true, action: (id, task) => modalAdminCopyTask(id, task.title)},
            {icon: "fa-trash", title: "Удалить", action: (id, task) => modalAdminDeleteTask(id, task.title)},
        ],
        select: (id) => wrapper_AdminTask_loadTask(id),
        emptied: () => (form.id = null),
    });

    // What follows the edit for the stop event: another save before its answer would make two of them.
    function stopRequest() {
        const had = (raw.endTime || "") !== "";
        const wants = when.text("stop") !== "";
        return had && wants ? ["task/edit"] : had ? ["task/delete"] : wants ? ["task/add"] : [];
    }

    const form = formPage({
        fields: {
            title: "#task_title",
            type: when.field("type"),
            time: when.field("time"),
            date: when.field("date"),
            stop: when.field("stop"),
            end: when.field("end"),
            count: play.count,
        },
        parts: [enabled, when.days].concat(play.parts),
        rules: {
            title: nameError,
            time: () => when.timeError(),
            date: () => when.dateError(),
            stop: () => when.stopError(),
            end: () => when.endError(),
            count: () => play.countError(),
        },
        request: () => ["task/edit"].concat(stopRequest()),
        save: () => saveTask(),
    });

    function onShown(action) {
        return function (id) {
            if (tasks.isActive(id)) {
                action.apply(null, [].slice.call(arguments, 1));
            }
        };
    }

    // Days can be moved to local time only once the start is known.
    function showMoments() {
        const start = (raw.start || "").split(" ");
        const local = taskTime.toForm(start[0] || "", start[1] || "", raw.endTime || "", raw.days || "");
        form.show(tasks.activeId, {date: local.date, time: local.time, stop: local.stop});
        when.days.store(local.days);
        when.showNote();
    }

    function rawSetter(name) {
        return onShown((value) => {
            raw[name] = value;
            showMoments();
        });
    }

    page(
        Object.assign(play.functions(), {
            wrapper_AdminDevice_loadList: () => wrapper.admin_loadDeviceList(),
            // One that is known has another folder, track or other targets.
            wrapperInput_task_add: function (id, title, group, frequency) {
                const isKnown = tasks.has(id);
                tasks.add(id, {title: title, frequency: frequency, enabled: true});
                if (isKnown && tasks.isActive(id)) {
                    wrapper_AdminTask_loadTask(id);
                }
            },
            wrapperInput_task_delete: (id) => tasks.remove(id),
            wrapperInput_task_select: (id) => tasks.activate(id),
            wrapperInput_task_setId: onShown(() => {
                $("#task_id").text(tasks.activeId);
                if (form.id !== tasks.activeId) {
                    raw = {};
                }
                form.show(tasks.activeId, {});
            }),
            wrapperInput_task_setTitle: function (id, title) {
                tasks.set(id, {title: title});
                if (tasks.isActive(id)) {
                    form.show(id, {title: title});
                }
            },
            wrapperInput_task_setType: (id, type) => {},
            wrapperInput_task_setFrequencyRate: (id, rate) => {},
            wrapperInput_task_setEnabled: function (id, state) {
                tasks.set(id, {enabled: Number(state) === 1});
                if (tasks.isActive(id)) {
                    enabled.store(Number(state) === 1);
                }
            },
            wrapperInput_task_setFrequency: function (id, type) {
                tasks.set(id, {frequency: type});
                if (tasks.isActive(id)) {
                    form.show(id, {type: type});
                    when.showType(form.value("type"));
                }
            },
            wrapperInput_task_setWeeklyDays: rawSetter("days"),
            wrapperInput_task_setPlaylist: onShown((title) => $("#task_playlist").text(title)),
            wrapperInput_task_setTrack: onShown((title) => $("#task_track").text(title)),
            wrapperInput_task_setStartDateTime: rawSetter("start"),
            wrapperInput_task_setEndDate: onShown((date) => form.show(tasks.activeId, {end: date})),
            wrapperInput_task_setEndTime: rawSetter("endTime"),
            wrapperInput_task_setTargetPlaying: onShown((target) => play.target.store(target === "track")),
            wrapperInput_task_setRepeats: onShown((count) => form.show(tasks.activeId, {count: String(count + 1)})),
            wrapperInput_task_setActionIfEnd: onShown((action) => play.action.store(action === "stop")),
            wrapperInput_task_clearDevices: onShown(() => play.devices.clear()),
            wrapperInput_task_clearZones: onShown(() => play.zones.clear()),
            wrapperInput_task_selectZone: onShown((zone) => play.zones.store(zone)),
            wrapperInput_task_selectDevice: onShown((device) => play.devices.store(device)),
            // Answers false where nothing could be sent.
            saveTask: function () {
                if ($("#task_id").text() === "" || !markField("#task_title", nameError($("#task_title").val()))) {
                    return false;
                }
                if (!play.isTicked) {
                    modalAdminAddTaskNoSelectedDevices();
                    return false;
                }
                const type = form.value("type");
                const moments = when.toServer;
                wrapper_AdminTask_editTask(
                    textNumber("#task_id"),
                    $("#task_title").val(),
                    type,
                    enabled.value(),
                    type === "weekly" ? moments.days.join(",") : "",
                    moments.start,
                    moments.endDate,
                    play.zones.ticks(),
                    play.devices.ticks(),
                    {endTime: moments.endTime, replayType: play.targetPlaying, replyCount: play.repeatCount, action: play.actionIfEnd}
                );
                return true;
            },
        })
    );

    limitName("#task_title");
    buildSelect(when.field("type"));
    $(when.field("type")).on("change", function () {
        when.showType(this.value);
        if (this.value === "weekly") {
            wrapper_AdminTask_loadWeekDays(textNumber("#task_id"));
        }
    });
    when.showType("once");
    $("#add_task").on("click", () => modalAdminAddTask());
    wrapper_AdminTask_loadList();
    wrapper_AdminZone_loadList(true);
    wrapper_AdminDevice_loadList();
})();
