// Live broadcasts from the operator's microphone: their dialog, and the button that opens it.

function broadcastVolume() {
    var slider = $("<input type='range' class='slider' id='volume_value' min='0' max='100' step='1' value='50'>")
        .each(paintSlider);
    onSliderSet(slider, (field) => wrapper_Playback_SetVolume(0, Number(field.value), "redirection"));
    return $("<div class='volume_row'>").append($("<span class='quiet'>").text("Громкость:"), slider);
}

function broadcastButton(id, kind, text, action) {
    return $("<button type='button' class='btn'>").attr("id", id).addClass(kind).text(text).on("click", action);
}

// Builds the dialog of one kind of broadcast, "microphone" or "alarm", and the notices about it.
function buildBroadcastDialog(type, hasVolume) {
    let buttonsTimer = null;

    // Shows the buttons of the dialog that fit, and lets them be used after the delay, in milliseconds.
    function showState(isRunning, delay) {
        $("#translation_text").text(
            isRunning ? 'Нажмите кнопку "Остановить" для остановки трансляции' : 'Нажмите кнопку "Старт" для начала трансляции'
        );
        $("#translation_button_stop").toggle(isRunning);
        $("#translation_button_start, #translation_button_close").toggle(!isRunning);
        const buttons = $("#modalAudioTranslation .btn");
        clearTimeout(buttonsTimer);
        buttons.prop("disabled", delay > 0);
        if (delay > 0) {
            buttonsTimer = setTimeout(() => {
                buttons.prop("disabled", false).filter(":visible").first().focus();
            }, delay);
        }
    }

    const footer = $("<div class='modal-footer'>").append(
        broadcastButton("translation_button_stop", "btn-danger", "Остановить", () => wrapper_Playback_StopRedirection()),
        broadcastButton("translation_button_close", "btn-default", "Закрыть", () => modalAudioTranslationHide()),
        broadcastButton("translation_button_start", "btn-primary accept", "Старт", () =>
            wrapper_Playback_StartRedirection(selectedDevices().join(), type, "overlap")
        )
    );
    const body = $("<div class='modal-body'>").append("<p id='translation_text'>", hasVolume ? broadcastVolume() : []);
    $("<div class='modal fade' id='modalAudioTranslation' tabindex='-1' data-backdrop='static' data-keyboard='false'>")
        .append(
            $("<div class='modal-dialog'>").append(
                $("<div class='modal-content'>").append(
                    $("<div class='modal-header'>").append($("<h4 class='modal-title'>").text("Начало трансляции")),
                    body,
                    footer
                )
            )
        )
        .appendTo(regions.place());
    notice("showTranslationError", {
        id: "modalAudioTranslationError",
        title: "Ошибка",
        text: "Произошла ошибка при запуске трансляции",
    });
    notice("modalAudioTranslationEndedByAnotherUser", {
        title: "Уведомление",
        text: "Вещание остановлено другим пользователем.",
    });
    page({
        // The button "Пуск".
        modalAudioTranslationShow: function () {
            if (selectedDevices().length === 0) {
                modalSelectingKelpasShow();
                return;
            }
            showState(false, 0);
            $("#modalAudioTranslation").modal("show");
        },
        modalAudioTranslationStarted: () => showState(true, 500),
        modalAudioTranslationStoped: () => showState(false, 500),
        modalAudioTranslationHide: function () {
            $("#modalAudioTranslation").modal("hide");
            showState(false, 0);
        },
        modalAudioTranslationStartError: function () {
            modalAudioTranslationHide();
            showTranslationError();
        },
    });
    showState(false, 0);
}

// The button that opens the dialog, in the bottom bar.
function buildBroadcastBar(kind) {
    $("#bot_menu").append(
        $("<span class='quiet ellipsis bar_text' id='selected_devices'>"),
        $("<button type='button' class='btn push_right' id='translation_start'>")
            .addClass(kind)
            .append($("<i class='fa fa-microphone'>"), document.createTextNode(" Пуск"))
            .on("click", () => modalAudioTranslationShow())
    );
    showSelection();
}
