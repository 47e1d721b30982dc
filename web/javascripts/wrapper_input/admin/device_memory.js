// The page of units' own memory: the units, and the fragments and messages of the one that is active.

(function () {
    const units = unitList({
        table: "#kelpaList",
        cells: (unit) => [
            {name: "device_name", text: unit.name},
            {name: "device_memory", text: memoryText(unit), class: "user_state " + memoryClass(unit)},
        ],
        select: (id) => wrapper_AdminDevice_selectMemoryDevice(id),
        emptied: () => clearBoth(),
    });

    function memoryText(unit) {
        if (unit.status === 1) {
            return linkStates[1].word;
        }
        return unit.status === 2 && unit.memory > 0 ? Math.round(unit.memory / 1024) + " Кбайт" : linkStates[0].word;
    }

    function memoryClass(unit) {
        return linkClasses[unit.status === 1 ? 1 : unit.status === 2 && unit.memory > 0 ? 2 : 0];
    }

    function clearBoth() {
        $("#message_tbody, #scenario_tbody").empty();
    }

    function rowButton(icon, title, action) {
        return $("<button type='button' class='row_button'>")
            .attr("title", title)
            .toggleClass("quiet_button", icon !== "fa-trash")
            .append($("<i class='fa'>").addClass(icon))
            .on("click", (event) => action($(event.currentTarget).closest("tr").data("position")));
    }

    // A row of one of the two tables; its number counts from 1.
    function addRow(kind, position, texts, type, ask) {
        if ($("#" + kind + "_" + position).length) {
            return;
        }
        const table = "#" + kind + "_tbody";
        const cells = [position + 1].concat(texts).map((text) => $("<td>").text(text));
        $("<tr>")
            .attr("id", kind + "_" + position)
            .data("position", position)
            .append(
                cells,
                $("<td class='column_button'>").append(
                    rowButton("fa-play", "Воспроизвести", (at) => deviceInfo_playInsideAudio(at, type)),
                    rowButton("fa-trash", "Удалить", (at) => ask(units.activeId, at))
                )
            )
            .appendTo(table);
    }

    function renumber(kind, from, to) {
        $("#" + kind + "_" + from)
            .attr("id", kind + "_" + to)
            .data("position", to)
            .children()
            .first()
            .text(to + 1);
    }

    function onShown(action) {
        return (id, ...values) => units.isActive(id) && action(...values);
    }

    page(
        Object.assign(units.functions, {
            wrapper_AdminDevice_loadList: () => wrapper.admin_loadDeviceList(),
            memory_shownUnit: () => units.activeId,
            wrapperInput_device_add: (id, name, status) => units.add(id, {name: name, status: status, memory: 0}),
            wrapperInput_device_setAvailableMemory: (id, size) => units.set(id, {memory: size}),
            wrapperInput_device_setId: (id) => units.activate(id),
            wrapperInput_device_addMessage: onShown((position, title, size) =>
                addRow("message", position, [title, Math.round(size / 1024) + " Кбайт"], 0, (unit, at) => modalAdminDeleteDeviceMessage(unit, at))
            ),
            wrapperInput_device_deleteMessage: onShown((position) => $("#message_" + position).remove()),
            wrapperInput_device_setMessageId: onShown((from, to) => renumber("message", from, to)),
            wrapperInput_device_clearMessage: () => $("#message_tbody").empty(),
            wrapperInput_device_addScenario: onShown((position, title, priority, gong, message, repeat) =>
                addRow("scenario", position, [title, priority, gong, message, repeat], 1, (unit, at) => modalAdminDeleteDeviceScenario(unit, at))
            ),
            wrapperInput_device_deleteScenario: onShown((position) => $("#scenario_" + position).remove()),
            wrapperInput_device_setScenarioId: onShown((from, to) => renumber("scenario", from, to)),
            wrapperInput_device_clearScenario: () => $("#scenario_tbody").empty(),
            deviceInfo_cleanMessageList: () => $("#message_tbody").empty(),
            deviceInfo_cleanScenarioList: () => $("#scenario_tbody").empty(),
            deviceInfo_cleanMessageListByDevice: onShown(() => $("#message_tbody").empty()),
            deviceInfo_cleanScenarioListByDevice: onShown(() => $("#scenario_tbody").empty()),
            deviceInfo_hideMessages: () => $("#messagesAndScenarios").hide(),
            deviceInfo_changePlaying: onShown(function (group) {
                $("#messagesAndScenarios").toggle(!(group > 0));
                $("#messagesAndScenariosStop").toggle(group > 0);
            }),
            deviceInfo_playInsideAudio: (position, type) => wrapperDeviceInfoPlay(units.activeId, position, type),
            deviceInfo_stopInsideAudio: function () {
                answers.wait("device/stop", "#stop_inside_audio");
                wrapperDeviceInfoStop(units.activeId);
            },
        })
    );

    $("#add_message").on("click", () => modalAdminAddDeviceMessage());
    $("#add_scenario").on("click", () => modalAdminAddDeviceScenario());
    addInsideAudioPanel("#messagesAndScenarios");
    wrapper_AdminDevice_loadList();
})();
