// The page of a unit's settings: the list of units, and the form of the one that is active.

(function () {
    const bandCount = 10;
    const oldLast = 2; // the last generation with bass and treble only

    // The rows of the form behind the equaliser, in their order: a label, then an input, a switch or
    // a select box. The kind of unit that has a row is its block; "" stands for both.
    const rows = [
        {head: "Сеть"},
        {label: "MAC адрес", text: "device_mac"},
        {label: "DHCP", on: "device_dhcp", name: "dhcp"},
        {label: "IPv4 адрес", input: "device_ip", name: "ip", rule: addressError},
        {label: "Маска подсети", input: "device_network_mask", name: "mask", rule: addressError},
        {label: "Основной шлюз", input: "device_gateway", name: "gateway", rule: emptyOrAddressError},
        {label: "IP Мультикаст-вещания", input: "device_multicast_ip", name: "multicastIp", rule: multicastError},
        {label: "Порт сервера команд", input: "device_commands_port", name: "commandPort", rule: portError},
        {label: "Принимать команды с IP", input: "device_allowed_command_ip", name: "allowedCommandIp", rule: addressError},
        {head: "Линии и \"Таврин\""},
        {label: "Контроль линий", on: "device_line_test", name: "tavrinRelayControl", block: "v2"},
        {label: "Линии объединены", on: "device_line_joined", name: "lineJoined", block: "v2"},
        {label: "Адрес \"Таврина\"", input: "device_tavrin_address", name: "tavrinAddress", rule: (text) => rangeError(text, 0, 255)},
        {label: "События реле", on: "device_tavrin_rele", name: "tavrinRelayEvent"},
        {label: "Индикация состояния \"Таврина\"", on: "device_tavrin_line_test", name: "tavrinErrorIndication"},
        {head: "Источники воспроизведения", block: "v3"},
        {label: "Поток с других устройств", on: "device_multicast_listen", name: "multicastListen", block: "v3"},
        {label: "Передавать поток со входа 1", on: "device_multicast_ain0", name: "multicastAIN0", block: "v3"},
        {label: "Передавать поток со входа 2", on: "device_multicast_ain1", name: "multicastAIN1", block: "v3"},
        {head: "Приоритеты источников воспроизведения", block: "v3"},
        {label: "Аналоговый вход 1", select: "device_priority_ain0", name: "priorityAIN0", block: "v3"},
        {label: "Аналоговый вход 2", select: "device_priority_ain1", name: "priorityAIN1", block: "v3"},
        {label: "Сообщении(протокол \"Таврин\")", select: "device_priority_scenario", name: "priorityScenario", block: "v3"},
        {label: "Аналоговый вход мультикаст", select: "device_priority_listen", name: "priorityListen", block: "v3"},
        {label: "Поток с Аудио-Сервера", select: "device_priority_stream", name: "priorityStream", block: "v3"},
    ];

    function emptyOrAddressError(text) {
        return text === "" ? "" : addressError(text);
    }

    function control(row) {
        if (row.input) {
            return $("<input class='form-control' autocomplete='off'>").attr("id", row.input);
        }
        if (row.select) {
            const select = $("<select>").attr("id", row.select);
            [1, 2, 3, 4, 5].forEach((number) => select.append(new Option(number, number)));
            return $("<span class='panel_field'>").append(select);
        }
        return $("<span class='panel_value'>").attr("id", row.text || null);
    }

    function buildRow(row) {
        if (row.head) {
            return $("<div class='panel_subtitle'>").text(row.head);
        }
        const line = $("<div class='panel_row form_field'>").append($("<span class='panel_label'>").text(row.label), control(row));
        if (row.on) {
            buildSwitch(line.find(".panel_value").removeAttr("id"), row.on, row.on, row.on + "_disabled");
        }
        return line;
    }

    rows.forEach((row) => buildRow(row).addClass(row.block).appendTo("#device_settings"));
    buildSwitch("#device_equalizer_switch", "device_equalizer", "device_equalizer_is_enabled", "device_equalizer_is_enabled_disabled");
    for (let band = 0; band < bandCount; ++band) {
        $(".equalizer_bands").append(bandSlider(band));
    }

    const switches = {}; // by the names of the wire
    rows.filter((row) => row.on).forEach((row) => (switches[row.name] = switchField("#" + row.on, "#" + row.on + "_disabled")));
    const equalizerSwitch = switchField("#device_equalizer_is_enabled", "#device_equalizer_is_enabled_disabled");
    const volume = sliderField("#device_volume");
    const simple = [sliderField("#device_bass"), sliderField("#device_treble")];
    const bands = Array.from({length: bandCount}, (unused, band) => sliderField("#device_equalizer_" + band));

    const fields = {name: "#device_name"};
    const rules = {name: nameError};
    rows.filter((row) => row.input || row.select).forEach((row) => (fields[row.name] = "#" + (row.input || row.select)));
    // What isn't shown or can't be changed is never wrong.
    rows.filter((row) => row.rule).forEach((row) => {
        rules[row.name] = (text) => ($(fields[row.name]).is(":visible:enabled") ? row.rule(text) : "");
    });

    const devices = unitList({
        table: "#deviceList",
        select: (id) => wrapper_AdminDevice_selectDevice(id),
        emptied: () => {
            form.id = null;
            $("#device_id").text("");
            $("#device_form").addClass("hidden");
        },
    });

    const zones = tickList({
        list: "#device_zone",
        prefix: "zone_",
        title: "name",
        region: "#main",
        empty: "Нет зон",
        ticked: (id) => deviceInfo_changeZone(id),
    });

    const form = formPage({
        fields: fields,
        rules: rules,
        parts: [equalizerSwitch, volume].concat(
            simple,
            bands,
            Object.keys(switches).map((name) => switches[name])
        ),
        request: () => ["device/setTitle"].concat($("#device_version").text() === "" ? [] : "device/setConfig"),
        save: () => saveDevice(),
    });

    function shown() {
        return Number($("#device_id").text());
    }

    function isShown(id) {
        return devices.isActive(id) && shown() === id;
    }

    // For what concerns the unit on show alone.
    function onShown(action) {
        return function (id) {
            if (isShown(id)) {
                action.apply(null, [].slice.call(arguments, 1));
            }
        };
    }

    function shownField(name) {
        return function (id, value) {
            if (isShown(id)) {
                form.show(id, {[name]: String(value)});
            }
        };
    }

    function shownSwitch(name) {
        return function (id, value) {
            if (isShown(id)) {
                switches[name].store(Number(value) === 1);
                showDependent();
            }
        };
    }

    function isOld() {
        return $(".v3").hasClass("hidden");
    }

    // Which controls can be used: those of an online unit, but what another switch rules out.
    function showDependent() {
        const isOnline = devices.has(shown()) && devices.get(shown()).status === 2;
        $("#device_form").find("input, select, button").prop("disabled", !isOnline);
        $("#device_form .always").prop("disabled", false);
        if (isOnline) {
            (switches.dhcp.value() ? blockNetwork : unblockNetwork)();
            (switches.multicastListen.value() ? blockAIN : unblockAIN)();
            $(".equalizer_bands input").prop("disabled", !equalizerSwitch.value());
        }
        $("#device_form button").filter((index, button) => answers.isAwaited(button)).prop("disabled", true);
    }

    const addresses = "#device_ip, #device_network_mask, #device_gateway";
    const inputs = "#device_multicast_ain0, #device_multicast_ain0_disabled, #device_multicast_ain1, #device_multicast_ain1_disabled";

    // While the operator has turned DHCP round, the addresses are those of the mode on show.
    let isRefilling = false;

    function address(name) {
        const show = shownField(name);
        return (id, value) => (isRefilling || !switches.dhcp.isTouched()) && show(id, value);
    }

    function changeMode() {
        form.forget(["ip", "mask", "gateway"]);
        showDependent();
        isRefilling = true;
        wrapper_AdminDevice_changeDeviceDHCPMode(shown(), switches.dhcp.value() ? 1 : 0);
        isRefilling = false;
    }

    function levels() {
        return (isOld() ? simple : bands).map((slider) => slider.value());
    }

    function changeZone(zone, id, isIncluded) {
        if (isShown(id)) {
            zones.settle(zone, isIncluded);
        }
    }

    function setStatus(id, status) {
        devices.set(id, {status: status});
        if (isShown(id)) {
            showDependent();
        }
    }

    page(Object.assign(devices.functions, zoneBoxFunctions(zones, zonePath), {
        wrapper_AdminDevice_loadList: () => wrapper.admin_loadDeviceList(),
        // The one on show and all others, for the dialog of replacing.
        devices_all: () => Array.from(devices.rows).map((row) => ({id: row[0], name: row[1].fields.name})),
        device_shown: () => ({id: shown(), name: devices.has(shown()) ? devices.get(shown()).name : ""}),
        wrapperInput_device_delete: function (id) {
            $("#deviceForReplace option").filter((index, option) => option.value === String(id)).remove();
            devices.remove(id);
        },
        wrapperInput_device_setId: function (id) {
            if (devices.has(id)) {
                devices.activate(id);
                $("#device_form").removeClass("hidden");
                $("#device_id").text(id);
                zones.begin();
                form.show(id, {});
            }
        },
        wrapperInput_device_setName: function (id, name) {
            devices.set(id, {name: name});
            if (isShown(id)) {
                form.show(id, {name: name});
            }
        },
        wrapperInput_device_linkOff: (id) => setStatus(id, 0),
        wrapperInput_device_linkIncoming: (id) => setStatus(id, 1),
        wrapperInput_device_linkOn: (id) => setStatus(id, 2),
        wrapperInput_device_setVersion: onShown((main, pss, lnCtrl, version) => {
            const isNew = main > oldLast;
            $("#device_version").text(version + (isNew && version !== "" ? " (П - " + pss + ", К - " + lnCtrl + ")" : ""));
            $(".v3").toggleClass("hidden", !isNew);
            $(".v2").toggleClass("hidden", isNew);
        }),
        wrapperInput_device_setVolume: onShown((value) => volume.store(Number(value))),
        wrapperInput_device_setEqualizerEnabled: onShown((value) => {
            equalizerSwitch.store(Number(value) === 1);
            showDependent();
        }),
        wrapperInput_device_setEqualizer: onShown((band, value) => {
            if (band < simple.length) {
                simple[band].store(value);
            }
            bands[band].store(value);
        }),
        wrapperInput_device_setMac: onShown((mac) => $("#device_mac").text(mac)),
        wrapperInput_device_setDHCP: onShown((status, isConnected) => {
            switches.dhcp.store(Number(status) === 1);
            setStatus(shown(), isConnected);
        }),
        wrapperInput_device_setIp: address("ip"),
        wrapperInput_device_setNetworkMask: address("mask"),
        wrapperInput_device_setGateway: address("gateway"),
        wrapperInput_device_setMulticastIp: shownField("multicastIp"),
        wrapperInput_device_setCommandPort: shownField("commandPort"),
        wrapperInput_device_setAllowedCommandIp: shownField("allowedCommandIp"),
        wrapperInput_device_setTavrinRelayControl: shownSwitch("tavrinRelayControl"),
        wrapperInput_device_setLineJoined: shownSwitch("lineJoined"),
        wrapperInput_device_setTavrinAddress: shownField("tavrinAddress"),
        wrapperInput_device_setTavrinRelayEvent: shownSwitch("tavrinRelayEvent"),
        wrapperInput_device_setTavrinErrorIndication: shownSwitch("tavrinErrorIndication"),
        wrapperInput_device_setMulticastListen: shownSwitch("multicastListen"),
        wrapperInput_device_setMulticastAIN0: shownSwitch("multicastAIN0"),
        wrapperInput_device_setMulticastAIN1: shownSwitch("multicastAIN1"),
        wrapperInput_device_setPriorityAIN0: shownField("priorityAIN0"),
        wrapperInput_device_setPriorityAIN1: shownField("priorityAIN1"),
        wrapperInput_device_setPriorityScenario: shownField("priorityScenario"),
        wrapperInput_device_setPriorityListen: shownField("priorityListen"),
        wrapperInput_device_setPriorityStream: shownField("priorityStream"),
        wrapperInput_device_hideDebugInfo: () => $("#debug_row").addClass("hidden"),
        wrapperInput_zone_includeDevice: (zone, id) => changeZone(zone, id, true),
        wrapperInput_zone_excludeDevice: (zone, id) => changeZone(zone, id, false),
        wrapperInput_roleGlobal_deviceZoneManagement: function (value) {
            zones.setEnabled(value === 1);
            $(".deleteButton").toggle(value === 1);
        },
        // The box asks by itself, without the page's "Сохранить".
        deviceInfo_changeZone: function (id) {
            (zones.list.get(id).ticked ? wrapperIncludeDeviceToZone : wrapperExcludeDeviceFromZone)(id, shown());
        },
        wrapperIncludeDeviceToZone: (id, deviceId) => wrapper.deviceInfo_includeToZone(deviceId, id),
        wrapperExcludeDeviceFromZone: (id, deviceId) => wrapper.deviceInfo_excludeFromZone(deviceId, id),
        blockNetwork: () => $(addresses).prop("disabled", true),
        unblockNetwork: () => $(addresses).prop("disabled", false),
        blockAIN: function () {
            setSwitch("#device_multicast_ain0", "#device_multicast_ain0_disabled", false);
            setSwitch("#device_multicast_ain1", "#device_multicast_ain1_disabled", false);
            $(inputs).prop("disabled", true);
        },
        unblockAIN: () => $(inputs).prop("disabled", false),
        resetEqualizer: () => bands.forEach((band) => band.move(0)),
        // Answers false where nothing could be sent.
        saveDevice: function () {
            const name = $("#device_name").val();
            const isRight = $("#device_id").text() !== "" && markField("#device_name", nameError(name));
            return isRight && (wrapper_AdminDevice_setName(shown(), name), true);
        },
        // The name has been taken: everything else follows.
        saveDeviceConfig: function () {
            wrapper_AdminDevice_setVolume(shown(), volume.value());
            wrapper_AdminDevice_setEqualizer(shown(), equalizerSwitch.value(), levels());
            if ($("#device_version").text() !== "") {
                wrapper_AdminDevice_editSettings(
                    shown(),
                    switches.dhcp.value(),
                    form.value("ip"),
                    form.value("mask"),
                    form.value("gateway") || "0.0.0.0",
                    form.value("multicastIp"),
                    form.value("commandPort"),
                    form.value("allowedCommandIp"),
                    switches.tavrinRelayControl.value(),
                    switches.lineJoined.value(),
                    form.value("tavrinAddress"),
                    switches.tavrinRelayEvent.value(),
                    switches.tavrinErrorIndication.value(),
                    switches.multicastListen.value(),
                    switches.multicastAIN0.value(),
                    switches.multicastAIN1.value(),
                    form.value("priorityAIN0"),
                    form.value("priorityAIN1"),
                    form.value("priorityScenario"),
                    form.value("priorityListen"),
                    form.value("priorityStream")
                );
            }
        },
        wrapper_AdminDevice_editSettings: function (id) {
            const names = [
                "dhcp", "staticIp", "staticMask", "staticGateway", "multicastIp", "commandPort", "allowedCommandIp",
                "tavrinRelayControl", "lineJoined", "tavrinAddress", "tavrinRelayEvent", "tavrinErrorIndication",
                "multicastListen", "multicastAIN0", "multicastAIN1", "priorityAIN0", "priorityAIN1", "priorityScenario",
                "priorityListen", "priorityStream",
            ];
            const settings = {};
            names.forEach((name, index) => (settings[name] = arguments[index + 1]));
            wrapper.admin_editDeviceSettings(id, settings);
        },
    }));

    limitName("#device_name");
    rows.filter((row) => row.select).forEach((row) => buildSelect("#" + row.select));
    $("#device_dhcp, #device_dhcp_disabled").on("change", changeMode);
    $("#device_multicast_listen, #device_multicast_listen_disabled").on("change", showDependent);
    $("#device_equalizer_is_enabled, #device_equalizer_is_enabled_disabled").on("change", showDependent);
    $("#reset_equalizer").on("click", () => resetEqualizer());
    $("#find_devices").on("click", function () {
        answers.wait("device/findLostDevices", this);
        wrapper_AdminDevice_findLost();
    });
    $("#measure_line").on("click", function () {
        answers.wait("device/measureLine", this);
        wrapper_AdminDevice_measureLine(shown());
    });
    $("#reboot").on("click", function () {
        answers.wait("device/reboot", this);
        wrapper_AdminDevice_reboot(shown());
    });
    $("#replace").on("click", () => modalAdminReplaceDevice(shown(), devices.get(shown()).name));
    $("#delete").on("click", () => modalAdminDeleteDevice(shown(), devices.get(shown()).name));
    $("#debug").on("click", () => modalAdminDeviceDebugInfo());
    $("#device_form").addClass("hidden");
    wrapper_AdminZone_loadList(true);
    wrapper_AdminDevice_loadList();
})();
