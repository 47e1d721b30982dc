// The page of lines: the units, and the lines or terminal devices of the one that is active.

(function () {
    const units = unitList({
        table: "#kelpaList",
        select: function (id) {
            $("#line_control").empty();
            wrapper_AdminDevice_selectLineControlDevice(id);
        },
        emptied: () => $("#line_control").empty(),
    });

    function onShown(action) {
        return (id, line, ...values) => units.isActive(id) && action(id, line, values);
    }

    function lineButton(icon, title, action) {
        return $("<button type='button' class='row_button'>")
            .attr("title", title)
            .toggleClass("quiet_button", icon !== "fa-minus")
            .append($("<i class='fa'>").addClass(icon))
            .on("click", (event) => action(event.currentTarget));
    }

    function send(request, forwarder) {
        return (unit, line) =>
            function (button) {
                answers.wait("device/" + request, button);
                forwarder(unit, line);
            };
    }
    const add = send("addTipDevice", (unit, line) => wrapper_AdminDevice_addLineControl(unit, line));
    const remove = send("removeTipDevice", (unit, line) => wrapper_AdminDevice_deleteLineControl(unit, line));

    function buttons(unit, line, isNew, editable) {
        if (!editable) {
            return [];
        }
        if (Number(isNew) === 1) {
            return [lineButton("fa-plus", "Добавить", add(unit, line))];
        }
        return [
            lineButton("fa-edit", "Изменить", () => modalEditLineControl(unit, line)),
            lineButton("fa-minus", "Удалить", remove(unit, line)),
        ];
    }

    function showState(unit, line, state, isNew, editable) {
        showLineState($("#line_control_state_" + line), state, isNew, editable);
        $("#line_control_button_" + line).empty().append(buttons(unit, line, isNew, editable));
    }

    page(
        Object.assign(units.functions, {
            wrapper_AdminDevice_loadList: () => wrapper.admin_loadDeviceList(),
            lineControl_shown: () => units.activeId,
            wrapperInput_device_setId: function (id) {
                $("#line_control").empty();
                units.activate(id);
            },
            wrapperInput_device_setVersion: function (id, main) {
                if (units.isActive(id)) {
                    $(".v3").toggleClass("hidden", !(main > 2));
                    $(".v2").toggleClass("hidden", main > 2);
                }
            },
            wrapperInput_deviceLine_add: function (deviceId, id, name, state, isNew, editable) {
                if (!units.isActive(deviceId) || $("#line_control_" + id).length) {
                    return;
                }
                const cells = ["id", "name", "state", "button"].map((part) => $("<td>").attr("id", "line_control_" + part + "_" + id));
                cells[0].text(id);
                cells[1].text(name);
                $("<tr>").attr("id", "line_control_" + id).append(cells).appendTo("#line_control");
                showState(deviceId, id, state, isNew, editable);
            },
            wrapperInput_deviceLine_delete: onShown((unit, line) => $("#line_control_" + line).remove()),
            wrapperInput_deviceLine_setName: onShown((unit, line, values) => $("#line_control_name_" + line).text(values[0])),
            wrapperInput_deviceLine_setState: onShown((unit, line, values) => showState(unit, line, ...values)),
            wrapperInput_deviceLine_setNew: onShown((unit, line, values) => showState(unit, line, ...values)),
        })
    );

    wrapper_AdminDevice_loadList();
})();
