// The pages that start a playback: the folders of a category, the settings of the start, the units.
//   category  the one that opens
//   beside    what stands in the title of the panel of units
//   replayed, action  ids of the settings that are on at first
//   categoryGone  called when the category itself goes
//   own       what the page answers to in another way, or beyond the rest
function sourcePage(options) {
    let currentCategory = options.category;
    let currentPlaylist = 0; // the folder whose rows the page shows
    let currentTrack = 0; // the track picked for a start

    function pickTrack(id) {
        currentTrack = $(itemSelector(id, false)).length ? id : 0;
        markRow(currentTrack, "record_active");
    }

    // Starts what is picked, on the ticked units, with the settings of the page.
    function start(strategy) {
        answers.wait("playback/play", "#create");
        wrapperPlayPlaylistAndTrack(
            currentPlaylist,
            currentTrack,
            selectedDevices().join(),
            strategy,
            $("#type_track").prop("checked") ? "track" : "list",
            Math.max(1, Number($("#playback_repeat_count").val())),
            $("#action_stop").prop("checked") ? "stop" : "pause"
        );
    }

    function isRadio() {
        return currentCategory === radioCategory || currentPlaylist === radioCategory;
    }

    page(
        $.extend(
            unitCards(),
            folderRows(isRadio),
            {
                wrapperInput_playback_addItem: function (id, parentId, title, type, duration) {
                    if (currentPlaylist === parentId) {
                        addItemRow(id, title, type, rowDurationText(duration, isRadio()));
                        markRow(currentTrack, "record_active");
                    }
                },
                // The end of some playback empties the list of its tracks; this table shows a folder.
                wrapperInput_playback_clearItems: function () {
                    const track = currentTrack;
                    playback_loadPlaylist(currentPlaylist);
                    pickTrack(track);
                },
                wrapperInput_playback_deleteTrack: function (id) {
                    $(itemSelector(id, false)).remove();
                    if (id === currentTrack) {
                        currentTrack = 0;
                    }
                },
                // A folder that goes while it is open leaves the page at its category.
                wrapperInput_playback_deletePlaylist: function (id) {
                    if (id === currentCategory && options.categoryGone) {
                        options.categoryGone();
                    }
                    if (id === currentPlaylist && id !== currentCategory) {
                        playback_loadPlaylist(currentCategory);
                    }
                    $(itemSelector(id, true)).remove();
                },
                // Opens a folder; what was picked in another one is picked no longer.
                playback_loadPlaylist: function (id) {
                    const rows = $("#playlistTable tbody");
                    const hadFocus = $.contains(rows[0], document.activeElement);
                    currentPlaylist = id;
                    currentTrack = 0;
                    rows.empty();
                    wrapper.playback_loadPlaybackWithPlaylist(id);
                    if (hadFocus) {
                        keyboard.focus(rows.children(":first"));
                    }
                },
                // Opens one of the categories of the side menu.
                selectPlaylist: function (id) {
                    currentCategory = id;
                    markCategory(id);
                    $("#playlistTable").toggleClass("without_duration", id === radioCategory);
                    playback_loadPlaylist(id);
                },
                shownCategory: () => currentCategory,
                // The button "Начать".
                createPlayback: function () {
                    if (currentPlaylist === 0 || currentTrack === 0) {
                        modalSelectingAudioSourceShow();
                    } else if (selectedDevices().length === 0) {
                        modalSelectingKelpasShow();
                    } else {
                        start("none");
                    }
                },
                modalOverlapAccept: () => start("overlap"),
                modalOverlapPartial: () => start("partial"),
            },
            options.own
        )
    );

    $("#source_page").append(
        $("<div class='page_stack'>").append(
            titledPanel("Источник", $("<div class='panel_scroll'>").append(itemTable("Здесь ничего нет"))).addClass("stack_grow"),
            replaySettings(options.replayed, options.action)
        ),
        devicePanel(options.beside)
    );
    $("#playlistTable")
        .on("click", ".track", function () {
            pickTrack($(this).data("id"));
        })
        .on("click", ".folder", function () {
            playback_loadPlaylist($(this).data("id"));
        });
}

// The entry of the side menu that is open.
function markCategory(id) {
    $(".playback_type").removeClass("active");
    $("#playback_type_" + id).addClass("active");
}
