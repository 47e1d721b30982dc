// Thin functions in front of the slots of the client's settings.

function wrapper_settings_mediaInit() {
    console.log("wrapper_settings_mediaInit");
    wrapper.settings_media_init();
}

function wrapper_settings_volumeInit() {
    console.log("wrapper_settings_volumeInit");
    wrapper.settings_volume_init();
}
