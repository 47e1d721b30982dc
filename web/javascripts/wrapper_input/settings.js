// The page of sound devices and volumes. The sound test runs with the device that is chosen on the
// page, saved or not.

(function () {
    function addSoundDevice(list, name) {
        $("<option>").val(name).text(name).appendTo(list);
    }

    // A device that isn't there leaves nothing chosen, and stays what is stored.
    function selectSoundDevice(list, name) {
        buildSelect(list, name === "" ? "По умолчанию" : name + " (не подключен)");
        $(list).data("stored", name).val(name).trigger("change");
    }

    function loadVolume(slider, value) {
        $(slider).val(value).each(paintSlider);
    }

    page({
        wrapperInput_settings_addMediaInput: function (name) {
            addSoundDevice("#settings_media_input", name);
        },
        wrapperInput_settings_mediaInputSelect: function (name) {
            selectSoundDevice("#settings_media_input", name);
        },
        wrapperInput_settings_addMediaOutput: function (name) {
            addSoundDevice("#settings_media_output", name);
        },
        wrapperInput_settings_mediaOutputSelect: function (name) {
            selectSoundDevice("#settings_media_output", name);
        },
        // What "Сохранить" stores: the choice, or what is stored already.
        settings_mediaInput: function () {
            return $("#settings_media_input").val() || $("#settings_media_input").data("stored") || "";
        },
        loadVolumeMicrophone: function (value) {
            loadVolume("#settings_volume_microphone", value);
        },
        loadVolumeWarning: function (value) {
            loadVolume("#settings_volume_warning", value);
        },
        showSoundTest: function (isRunning) {
            $("#settings_media_start").toggle(!isRunning);
            $("#settings_media_stop").toggle(isRunning);
        },
        startSoundTest: function () {
            var input = $("#settings_media_input").val();
            if (!input) {
                settingsMicrophoneNotSelected();
                return;
            }
            showSoundTest(true);
            wrapper.settings_media_start(input);
        },
        stopSoundTest: function () {
            showSoundTest(false);
            wrapper.settings_media_stop();
        },
    });

    buildSelect("#settings_media_input", "");
    $(".settings_panel").on("input", ".slider", paintSlider);
    $("#settings_media_start").on("click", () => startSoundTest());
    $("#settings_media_stop").on("click", () => stopSoundTest());
    $("#main").on("leave", function () {
        if ($("#settings_media_stop").is(":visible")) {
            stopSoundTest();
        }
    });
    wrapper_settings_mediaInit();
    wrapper_settings_volumeInit();
})();
