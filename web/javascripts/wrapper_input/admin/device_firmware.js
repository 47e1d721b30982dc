// The page of firmware: the units to be upgraded, and the images on the server and on this computer.

(function () {
    const units = tickList({list: "#kelpaList", prefix: "device_", title: "name", note: "version", region: "#main", empty: "Нет устройств"});
    const versions = new Map(); // per unit, as it was told last
    const states = new Map(); // per unit, its link

    // A unit that isn't online can't be chosen.
    function show(id) {
        const status = states.get(id);
        const isOnline = status === 2;
        units.set(id, {note: isOnline ? versions.get(id) || "" : linkStates[status].word});
        if (!isOnline) {
            units.list.tick(id, false);
        }
        units.list.set(id, "locked", !isOnline);
    }

    function setLink(id, status) {
        if (states.has(id)) {
            states.set(id, status);
            show(id);
        }
    }

    [
        ["serverFirmwareTable", "Прошивки на сервере"],
        ["firmwareTable", "Прошивки клиента"],
    ].forEach((table) =>
        titledPanel(
            table[1],
            $("<table class='rows_table list_table'>").attr("id", table[0]).append(
                "<thead><tr><th class='column_narrow'>№</th><th>Название файла</th><th class='user_state'>Версия</th></tr></thead>",
                "<tbody>",
                "<tfoot class='empty_rows'><tr><td colspan='3'>Нет прошивок</td></tr></tfoot>"
            )
        ).appendTo("#firmware_tables")
    );

    page({
        wrapper_AdminDevice_loadList: function () {
            wrapper.admin_loadDeviceList();
            wrapper.admin_loadDeviceFirmwareList();
        },
        firmware_units: () => units.ticks().map((id) => ({id: id, name: units.list.get(id).title})),
        wrapperInput_device_add: function (id, name, status) {
            units.add(id, {title: name});
            setLink(id, states.set(id, status).get(id));
        },
        wrapperInput_device_delete: function (id) {
            units.remove(id);
            states.delete(id);
        },
        wrapperInput_device_setName: (id, name) => units.set(id, {title: name}),
        wrapperInput_device_setVersion: function (id, main, pss, lnCtrl, version) {
            if (version !== "0.0.0.0" && states.has(id)) {
                versions.set(id, version);
                show(id);
            }
        },
        wrapperInput_device_linkOn: (id) => setLink(id, 2),
        wrapperInput_device_linkIncoming: (id) => setLink(id, 1),
        wrapperInput_device_linkOff: (id) => setLink(id, 0),
        wrapperInput_device_addFirmware: function (id, name, version, type) {
            $("<tr tabindex='0'>")
                .addClass(type === 1 ? "local" : "server")
                .data({number: id + 1, version: version})
                .append($("<td>").text(id + 1), $("<td>").text(name), $("<td>").text(version))
                .appendTo(type === 1 ? "#firmwareTable tbody" : "#serverFirmwareTable tbody");
        },
        wrapperInput_device_clearFirmware: () => $("#serverFirmwareTable tbody").empty(),
        firmware_fillAnew: function () {
            $("#serverFirmwareTable tbody, #firmwareTable tbody").empty();
            wrapper.admin_loadDeviceFirmwareList();
        },
    });

    $("#serverFirmwareTable, #firmwareTable").on("click", "tbody tr", function () {
        $(".firmware_active").removeClass("firmware_active row_active");
        $(this).addClass("firmware_active row_active");
    });
    wrapper_AdminDevice_loadList();
})();
