// The page of the running playbacks: their cards at the side, the tracks and the units of the one
// that is active, and the transport buttons.

function wrapperInput_device_add(id, name, status, volume, playback, zonePermission, playbackClass) {
    var icons = $("<div class='tile_icons'>").append(playingIcon(id, playback), taskIcon(id), volumeBar(id));
    addPlaybackCard(id, name, status, playbackClass, icons, $.noop);
    wrapperInput_device_setVolume(id, volume);
}

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

function selectPlayback(id) {
    if ($("#playback_" + id).length) {
        activateCard(id);
        wrapperLoadPlayback(id);
    }
}

function playback_selectDevice(id) {
    activateCard(id);
}

function playback_cleanPlaylist() {
    $("#tracks_tbody").empty();
}

function playback_selectPlaylist(id) {
    currentPlaylist = id;
    $("#playbackList .playback_active").data("playlist", id);
}

function playlist_selectTrack(id) {
    currentTrack = id;
    markRow(id, "record_current");
}

function playback_setVolume(volume) {
    playbackVolume = volume;
    showVolume();
}

// The cards.

function showPlaybackIcon(id, isPaused, playbackType) {
    var icon = isPaused ? "fa-pause" : (getPlaybackIcon(playbackType) || "").replace("btn-default", "");
    $("#playback_icon_" + id)
        .attr({class: "fa playback_icon", title: isPaused ? "Пауза" : "Воспроизведение"})
        .addClass(icon);
    $("#playback_" + id).toggleClass("paused", isPaused);
}

function wrapperInput_playback_add(id, type, playlistTitle, trackTitle, volume, timeshift, duration) {
    if ($("#playback_" + id).length || $("#playbackList").length === 0) {
        return;
    }
    var isFirst = $("#playbackList .playback").length === 0;
    $("<div class='playback'>")
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
        .on("click", function () {
            selectPlayback(id);
        })
        .appendTo("#playbackList");
    showPlaybackIcon(id, type === 0, type);
    wrapperInput_playback_setTimeshift(id, timeshift, duration);
    $("#zone_select").prop("disabled", false);
    if (isFirst) {
        selectPlayback(id);
    }
}

function wrapperInput_playback_setTimeshift(id, timeshift, duration) {
    var isLive = duration < 0;
    var share = isLive ? 100 : duration > 0 ? Math.min(100, (100 * timeshift) / duration) : 0;
    $("#playback_timeshift_" + id)
        .toggleClass("progress-bar-info progress-bar-striped active", isLive)
        .toggleClass("progress-bar-success", !isLive)
        .css("width", share + "%");
    $("#playback_position_" + id).text(
        isLive ? "Прямой эфир" : duration > 0 ? positionText(Math.min(timeshift, duration)) + " / " + positionText(duration) : "--"
    );
}

function wrapperInput_playback_setCurrentTrack(id, trackId, title) {
    $("#playback_name_" + id).text(title).attr("title", title);
    if (id === activePlayback()) {
        playlist_selectTrack(trackId);
    }
}

function wrapperInput_playback_setPlaying(id, status, type) {
    showPlaybackIcon(id, status === 0, type);
    updateTransport();
}

// Another playback's end leaves the tracks of the active one.
function wrapperInput_playback_stop(id) {
    var wasActive = id === activePlayback();
    $("#playback_" + id).remove();
    if (wasActive) {
        playback_cleanPlaylist();
        showOnlyCards(null, "Нет устройств");
    } else if ($("#tracks_tbody").is(":empty") && activePlayback() !== -1) {
        wrapperLoadPlayback(activePlayback());
    }
    $("#zone_select").prop("disabled", $("#playbackList .playback").length === 0);
    updateTransport();
}

// The tracks of the active playback.

function wrapperInput_playback_addItem(id, parentId, title, type, duration) {
    if (currentPlaylist === parentId && type === 0 && activePlayback() !== -1) {
        addItemRow(id, title, type, rowDurationText(duration, parentId === radioCategory));
    }
}

// A folder's tracks go one by one; the table has no rows of folders.
function wrapperInput_playback_deletePlaylist(id) {}

function wrapperInput_playback_setPlaylistName(id, title) {
    $("#playbackList .playback").each(function () {
        if ($(this).data("playlist") === id) {
            $("#playback_title_" + $(this).data("id")).text(title).attr("title", title);
        }
    });
}

function changeTrack(trackId) {
    wrapperPlayNextById(activePlayback(), trackId);
}

function buildPlaybackList() {
    $("#playback_page").append(
        titledPanel("Фрагменты", $("<div class='panel_scroll'>").append(itemTable("Нет фрагментов"))),
        devicePanel(zoneSelect(zoneSelectActive))
    );
    $("#playlistTable").on("dblclick", ".track", function () {
        changeTrack($(this).data("id"));
    });
    dressZoneSelect(true);
}

// Fills the page as soon as both its body and its side menu are there.
function loadPlaybackPage() {
    if ($("#playbackList").length === 0 || $("#playback_page").length === 0) {
        return;
    }
    var active = activePlayback();
    showOnlyCards(null, "Нет устройств");
    wrapperLoadSelectKelpaList();
    wrapperLoadPlaybackZoneList();
    wrapperLoadPlaybackList();
    $("#zone_select").prop("disabled", $("#playbackList .playback").length === 0);
    selectPlayback(playbackForLoad !== 0 ? playbackForLoad : active);
    playbackForLoad = 0;
    updateTransport();
}
