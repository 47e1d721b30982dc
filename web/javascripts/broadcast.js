// Live broadcasts from the operator's microphone: their dialog, and the gong.

var buttonsTimer = null;

// Shows the buttons of the dialog that fit, and lets them be used after half a second.
function showBroadcastState(isRunning, delay) {
    $("#translation_text").text(
        isRunning ? 'Нажмите кнопку "Остановить" для остановки трансляции' : 'Нажмите кнопку "Старт" для начала трансляции'
    );
    $("#translation_button_stop").toggle(isRunning);
    $("#translation_button_start, #translation_button_close").toggle(!isRunning);
    var buttons = $("#modalAudioTranslation .btn");
    clearTimeout(buttonsTimer);
    buttons.prop("disabled", delay > 0);
    if (delay > 0) {
        buttonsTimer = setTimeout(function () {
            buttons.prop("disabled", false).filter(":visible").first().focus();
        }, delay);
    }
}

function broadcastVolume() {
    var slider = $("<input type='range' class='slider' id='volume_value' min='0' max='100' step='1' value='50'>")
        .on("input", paintSlider)
        .on("mouseup", function () {
            wrapper_Playback_SetVolume(0, Number(this.value), "redirection");
        })
        .each(paintSlider);
    return $("<div class='volume_row'>").append($("<span class='quiet'>").text("Громкость:"), slider);
}

function broadcastButton(id, kind, text, action) {
    return $("<button type='button' class='btn'>").attr("id", id).addClass(kind).text(text).on("click", action);
}

// Builds the dialog of one kind of broadcast, "microphone" or "alarm", and the notices about it.
function buildBroadcastDialog(type, hasVolume) {
    var footer = $("<div class='modal-footer'>").append(
        broadcastButton("translation_button_stop", "btn-danger", "Остановить", wrapper_Playback_StopRedirection),
        broadcastButton("translation_button_close", "btn-default", "Закрыть", modalAudioTranslationHide),
        broadcastButton("translation_button_start", "btn-primary accept", "Старт", function () {
            wrapper_Playback_StartRedirection(selectedDevices().join(), type, "overlap");
        })
    );
    var body = $("<div class='modal-body'>").append("<p id='translation_text'>", hasVolume ? broadcastVolume() : []);
    var dialog = $(
        "<div class='modal fade' id='modalAudioTranslation' tabindex='-1' data-backdrop='static' data-keyboard='false'>"
    ).append(
        $("<div class='modal-dialog'>").append(
            $("<div class='modal-content'>").append(
                $("<div class='modal-header'>").append($("<h4 class='modal-title'>").text("Начало трансляции")),
                body,
                footer
            )
        )
    );
    $(loadingRegion).append(dialog);
    notice("showTranslationError", {
        id: "modalAudioTranslationError",
        title: "Ошибка",
        text: "Произошла ошибка при запуске трансляции",
    });
    notice("modalAudioTranslationEndedByAnotherUser", {
        title: "Уведомление",
        text: "Вещание остановлено другим пользователем.",
    });
    showBroadcastState(false, 0);
}

// The button "Пуск".
function modalAudioTranslationShow() {
    if (selectedDevices().length === 0) {
        modalSelectingKelpasShow();
        return;
    }
    showBroadcastState(false, 0);
    $("#modalAudioTranslation").modal("show");
}

function modalAudioTranslationStarted() {
    showBroadcastState(true, 500);
}

function modalAudioTranslationStoped() {
    showBroadcastState(false, 500);
}

function modalAudioTranslationHide() {
    $("#modalAudioTranslation").modal("hide");
    showBroadcastState(false, 0);
}

function modalAudioTranslationStartError() {
    modalAudioTranslationHide();
    showTranslationError();
}

// The button that opens the dialog, in the bottom bar.
function buildBroadcastBar(kind) {
    $("#bot_menu").append(
        $("<span class='quiet ellipsis bar_text' id='selected_devices'>"),
        $("<button type='button' class='btn push_right' id='translation_start'>")
            .addClass(kind)
            .append($("<i class='fa fa-microphone'>"), document.createTextNode(" Пуск"))
            .on("click", modalAudioTranslationShow)
    );
    showSelection();
}

// The gong. It may run on while its page isn't on show.

var runningGong = 0;

function gongButton(text, icon, kind, action) {
    return $("<button type='button' class='btn'>")
        .addClass(kind)
        .append($("<i class='fa'>").addClass(icon), document.createTextNode(" " + text))
        .on("click", action);
}

function showGongButton() {
    $("#gongRow")
        .empty()
        .append(
            runningGong === 0
                ? gongButton("Гонг", "fa-bell-o", "btn-primary", playback_startGong)
                : gongButton("Стоп", "fa-stop", "btn-danger", function () {
                      wrapperStopPlay(runningGong);
                  })
        );
}

function gongStart(id) {
    runningGong = id;
    showGongButton();
}

function gongStop() {
    runningGong = 0;
    showGongButton();
}

function playback_startGong() {
    var gong = $("#gongs").val();
    if (!gong) {
        modalSelectingAudioSourceShow();
    } else if (selectedDevices().length === 0) {
        modalSelectingKelpasShow();
    } else {
        wrapperPlayPlaylistAndTrack(gongCategory, Number(gong), selectedDevices().join(), "overlap", "track", 1, "stop");
    }
}
