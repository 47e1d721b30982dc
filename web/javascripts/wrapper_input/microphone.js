// The page of voice broadcasts.

function wrapperInput_playback_setMicrophoneVolume(volume) {
    $("#modalAudioTranslation #volume_value").val(volume).each(paintSlider);
}
