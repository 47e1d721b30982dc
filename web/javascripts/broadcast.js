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

const startPatience = 10000; // milliseconds that a start may take before it can be called off

function clockText(seconds) {
    return ("0" + Math.floor(seconds / 60)).slice(-2) + ":" + ("0" + (seconds % 60)).slice(-2);
}

// Builds the dialog of one kind of broadcast, "microphone" or "alarm", and the notices about it. The
// microphone never runs without it.
function buildBroadcastDialog(type, hasVolume) {
    let state = "idle"; // or "starting", "overdue", "running"
    let buttonsTimer = null;
    let airTimer = null;
    let devices = []; // the units that are spoken to

    function showAirTime(seconds) {
        $("#translation_air").text("Устройств: " + devices.length + ", в эфире " + clockText(seconds));
        airTimer = setTimeout(() => showAirTime(seconds + 1), 1000);
    }

    // Lets the buttons be used after the delay, in milliseconds.
    function enableButtons(delay) {
        const buttons = $("#modalAudioTranslation .modal-footer .btn");
        clearTimeout(buttonsTimer);
        buttons.prop("disabled", delay > 0);
        if (delay > 0) {
            buttonsTimer = setTimeout(() => {
                buttons.prop("disabled", false).filter(":visible").first().focus();
            }, delay);
        }
    }

    function showState(next, delay) {
        const isRunning = next === "running";
        state = next;
        clearTimeout(airTimer);
        $("#modalAudioTranslation .modal-title").text(isRunning ? "Идет трансляция" : "Начало трансляции");
        $("#translation_text").text(
            isRunning ? 'Нажмите кнопку "Остановить" для остановки трансляции' : 'Нажмите кнопку "Старт" для начала трансляции'
        );
        $("#translation_air").empty();
        $("#modalAudioTranslation").toggleClass("on_air", isRunning);
        $("#translation_button_stop").toggle(isRunning);
        $("#translation_button_start, #translation_button_close").toggle(!isRunning);
        enableButtons(delay);
        if (isRunning) {
            showAirTime(0);
        }
    }

    function start() {
        devices = selectedDevices();
        if (devices.length === 0) {
            modalSelectingKelpasShow(); // to the server no targets would mean all
            return;
        }
        state = "starting";
        clearTimeout(buttonsTimer);
        $("#modalAudioTranslation .modal-footer .btn").prop("disabled", true);
        buttonsTimer = setTimeout(() => {
            state = "overdue";
            $("#translation_button_close").prop("disabled", false).focus();
        }, startPatience);
        wrapper_Playback_StartRedirection(devices.join(), type, "overlap");
    }

    // A start that nobody has answered may still come about.
    function close() {
        if (state === "overdue") {
            wrapper_Playback_StopRedirection();
        }
        modalAudioTranslationHide();
    }

    const footer = $("<div class='modal-footer'>").append(
        broadcastButton("translation_button_stop", "btn-danger", "Остановить", function () {
            answers.wait("playback/stopRedirection", this);
            wrapper_Playback_StopRedirection();
        }),
        broadcastButton("translation_button_close", "btn-default", "Закрыть", close),
        broadcastButton("translation_button_start", "btn-primary accept", "Старт", start)
    );
    const body = $("<div class='modal-body'>").append(
        "<p id='translation_text'>",
        "<p id='translation_air' class='digits'>",
        hasVolume ? broadcastVolume() : []
    );
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
    notice("modalAudioTranslationStopError", {
        title: "Ошибка",
        text: "Сервер отказал в остановке трансляции. Микрофон выключен.",
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
            showState("idle", 0);
            $("#modalAudioTranslation").modal("show");
        },
        modalAudioTranslationStarted: function () {
            showState("running", 500);
            $("#modalAudioTranslation").modal("show");
        },
        modalAudioTranslationStoped: () => showState("idle", 500),
        modalAudioTranslationHide: function () {
            $("#modalAudioTranslation").modal("hide");
            showState("idle", 0);
        },
        modalAudioTranslationStartError: function () {
            modalAudioTranslationHide();
            showTranslationError();
        },
    });
    // Whatever takes the page away takes the microphone off the air.
    $("#modal").on("leave", function () {
        clearTimeout(airTimer);
        clearTimeout(buttonsTimer);
        if (state !== "idle") {
            wrapper_Playback_StopRedirection();
        }
    });
    showState("idle", 0);
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
