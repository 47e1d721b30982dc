// What native code tells the pages of the client's settings.

function addSoundDevice(list, name) {
    $("<option>").val(name).text(name).appendTo(list);
}

function selectSoundDevice(list, name) {
    $(list).val(name).trigger("change");
}

function wrapperInput_settings_addMediaInput(name) {
    addSoundDevice("#settings_media_input", name);
}

function wrapperInput_settings_mediaInputSelect(name) {
    selectSoundDevice("#settings_media_input", name);
}

function wrapperInput_settings_addMediaOutput(name) {
    addSoundDevice("#settings_media_output", name);
}

function wrapperInput_settings_mediaOutputSelect(name) {
    selectSoundDevice("#settings_media_output", name);
}

function loadVolume(slider, value) {
    $(slider).val(value).each(paintSlider);
}

function loadVolumeMicrophone(value) {
    loadVolume("#settings_volume_microphone", value);
}

function loadVolumeWarning(value) {
    loadVolume("#settings_volume_warning", value);
}

// The sound test runs with the device that is chosen on the page, saved or not.

function showSoundTest(isRunning) {
    $("#settings_media_start").toggle(!isRunning);
    $("#settings_media_stop").toggle(isRunning);
}

function startSoundTest() {
    var input = $("#settings_media_input").val();
    if (!input) {
        settingsMicrophoneNotSelected();
        return;
    }
    showSoundTest(true);
    wrapper.settings_media_start(input);
}

function stopSoundTest() {
    showSoundTest(false);
    wrapper.settings_media_stop();
}
