// The page of the running playbacks: their cards at the side, the tracks and the units of the one
// that is active, and the transport buttons.

(function () {
    let currentPlaylist = 0; // the folder of the active playback

    function zoneSelectActive(zoneId) {
        if (activePlayback() === -1) {
            showOnlyCards(null, "Нет устройств");
        } else {
            showCardsOfZone(".playback_" + activePlayback(), zoneId);
        }
    }

    function activateCard(id) {
        $("#playbackList .playback").removeClass("playback_active");
        $("#playback_" + id).addClass("playback_active");
        $("#zone_select").val(0);
        refreshZoneSelect();
        zoneSelectActive(0);
        updateTransport();
    }

    function showPlaybackIcon(id, isPaused, playbackType) {
        const icon = isPaused ? "fa-pause" : (getPlaybackIcon(playbackType) || "").replace("btn-default", "");
        $("#playback_icon_" + id)
            .attr({class: "fa playback_icon", title: isPaused ? "Пауза" : "Воспроизведение"})
            .addClass(icon);
        $("#playback_" + id).toggleClass("paused", isPaused);
    }

    function playbackCard(id, playlistTitle, trackTitle) {
        return $("<div class='playback'>")
            .attr("id", "playback_" + id)
            .data("id", id)
            .append(
                $("<div class='playback_head'>").append(
                    $("<i>").attr("id", "playback_icon_" + id),
                    $("<span class='playback_title ellipsis'>")
                        .attr({id: "playback_title_" + id, title: playlistTitle})
                        .text(playlistTitle)
                ),
                $("<div class='playback_name ellipsis'>").attr({id: "playback_name_" + id, title: trackTitle}).text(trackTitle),
                $("<div class='progress'>").append($("<div class='progress-bar'>").attr("id", "playback_timeshift_" + id)),
                $("<div class='playback_position digits quiet'>").attr("id", "playback_position_" + id)
            )
            .on("click", () => selectPlayback(id));
    }

    function enableZones() {
        $("#zone_select").prop("disabled", $("#playbackList .playback").length === 0);
    }

    const cards = unitCards({
        wrapperInput_device_add: function (id, name, status, volume, playback, zonePermission, playbackClass) {
            const icons = $("<div class='tile_icons'>").append(playingIcon(id, playback), taskIcon(id), volumeBar(id));
            addPlaybackCard(id, name, status, playbackClass, icons, $.noop);
            cards.wrapperInput_device_setVolume(id, volume);
        },
    });

    page(
        $.extend(cards, zoneOptions(), folderRows(() => currentPlaylist === radioCategory), {
            selectPlayback: function (id) {
                if ($("#playback_" + id).length) {
                    activateCard(id);
                    wrapperLoadPlayback(id);
                }
            },
            playback_selectDevice: function (id) {
                activateCard(id);
            },
            playback_cleanPlaylist: function () {
                $("#tracks_tbody").empty();
            },
            playback_selectPlaylist: function (id) {
                currentPlaylist = id;
                $("#playbackList .playback_active").data("playlist", id);
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

            wrapperInput_playback_add: function (id, type, playlistTitle, trackTitle, volume, timeshift, duration) {
                if ($("#playback_" + id).length || $("#playbackList").length === 0) {
                    return;
                }
                const isFirst = $("#playbackList .playback").length === 0;
                playbackCard(id, playlistTitle, trackTitle).appendTo("#playbackList");
                showPlaybackIcon(id, type === 0, type);
                wrapperInput_playback_setTimeshift(id, timeshift, duration);
                enableZones();
                if (isFirst) {
                    selectPlayback(id);
                }
            },
            wrapperInput_playback_setTimeshift: function (id, timeshift, duration) {
                const isLive = duration < 0;
                const share = isLive ? 100 : duration > 0 ? Math.min(100, (100 * timeshift) / duration) : 0;
                $("#playback_timeshift_" + id)
                    .toggleClass("progress-bar-info progress-bar-striped active", isLive)
                    .toggleClass("progress-bar-success", !isLive)
                    .css("width", share + "%");
                $("#playback_position_" + id).text(
                    isLive ? "Прямой эфир" : duration > 0 ? positionText(Math.min(timeshift, duration)) + " / " + positionText(duration) : "--"
                );
            },
            wrapperInput_playback_setCurrentTrack: function (id, trackId, title) {
                $("#playback_name_" + id).text(title).attr("title", title);
                if (id === activePlayback()) {
                    playlist_selectTrack(trackId);
                }
            },
            wrapperInput_playback_setPlaying: function (id, status, type) {
                showPlaybackIcon(id, status === 0, type);
                updateTransport();
            },
            // When the active one ends another becomes active; the end of another one leaves its tracks.
            wrapperInput_playback_stop: function (id) {
                const wasActive = id === activePlayback();
                $("#playback_" + id).remove();
                const next = $("#playbackList .playback").first();
                if (wasActive) {
                    playback_cleanPlaylist();
                    showOnlyCards(null, "Нет устройств");
                }
                if (wasActive && next.length) {
                    selectPlayback(next.data("id"));
                } else if ($("#tracks_tbody").is(":empty") && activePlayback() !== -1) {
                    wrapperLoadPlayback(activePlayback());
                }
                enableZones();
                updateTransport();
            },
            wrapperInput_playback_addItem: function (id, parentId, title, type, duration) {
                if (currentPlaylist === parentId && type === 0 && activePlayback() !== -1) {
                    addItemRow(id, title, type, rowDurationText(duration, parentId === radioCategory));
                }
            },
            wrapperInput_playback_setPlaylistName: function (id, title) {
                $("#playbackList .playback").each(function () {
                    if ($(this).data("playlist") === id) {
                        $("#playback_title_" + $(this).data("id")).text(title).attr("title", title);
                    }
                });
            },
            // Fills the page as soon as both its body and its side menu are there.
            loadPlaybackPage: function () {
                if ($("#playbackList").length === 0 || $("#playback_page").length === 0) {
                    return;
                }
                const active = activePlayback();
                showOnlyCards(null, "Нет устройств");
                wrapperLoadSelectKelpaList();
                wrapperLoadPlaybackZoneList();
                wrapperLoadPlaybackList();
                enableZones();
                selectPlayback(playbackForLoad !== 0 ? playbackForLoad : active);
                playbackForLoad = 0;
                updateTransport();
            },
        })
    );

    $("#playback_page").append(
        titledPanel("Фрагменты", $("<div class='panel_scroll'>").append(itemTable("Нет фрагментов"))),
        devicePanel(zoneSelect(zoneSelectActive))
    );
    $("#playlistTable").on("dblclick", ".track", function () {
        changeTrack($(this).data("id"));
    });
    dressZoneSelect(true);
    loadPlaybackPage();
})();
