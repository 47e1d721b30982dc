// The page of what the client logs: a switch each, in two columns.

(function () {
    const rows = [
        ["connect", "Подключение пользователя", wrapper_settings_saveLogConnect],
        ["access_error", "Ошибки доступа", wrapper_settings_saveLogAccessError],
        ["client_settings", "Настройка клиента", wrapper_settings_saveLogClientSettings],
        ["playback", "Управление вещанием", wrapper_settings_saveLogPlayback],
        ["microphone_broadcasting", "Вещание с микрофона", wrapper_settings_saveLogMicrophoneBroadcasting],
        ["alarm_broadcasting", "Тревожное вещание", wrapper_settings_saveLogAlarmBroadcasting],
        ["preset_start", "Запуск предустановки", wrapper_settings_saveLogPresetStart],
        ["device_control", "Управление устройствами", wrapper_settings_saveLogDeviceControl],
        ["memory_play", "Запуск фрагментов или сообщений", wrapper_settings_saveLogMemoryPlay],
        ["user_settings", "Настройки пользователя", wrapper_settings_saveLogUserSettings],
        ["role_settings", "Настройка ролей", wrapper_settings_saveLogRoleSettings],
        ["zone_settings", "Настройка зон", wrapper_settings_saveLogZoneSettings],
        ["device_settings", "Настройка устройств", wrapper_settings_saveLogDeviceSettings],
        ["playlist_settings", "Настройка плейлистов", wrapper_settings_saveLogPlaylistSettings],
        ["preset_settings", "Настройка предустановок", wrapper_settings_saveLogPresetSettings],
        ["task_settings", "Настройка заданий", wrapper_settings_saveLogTaskSettings],
        ["server_settings", "Настройка сервера", wrapper_settings_saveLogServerSettings],
        ["server_log_settings", "Настройка логирования сервер", wrapper_settings_saveLogServerLogSettings],
    ];

    function show(key, value) {
        setSwitch("#settings_log_" + key, "#settings_log_" + key + "_disabled", Boolean(value));
    }

    rows.forEach(function (row, index) {
        const line = $("<div class='panel_row'>").append($("<span class='panel_label wide_label'>").text(row[1]), "<span class='panel_value'>");
        line.appendTo(index < rows.length / 2 ? "#log_switches_first" : "#log_switches_second");
        buildSwitch(line.find(".panel_value"), "settings_log_" + row[0], "settings_log_" + row[0], "settings_log_" + row[0] + "_disabled");
    });

    page({
        // In the order of the rows: a switch filters the lines of those behind it.
        settings_saveLogSwitches: () => rows.forEach((row) => row[2]($("#settings_log_" + row[0]).is(":checked"))),
        wrapperInput_settings_log_connect: (value) => show("connect", value),
        wrapperInput_settings_log_access_error: (value) => show("access_error", value),
        wrapperInput_settings_log_client_settings: (value) => show("client_settings", value),
        wrapperInput_settings_log_playback: (value) => show("playback", value),
        wrapperInput_settings_log_microphone_broadcasting: (value) => show("microphone_broadcasting", value),
        wrapperInput_settings_log_alarm_broadcasting: (value) => show("alarm_broadcasting", value),
        wrapperInput_settings_log_preset_start: (value) => show("preset_start", value),
        wrapperInput_settings_log_device_control: (value) => show("device_control", value),
        wrapperInput_settings_log_memory_play: (value) => show("memory_play", value),
        wrapperInput_settings_log_user_settings: (value) => show("user_settings", value),
        wrapperInput_settings_log_role_settings: (value) => show("role_settings", value),
        wrapperInput_settings_log_zone_settings: (value) => show("zone_settings", value),
        wrapperInput_settings_log_device_settings: (value) => show("device_settings", value),
        wrapperInput_settings_log_playlist_settings: (value) => show("playlist_settings", value),
        wrapperInput_settings_log_preset_settings: (value) => show("preset_settings", value),
        wrapperInput_settings_log_task_settings: (value) => show("task_settings", value),
        wrapperInput_settings_log_server_settings: (value) => show("server_settings", value),
        wrapperInput_settings_log_server_log_settings: (value) => show("server_log_settings", value),
    });

    wrapper.settings_log_init();
})();
