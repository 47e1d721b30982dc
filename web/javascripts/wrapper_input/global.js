// What native code tells every session page.

function wrapperInput_global_setTime(time, timezone) {
    currentTime = moment.utc(time).utcOffset(timezone * 60).local();
    console.log("wrapperInput_global_setTime " + currentTime.format());
    startTime();
}

function wrapperInput_userGlobal_edit(title) {
    $("#global_user_name")
        .attr("title", title)
        .empty()
        .append($("<i class='fa fa-user-circle-o'>"), document.createTextNode(" " + title));
    $("#global_user_name_sub").text(title);
}

function wrapperInput_roleGlobal_editMicrophone(id, name, value) {
    $("#microphone").toggle(value === 1);
}

function wrapperInput_roleGlobal_editMicrophoneAlarm(id, name, value) {
    $("#microphone_alarm").toggle(value === 1);
}

function wrapperInput_playbackGlobal_editAlarm(value) {
    $("#translation").toggle(value === 1);
}

function wrapperInput_roleGlobal_enable() {
    $("#menu_admin").show();
}

function wrapperInput_roleGlobal_disable() {
    $("#menu_admin").hide();
}

function wrapperInput_playback_selectPlayback(id) {
    playbackForLoad = id;
}

function wrapperInput_serverGlobal_setServerVersion(version) {
    $("#info_server_version").text(version);
}

function wrapperInput_serverGlobal_setClientVersion(version) {
    $("#info_client_version").text(version);
}

function modalLoadingHide() {
    if ($("#loadingModal").hasClass("in")) {
        $("#loadingModal").modal("hide").hide();
    }
}
