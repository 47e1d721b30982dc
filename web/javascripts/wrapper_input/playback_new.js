// The pages that start a playback: the folders of a category, the settings, the units.

var currentCategory = 0;

function wrapperInput_playback_addItem(id, parentId, title, type, duration) {
    if (currentPlaylist === parentId) {
        addItemRow(id, title, type, rowDurationText(duration, currentCategory === radioCategory || parentId === radioCategory));
        markRow(currentTrack, "record_active");
    }
}

// Opens a folder; what was picked in another one is picked no longer.
function playback_loadPlaylist(id) {
    currentPlaylist = id;
    currentTrack = 0;
    $("#playlistTable tbody").empty();
    wrapper.playback_loadPlaybackWithPlaylist(id);
}

// Opens one of the categories of the side menu.
function selectPlaylist(id) {
    currentCategory = id;
    $(".playback_type").removeClass("active");
    $("#playback_type_" + id).addClass("active");
    $("#playlistTable").toggleClass("without_duration", id === radioCategory);
    playback_loadPlaylist(id);
}

// The end of some playback empties the list of its tracks; this table shows a folder.
function wrapperInput_playback_clearItems() {
    var track = currentTrack;
    playback_loadPlaylist(currentPlaylist);
    pickTrack(track);
}

function wrapperInput_playback_deleteTrack(id) {
    $(itemSelector(id, false)).remove();
    if (id === currentTrack) {
        currentTrack = 0;
    }
}

// A folder that goes while it is open leaves the page at its category.
function wrapperInput_playback_deletePlaylist(id) {
    if (id === currentPlaylist && id !== currentCategory) {
        selectPlaylist(currentCategory);
    }
    $(itemSelector(id, true)).remove();
}

function pickTrack(id) {
    currentTrack = $(itemSelector(id, false)).length ? id : 0;
    markRow(currentTrack, "record_active");
}

// `beside` stands in the title of the panel of units; `replayed` and `action` are the settings at first.
function buildSourcePage(beside, replayed, action) {
    $("#source_page").append(
        $("<div class='page_stack'>").append(
            titledPanel("Источник", $("<div class='panel_scroll'>").append(itemTable("Здесь ничего нет"))).addClass("stack_grow"),
            replaySettings(replayed, action)
        ),
        devicePanel(beside)
    );
    $("#playlistTable")
        .on("click", ".track", function () {
            pickTrack($(this).data("id"));
        })
        .on("click", ".folder", function () {
            playback_loadPlaylist($(this).data("id"));
        });
}
