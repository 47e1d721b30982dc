// The bottom bar of the home page: the volume of the ticked units.

(function () {
    const slider = $("#bot_menu #volume_value");
    let known = ""; // the selection whose volume the slider shows

    function setVolume(volume) {
        selectedDevices().forEach((id) => wrapperSetDeviceVolume(id, volume));
    }

    function meanVolume(ids) {
        const sum = ids.reduce((total, id) => total + cards.list.get(id).volume, 0);
        return Math.round(sum / ids.length);
    }

    page({
        // The slider starts at the volume of what is ticked, and is the operator's from then on.
        bar_selectionChanged: function (count) {
            const ids = selectedDevices();
            slider.toggleClass("nothing_selected", count === 0);
            if (count > 0 && ids.join() !== known) {
                setSlider(slider, meanVolume(ids));
            }
            known = ids.join();
        },
    });

    onSliderSet(slider, (field) => setVolume(Number(field.value)));
    $("#volume_mute").on("click", () => {
        setSlider(slider, 0);
        setVolume(0);
    });
    $("#block_screen").on("click", () => block());
    slider.each(paintSlider);
    showSelection();
    showReading();
    wrapper_Global_loadPermissions();
})();
