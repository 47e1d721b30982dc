// The running playbacks: their cards at the side of the page that steers them.

(function () {
    function paintTitle(parts, item) {
        parts.title.textContent = item.title;
        parts.title.title = item.title;
    }

    function paintProgress(parts, item) {
        const isLive = item.duration < 0;
        const seconds = Math.max(0, Math.min(item.timeshift, item.duration));
        parts.timeshift.className = "progress-bar " + (isLive ? "progress-bar-info progress-bar-striped active" : "progress-bar-success");
        parts.timeshift.style.width = (isLive ? 100 : item.duration > 0 ? (100 * seconds) / item.duration : 0) + "%";
        const text = item.duration > 0 ? positionText(seconds) + " / " + positionText(item.duration) : "--";
        parts.position.textContent = isLive ? "Прямой эфир" : text;
    }

    function paintKind(parts, item) {
        const icon = item.paused ? "fa-pause" : (getPlaybackIcon(item.kind) || "").replace("btn-default", "");
        parts.icon.className = "fa playback_icon " + icon;
        parts.icon.title = item.paused ? "Пауза" : "Воспроизведение";
        parts.root.classList.toggle("paused", item.paused);
    }

    const playbacks = itemList({
        list: "#playbackList",
        scroller: "#side_menu",
        region: "#side_menu",
        template:
            "<div class='playback'><div class='playback_head'><i data-part='icon'></i>" +
            "<span class='playback_title ellipsis' data-part='title'></span></div>" +
            "<div class='playback_name ellipsis' data-part='name'></div>" +
            "<div class='progress'><div data-part='timeshift'></div></div>" +
            "<div class='playback_position digits quiet' data-part='position'></div></div>",
        prefix: "playback_",
        paint: {
            title: [paintTitle],
            name: [paintName],
            kind: [paintKind],
            paused: [paintKind],
            duration: [paintProgress],
            timeshift: [paintProgress],
            active: [(parts, item) => parts.root.classList.toggle("playback_active", item.active)],
        },
        actions: {open: (id) => callPage("selectPlayback", id)},
        changed: () => $("#side_menu .empty_list").toggleClass("hidden", playbacks.counts.all > 0),
    });

    function activeId() {
        return playbacks.active ? playbacks.active.id : -1;
    }

    // Without a type the playback is paused.
    function setKind(id, isPaused, kind) {
        playbacks.set(id, "kind", kind);
        playbacks.set(id, "paused", isPaused);
    }

    page({
        // The one that is active, -1 if there is none.
        menu_activePlayback: activeId,
        menu_isPlaybackPaused: () => playbacks.active !== null && playbacks.active.paused,
        menu_hasPlayback: (id) => playbacks.has(id),
        menu_countPlaybacks: () => playbacks.counts.all,
        menu_activatePlayback: function (id) {
            playbacks.activate(id);
            playbacks.reveal(id);
        },
        menu_setPlaylist: (id) => playbacks.set(activeId(), "playlist", id),

        wrapperInput_playback_add: function (id, type, playlistTitle, trackTitle, volume, timeshift, duration) {
            if (playbacks.has(id)) {
                return;
            }
            playbacks.add(id, {
                title: playlistTitle,
                name: trackTitle,
                kind: type,
                paused: type === 0,
                timeshift: timeshift,
                duration: duration,
                playlist: 0,
            });
            if (playbacks.counts.all === 1) {
                callPage("playback_countChanged");
                callPage("selectPlayback", id);
            }
        },
        wrapperInput_playback_setTimeshift: function (id, timeshift, duration) {
            playbacks.set(id, "duration", duration);
            playbacks.set(id, "timeshift", timeshift);
        },
        wrapperInput_playback_setCurrentTrack: function (id, trackId, title) {
            playbacks.set(id, "name", title);
            if (id === activeId()) {
                callPage("playlist_selectTrack", trackId);
            }
        },
        wrapperInput_playback_setPlaying: function (id, status, type) {
            setKind(id, status === 0, type);
            updateTransport();
        },
        wrapperInput_playback_setPlaylistName: function (id, title) {
            playbacks
                .everyItem()
                .filter((item) => item.playlist === id)
                .forEach((item) => playbacks.set(item.id, "title", title));
        },
        // When the active one ends another becomes active. It may have ended, too, where nobody has
        // told of it yet: then its own end leads on from it.
        wrapperInput_playback_stop: function (id) {
            const wasActive = id === activeId();
            playbacks.remove(id);
            callPage("playback_stopped", wasActive);
            if (wasActive && playbacks.first()) {
                callPage("selectPlayback", playbacks.first().id);
            }
            callPage("playback_countChanged");
        },
    });
    callPage("loadPlaybackPage"); // the body fills this list; it may have come first
})();
