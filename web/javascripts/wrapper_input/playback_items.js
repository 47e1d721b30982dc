// The table of a folder's items, on each page that has one.

function wrapperInput_playback_clearItems() {
    $("#playlistTable tbody").empty();
}

function wrapperInput_playback_deleteTrack(id) {
    $(itemSelector(id, false)).remove();
}

function wrapperInput_playback_setTrackName(id, title) {
    $(itemSelector(id, false)).attr("title", title).find(".item_title").text(title);
}

function showItemDuration(row, duration) {
    row.find(".item_duration").text(rowDurationText(duration, currentPlaylist === radioCategory));
}

function wrapperInput_playback_setTrackDuration(id, duration) {
    showItemDuration($(itemSelector(id, false)), duration);
}

function wrapperInput_playback_setPlaylistName(id, title) {
    $(itemSelector(id, true)).not(".folder_up").attr("title", title).find(".item_title").text(title);
}

function wrapperInput_playback_setPlaylistDuration(id, duration) {
    showItemDuration($(itemSelector(id, true)).not(".folder_up"), duration);
}
