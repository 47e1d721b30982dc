// The page of the library: a category, the folder on show, its folders and its tracks.

playlistId = 0; // the folder on show, and the target of every addition

(function () {
    const radio = 1;
    const categories = [
        [1, "Радио", "fa-podcast"],
        [2, "Плейлисты", "fa-play-circle-o"],
        [3, "Рекламные", "fa-bullhorn"],
        [4, "Служебные", "fa-exclamation-circle"],
        [6, "Тревожные сообщения", "fa-exclamation-triangle"],
        [7, "Гонг", "fa-bell-o"],
    ];

    categories.forEach((category) =>
        $("<div class='category_row' tabindex='0'>")
            .attr("id", "playback_type_" + category[0])
            .append($("<i class='fa'>").addClass(category[2]), document.createTextNode(category[1]))
            .on("click", () => selectPlaylist(category[0]))
            .appendTo("#categories")
    );

    function isRadio() {
        return $("#playback_type_" + radio).hasClass("playlist_active");
    }

    // Folders stand above tracks; each kind is a list of its own.
    function rowList(kind, icon) {
        function paintTitle(parts, item) {
            parts.name.id = kind + "_name_" + item.id;
            parts.duration.id = kind + "_duration_" + item.id;
            parts.name.textContent = item.title;
            parts.name.title = item.title;
            parts.root.classList.toggle("folder_up", item.isUp);
        }
        const rows = itemList({
            list: "#" + kind + "_rows",
            scroller: "#tracks_tbody",
            region: "#main",
            template:
                "<div class='library_row " + kind + "'><i class='fa " + icon + " row_icon'></i>" +
                "<span class='tick_title ellipsis' data-part='name'></span><span class='item_duration quiet digits' data-part='duration'></span>" +
                "<span class='library_buttons'><button type='button' class='row_button quiet_button' tabindex='-1' title='Изменить' data-action='edit'><i class='fa fa-pencil'></i></button>" +
                "<button type='button' class='row_button' tabindex='-1' title='Удалить' data-action='delete'><i class='fa fa-trash'></i></button></span></div>",
            prefix: kind + "_",
            paint: {
                title: [paintTitle],
                duration: [(parts, item) => (parts.duration.textContent = item.isUp ? "" : rowDurationText(item.duration, isRadio()))],
                active: [(parts, item) => parts.root.classList.toggle("record_active", item.active)],
            },
            actions: {
                open: (id) => opened(kind, id),
                edit: (id) => modalAdminEditItemShow(id, rows.get(id).title),
                delete: (id) => modalAdminDeleteItemShow(id, rows.get(id).title, kind === "track" ? 0 : 1),
            },
            changed: () => showEmpty(),
        });
        return rows;
    }

    let folders = null;
    let tracks = null;
    let saysEmpty = null;

    // Called for each row of what may be a very long list. The way up is no content, and the first row.
    function showEmpty() {
        const isEmpty = Boolean(folders && tracks) && tracks.counts.all === 0 && folders.counts.all <= 1 && (folders.counts.all === 0 || folders.first().isUp);
        if (isEmpty !== saysEmpty) {
            saysEmpty = isEmpty;
            $("#library_empty").toggleClass("hidden", !isEmpty);
        }
    }

    function opened(kind, id) {
        if (kind === "playlist") {
            wrapper_AdminPlayback_selectPlaylist(id);
        } else {
            tracks.activate(id);
        }
    }

    folders = rowList("playlist", "fa-folder-open-o");
    tracks = rowList("track", "fa-file-audio-o");
    showEmpty();

    page({
        wrapper_AdminPlayback_selectPlaylist: function (id) {
            playlistId = id;
            wrapperInput_playback_clearItems();
            wrapper.admin_loadPlaybackWithPlaylist(id);
        },
        selectPlaylist: function (id) {
            $(".category_row").removeClass("playlist_active");
            $("#playback_type_" + id).addClass("playlist_active");
            $("#duration_heading").toggleClass("hidden", id === radio);
            wrapper_AdminPlayback_selectPlaylist(id);
        },
        wrapperInput_playback_clearItems: function () {
            folders.clear();
            tracks.clear();
        },
        wrapperInput_playback_addItem: function (id, parentId, name, type, duration) {
            if (playlistId === parentId) {
                const isUp = type !== 0 && name === "..";
                (type === 0 ? tracks : folders).add(id, {title: name, duration: duration, isUp: isUp});
            }
        },
        wrapperInput_playback_setTrackName: (id, name) => tracks.set(id, "title", name),
        wrapperInput_playback_setTrackDuration: (id, duration) => tracks.set(id, "duration", duration),
        wrapperInput_playback_deleteTrack: (id) => tracks.remove(id),
        wrapperInput_playback_setPlaylistName: (id, name) => folders.has(id) && !folders.get(id).isUp && folders.set(id, "title", name),
        wrapperInput_playback_setPlaylistDuration: (id, duration) => folders.set(id, "duration", duration),
        // The folder on show may go, too: its category is there for good.
        wrapperInput_playback_deletePlaylist: function (id) {
            folders.remove(id);
            if (id === playlistId) {
                selectPlaylist(Number($(".playlist_active").attr("id").substr("playback_type_".length)));
            }
        },
    });

    $("#add_item").on("click", () => modalAdminAddItemShow());
    selectPlaylist(radio);
})();
