// The page of voice broadcasts.

page(
    unitCards({
        wrapperInput_playback_setMicrophoneVolume: function (volume) {
            $("#modalAudioTranslation #volume_value").val(volume).each(paintSlider);
        },
    })
);
$("#broadcast_page").append(devicePanel(selectionButtons()));
wrapperLoadSelectKelpaList();
