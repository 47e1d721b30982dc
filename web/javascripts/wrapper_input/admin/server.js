// The page of the server: versions, the Internet, and its own settings.

(function () {
    const record = 0; // the form has one record alone
    let running = "";
    let available = "";

    const form = formPage({
        fields: {interface: "#network_interface", multicast: "#multicast_address", port: "#command_port"},
        rules: {
            multicast: (text) => (text === "" ? "" : multicastError(text)),
            port: (text) => (text === "" ? "" : portError(text)),
        },
        request: ["server/setNetworkInterface", "server/setMulticastIp", "server/setCommandPort"],
        save: () => saveServer(),
    });

    function option(id) {
        return $("#network_interface").children("#interface_" + id);
    }

    function interfaceText(ip, description) {
        return ip + " / " + description;
    }

    function showAvailable() {
        const isNewer = available !== "" && available !== running;
        $("#available_server_version").text(available);
        $("#available_version_row").toggleClass("hidden", !isNewer);
    }

    page({
        wrapperInput_server_addInterface: function (id, ip, description, selected) {
            if (option(id).length === 0) {
                $("<option>").attr("id", "interface_" + id).val(ip).text(interfaceText(ip, description)).appendTo("#network_interface");
            }
            if (selected) {
                form.show(record, {interface: ip});
            } else {
                form.refresh("interface");
            }
        },
        wrapperInput_server_editInterface: (id, ip, description, selected) => option(id).val(ip).text(interfaceText(ip, description)),
        wrapperInput_server_deleteInterface: (id) => option(id).remove(),
        wrapperInput_server_selectInterface: (ip) => form.show(record, {interface: ip}),
        wrapperInput_server_editMulticastAddress: (address) => form.show(record, {multicast: address}),
        wrapperInput_server_editCommandPort: (port) => form.show(record, {port: String(port)}),
        wrapperInput_server_setServerVersion: function (version) {
            running = version;
            $("#current_server_version").text(version);
            showAvailable();
        },
        wrapperInput_server_setAvailableServerVersion: function (version) {
            available = version;
            showAvailable();
        },
        wrapperInput_server_setClientVersion: (version) => $("#current_client_version").text(version),
        wrapperInput_server_setInternetStatus: function (status) {
            $("#internet_status").text(Number(status) === 1 ? "Подключен" : "Отключен");
            setOneClass("#internet_status", ["state_online", "state_offline"], Number(status) === 1 ? "state_online" : "state_offline");
        },
        wrapper_AdminServer_SaveSettings: (ip, multicastIp, commandPort) => wrapper.admin_saveServerSettings(ip, multicastIp, parseInt(commandPort, 10)),
        // Answers false where nothing could be sent.
        saveServer: function () {
            const address = form.value("multicast");
            const port = form.value("port");
            if (address === "" || port === "") {
                return false;
            }
            wrapper_AdminServer_SaveSettings(form.value("interface"), address, port);
            return true;
        },
    });

    form.show(record, {interface: ""});
    buildSelect("#network_interface");
    $("#restart_server").on("click", () => modalAdminServerRebootShow());
    wrapper_AdminServer_LoadSettings();
    wrapper_AdminServer_LoadInfo();
})();
