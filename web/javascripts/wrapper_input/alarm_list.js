// The page of the stored alarm announcements: the folder of alarms, and no other category.

function wrapperInput_playback_deletePlaylist(id) {
    if (id === alarmCategory) {
        leaveAlarmPage();
        return;
    }
    if (id === currentPlaylist) {
        playback_loadPlaylist(alarmCategory);
    }
    $(itemSelector(id, true)).remove();
}

function leaveAlarmPage() {
    if ($("#alarm_page").length) {
        $("#alarm_page").remove();
        leaveForHomePage();
    }
}
