// The page of alarm broadcasts: the gongs.

function wrapperInput_playback_addItem(id, parentId, title, type) {
    if (parentId === gongCategory && type !== 1 && gongOption(id).length === 0) {
        $("<option>").val(id).text(title).appendTo("#gongs");
        refreshGongs();
    }
}

function gongOption(id) {
    return $("#gongs option[value='" + id + "']");
}

function refreshGongs() {
    $("#gongs").trigger("change.select2");
}

function wrapperInput_playback_setTrackName(id, title) {
    renameOption(gongOption(id), title);
}

function wrapperInput_playback_deleteTrack(id) {
    gongOption(id).remove();
    refreshGongs();
}

function buildGongPanel() {
    var line = $("<div class='gong_line'>").append(
        $("<span class='gong_hint'>").text('Нажмите кнопку "Гонг" для трансляции сигнала привлечения внимания'),
        "<select id='gongs'>",
        "<span id='gongRow'>"
    );
    $("#broadcast_page").before(titledPanel("Гонг", line).addClass("gong_panel"));
    $("#gongs").select2({
        language: $.extend({}, $.fn.select2.amd.require("select2/i18n/ru"), {
            noResults: function () {
                return "Гонгов нет";
            },
        }),
        placeholder: "Гонгов нет",
        width: "280px",
        minimumResultsForSearch: 8,
    });
    showGongButton();
}
