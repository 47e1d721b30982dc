// The page of the running playbacks: the tracks and the units of the one that is active at the side,
// and the transport buttons.

(function () {
    let currentPlaylist = 0; // the folder of the active playback

    // The units of the active playback, of one zone or of all (0).
    function showUnits(zone) {
        const active = activePlayback();
        showCards((item) => active !== -1 && item.playing === active, zone);
    }

    function activate(id) {
        menu_activatePlayback(id);
        if (chosenZone() !== 0) {
            $("#zone_select").val(0);
            refreshZoneSelect();
        }
        showUnits(0);
        updateTransport();
    }

    page(
        $.extend(
            unitCards({}, {icons: ["playing", "task", "volume"], open: undefined}),
            zoneOptions(),
            folderRows(() => currentPlaylist === radioCategory),
            {
                selectPlayback: function (id) {
                    if (callPage("menu_hasPlayback", id)) {
                        activate(id);
                        wrapperLoadPlayback(id);
                    }
                },
                playback_selectDevice: function (id) {
                    if (callPage("menu_hasPlayback", id)) {
                        activate(id);
                    }
                },
                playback_cleanPlaylist: function () {
                    $("#tracks_tbody").empty();
                },
                playback_selectPlaylist: function (id) {
                    currentPlaylist = id;
                    callPage("menu_setPlaylist", id);
                },
                playlist_selectTrack: function (id) {
                    markRow(id, "record_current");
                },
                playback_setVolume: function (volume) {
                    $("#playback_page").data("volume", volume);
                    showVolume();
                },
                changeTrack: function (trackId) {
                    wrapperPlayNextById(activePlayback(), trackId);
                },
                // A playback has ended: the end of another one than the active leaves its tracks.
                playback_stopped: function (wasActive) {
                    if (wasActive) {
                        playback_cleanPlaylist();
                        showUnits(0);
                    } else if ($("#tracks_tbody").is(":empty") && activePlayback() !== -1) {
                        wrapperLoadPlayback(activePlayback());
                    }
                },
                playback_countChanged: function () {
                    $("#zone_select").prop("disabled", !callPage("menu_countPlaybacks"));
                    updateTransport();
                },
                wrapperInput_playback_addItem: function (id, parentId, title, type, duration) {
                    if (currentPlaylist === parentId && type === 0 && activePlayback() !== -1) {
                        addItemRow(id, title, type, rowDurationText(duration, parentId === radioCategory));
                    }
                },
                // Fills the page as soon as both its body and its side menu are there.
                loadPlaybackPage: function () {
                    if (typeof menu_activePlayback !== "function") {
                        return;
                    }
                    const active = activePlayback();
                    showUnits(0);
                    wrapperLoadSelectKelpaList();
                    wrapperLoadPlaybackZoneList();
                    wrapperLoadPlaybackList();
                    playback_countChanged();
                    selectPlayback(playbackForLoad !== 0 ? playbackForLoad : active);
                    playbackForLoad = 0;
                },
            }
        )
    );

    $("#playback_page").append(
        titledPanel("Фрагменты", $("<div class='panel_scroll'>").append(itemTable("Нет фрагментов"))),
        devicePanel(zoneSelect(showUnits))
    );
    $("#playlistTable").on("dblclick", ".track", function () {
        changeTrack($(this).data("id"));
    });
    dressZoneSelect(true);
    loadPlaybackPage();
})();
