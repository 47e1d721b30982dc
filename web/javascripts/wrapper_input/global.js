// What native code tells every session page.

page({
    wrapperInput_global_setTime: function (time, timezone) {
        currentTime = moment.utc(time).utcOffset(timezone * 60).local();
        console.log("wrapperInput_global_setTime " + currentTime.format());
        startTime();
    },
    wrapperInput_userGlobal_edit: function (title) {
        $("#global_user_name")
            .attr("title", title)
            .empty()
            .append($("<i class='fa fa-user-circle-o'>"), document.createTextNode(" " + title));
        $("#global_user_name_sub").text(title);
    },
    wrapperInput_roleGlobal_editMicrophone: function (id, name, value) {
        $("#microphone").toggle(value === 1);
    },
    wrapperInput_roleGlobal_editMicrophoneAlarm: function (id, name, value) {
        $("#microphone_alarm").toggle(value === 1);
    },
    wrapperInput_playbackGlobal_editAlarm: function (value) {
        $("#translation").toggle(value === 1);
    },
    wrapperInput_roleGlobal_enable: function () {
        $("#menu_admin").show();
    },
    wrapperInput_roleGlobal_disable: function () {
        $("#menu_admin").hide();
    },
    wrapperInput_playback_selectPlayback: function (id) {
        playbackForLoad = id;
    },
    wrapperInput_serverGlobal_setServerVersion: function (version) {
        $("#info_server_version").text(version);
    },
    wrapperInput_serverGlobal_setClientVersion: function (version) {
        $("#info_client_version").text(version);
    },
    modalLoadingHide: function () {
        if ($("#loadingModal").hasClass("in")) {
            $("#loadingModal").modal("hide").hide();
        }
    },
    // An alarm on air is told on every page.
    wrapperInput_global_setAlarmUnits: function (count) {
        $("#alarm_on_air").toggle(count > 0).attr("title", "Идет тревожное вещание, устройств: " + count);
        $("#alarm_on_air_text").text("Тревога: " + count);
    },
});
