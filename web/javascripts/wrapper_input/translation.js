// The page of alarm broadcasts: the gong, and the units.

(function () {
    let runningGong = 0; // its playback, 0 while none runs

    function gongOption(id) {
        return $("#gongs option[value='" + id + "']");
    }

    function refreshGongs() {
        $("#gongs").trigger("change.select2");
    }

    function gongButton(text, icon, kind, action) {
        return $("<button type='button' class='btn'>")
            .addClass(kind)
            .append($("<i class='fa'>").addClass(icon), document.createTextNode(" " + text))
            .on("click", () => action());
    }

    function showGong(id) {
        runningGong = id;
        $("#gongRow")
            .empty()
            .append(
                runningGong === 0
                    ? gongButton("Гонг", "fa-bell-o", "btn-primary", playback_startGong)
                    : gongButton("Стоп", "fa-stop", "btn-danger", () => wrapperStopPlay(runningGong))
            );
    }

    function buildGongPanel() {
        const line = $("<div class='gong_line'>").append(
            $("<span class='gong_hint'>").text('Нажмите кнопку "Гонг" для трансляции сигнала привлечения внимания'),
            "<select id='gongs'>",
            "<span id='gongRow'>"
        );
        $("#broadcast_page").before(titledPanel("Гонг", line).addClass("gong_panel"));
        $("#gongs").select2({
            language: $.extend({}, $.fn.select2.amd.require("select2/i18n/ru"), {noResults: () => "Гонгов нет"}),
            placeholder: "Гонгов нет",
            width: "280px",
            minimumResultsForSearch: 8,
        });
    }

    page(
        unitCards({
            wrapperInput_playback_addItem: function (id, parentId, title, type) {
                if (parentId === gongCategory && type !== 1 && gongOption(id).length === 0) {
                    $("<option>").val(id).text(title).appendTo("#gongs");
                    refreshGongs();
                }
            },
            wrapperInput_playback_setTrackName: function (id, title) {
                renameOption(gongOption(id), title);
            },
            wrapperInput_playback_deleteTrack: function (id) {
                gongOption(id).remove();
                refreshGongs();
            },
            gongStart: showGong,
            gongStop: () => showGong(0),
            playback_startGong: function () {
                const gong = $("#gongs").val();
                if (!gong) {
                    modalSelectingAudioSourceShow();
                } else if (selectedDevices().length === 0) {
                    modalSelectingKelpasShow();
                } else {
                    answers.wait("playback/play", "#gongRow .btn");
                    wrapperPlayPlaylistAndTrack(gongCategory, Number(gong), selectedDevices().join(), "overlap", "track", 1, "stop");
                }
            },
        })
    );

    $("#broadcast_page").append(devicePanel(selectionButtons()));
    buildGongPanel();
    showGong(0);
    wrapperLoadSelectKelpaList();
    wrapper.playback_loadPlaybackType(gongCategory);
})();
