// The page of the stored alarm announcements: the folder of alarms, and no other category.

(function () {
    // Without its folder the page has nothing to show; told more than once, it is left once.
    let isLeaving = false;

    sourcePage({
        category: alarmCategory,
        beside: selectionButtons(),
        replayed: "type_track",
        action: "action_stop",
        categoryGone: function () {
            if (!isLeaving) {
                isLeaving = true;
                leaveForHomePage();
            }
        },
    });
    wrapperLoadSelectKelpaList();
    playback_loadPlaylist(alarmCategory);
})();
