// Thin functions in front of the slots of playback and broadcasting.

function wrapperLoadPlaybackList() {
    console.log("wrapperLoadPlaybackList");
    wrapper.playback_loadList();
}

function wrapperLoadPlaybackZoneList() {
    console.log("wrapperLoadPlaybackZoneList");
    wrapper.playback_loadZoneList();
}

function wrapperLoadPlayback(id) {
    console.log("wrapperLoadPlayback " + id);
    playback_cleanPlaylist();
    wrapper.playback_loadPlayback(id);
}

// `count` is the number of passes, 1 to 255.
function wrapperPlayPlaylistAndTrack(playlistId, trackId, devices, strategy, type, count, action) {
    console.log("wrapperPlayPlaylistAndTrack " + [playlistId, trackId, devices, strategy, type, count, action].join(" "));
    wrapper.playback_play(playlistId, trackId, devices, strategy, type, count, action);
}

function wrapperStopPlay(id) {
    console.log("wrapperStopPlay " + id);
    wrapper.playback_stop(id);
}

function wrapperPausePlay(id, value) {
    console.log("wrapperPausePlay " + id);
    wrapper.playback_pause(id, value);
}

function wrapperStartPlay(id, value) {
    console.log("wrapperStartPlay " + id);
    wrapper.playback_pause(id, value);
}

function wrapperPlayNext(id) {
    console.log("wrapperPlayNext " + id);
    wrapper.playback_next(id);
}

function wrapperPlayPrev(id) {
    console.log("wrapperPlayPrev " + id);
    wrapper.playback_prev(id);
}

function wrapperPlayNextById(id, trackId) {
    console.log("wrapperPlayNextById " + id + " " + trackId);
    wrapper.playback_nextById(id, trackId);
}

// An id of -1 stands for no playback, and sends nothing.
function wrapper_Playback_SetVolume(id, volume, target) {
    console.log("wrapper_Playback_SetVolume " + id + " " + volume + " " + target);
    wrapper.playback_setVolume(id, volume, target);
}

function wrapper_Playback_StartRedirection(devices, type, strategy) {
    console.log("wrapper_Playback_StartRedirection " + devices + " " + type + " " + strategy);
    wrapper.playback_startRedirection(devices, type, strategy);
}

function wrapper_Playback_StopRedirection() {
    console.log("wrapper_Playback_StopRedirection");
    wrapper.playback_stopRedirection();
}
