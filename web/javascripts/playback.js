// What the pages of playback share: rows of a folder, the settings of a start, its dialogs.

const radioCategory = 1;
const alarmCategory = 6;
const gongCategory = 7;

// A whole number of seconds in words.
function durationText(seconds) {
    return seconds > 60 ? Math.floor(seconds / 60) + " мин. " + (seconds % 60) + " сек." : seconds + " сек.";
}

// A position in a track, "3:07".
function positionText(seconds) {
    var whole = Math.max(0, Math.floor(seconds));
    return Math.floor(whole / 60) + ":" + ("0" + (whole % 60)).slice(-2);
}

// Live streams have no length to show.
function rowDurationText(duration, isRadio) {
    return isRadio || duration < 0 ? "" : durationText(duration);
}

function itemSelector(id, isFolder) {
    return "#playlistTable " + (isFolder ? "#playlist_" : "#track_") + id;
}

// A row of the table of a folder: a folder (type 1) or a track (type 0). Folders stay above tracks.
function addItemRow(id, title, type, durationShown) {
    var isFolder = type === 1;
    if ($(itemSelector(id, isFolder)).length) {
        return;
    }
    var isUp = isFolder && title === "..";
    var icon = isUp ? "fa-level-up" : isFolder ? "fa-folder-o" : "fa-music";
    var row = $("<tr>")
        .attr({id: (isFolder ? "playlist_" : "track_") + id, title: isUp ? "На уровень выше" : title})
        .addClass(isFolder ? "folder" : "track")
        .toggleClass("folder_up", isUp)
        .data("id", id)
        .append(
            $("<td class='column_icon'>").append($("<i class='fa'>").addClass(icon)),
            $("<td class='item_title ellipsis'>").text(title),
            $("<td class='item_duration digits'>").text(isUp ? "" : durationShown)
        );
    var lastFolder = $("#playlistTable .folder").last();
    if (isFolder && lastFolder.length) {
        row.insertAfter(lastFolder);
    } else if (isFolder) {
        row.prependTo("#playlistTable tbody");
    } else {
        row.appendTo("#playlistTable tbody");
    }
}

function markRow(id, mark) {
    $("#playlistTable ." + mark).removeClass(mark);
    $(itemSelector(id, false)).addClass(mark);
}

// What every table of a folder's items answers to; `isRadio` tells whether its items have no length.
function folderRows(isRadio) {
    function showDuration(row, duration) {
        row.find(".item_duration").text(rowDurationText(duration, isRadio()));
    }

    function showTitle(row, title) {
        row.attr("title", title).find(".item_title").text(title);
    }

    return {
        wrapperInput_playback_clearItems: function () {
            $("#playlistTable tbody").empty();
        },
        wrapperInput_playback_deleteTrack: function (id) {
            $(itemSelector(id, false)).remove();
        },
        wrapperInput_playback_setTrackName: function (id, title) {
            showTitle($(itemSelector(id, false)), title);
        },
        wrapperInput_playback_setTrackDuration: function (id, duration) {
            showDuration($(itemSelector(id, false)), duration);
        },
        wrapperInput_playback_setPlaylistName: function (id, title) {
            showTitle($(itemSelector(id, true)).not(".folder_up"), title);
        },
        wrapperInput_playback_setPlaylistDuration: function (id, duration) {
            showDuration($(itemSelector(id, true)).not(".folder_up"), duration);
        },
    };
}

// The table of a folder's items, which says so when it has none.
function itemTable(emptyText) {
    return $("<table id='playlistTable' class='rows_table item_table'>").append(
        $("<thead>").append(
            $("<tr>").append(
                $("<th class='column_icon'>"),
                $("<th>").text("Название"),
                $("<th class='item_duration'>").text("Длительность")
            )
        ),
        $("<tbody id='tracks_tbody'>"),
        $("<tfoot class='empty_rows'>").append($("<tr>").append($("<td colspan='3'>").text(emptyText)))
    );
}

// A panel with its title, and what else stands in the title's line.
function titledPanel(title, content, beside) {
    return $("<div class='panel_box'>").append(
        $("<div class='panel_title'>").append($("<span>").text(title), beside || []),
        content
    );
}

// The panel of the cards of units, with `beside` in its title.
function devicePanel(beside) {
    return titledPanel(
        "Устройства",
        $("<div class='panel_scroll'>").append("<div id='main_kelpa_list'>", "<div id='no_devices' class='empty_list'>"),
        beside
    ).addClass("device_panel");
}

function choice(name, options, chosen) {
    var box = $("<div class='choice'>");
    options.forEach(function (option) {
        box.append(
            $("<input type='radio'>").attr({name: name, id: option.id}).prop("checked", option.id === chosen),
            $("<label>").attr("for", option.id).text(option.text)
        );
    });
    return box;
}

// The rows of what is repeated, how often, and what happens then. `replayed` and `action` name the
// fields that are on at first; `prefix` begins the ids.
function replayRows(replayed, action, prefix) {
    const before = prefix || "";
    const name = (id) => before + id;
    var count = $("<input type='text' class='form-control digits' value='1' maxlength='9'>")
        .attr("id", name("playback_repeat_count"))
        .on("keydown", function (event) {
            return checkNumber(this, event);
        })
        .on("keyup input", function () {
            checkNumberSize(this);
        });
    var rows = [
        [
            "Повторять",
            choice(
                name("replay_type"),
                [
                    {id: name("type_playlist"), text: "Папка"},
                    {id: name("type_track"), text: "Фрагмент"},
                ],
                name(replayed)
            ),
        ],
        ["Количество повторов", count],
        [
            "Действие по окончанию",
            choice(
                name("replay_action"),
                [
                    {id: name("action_pause"), text: "Пауза"},
                    {id: name("action_stop"), text: "Остановка"},
                ],
                name(action)
            ),
        ],
    ];
    return rows.map((row) =>
        $("<div class='panel_row replay_row form_field'>").append($("<span class='panel_label'>").text(row[0]), row[1])
    );
}

function replaySettings(replayed, action) {
    return titledPanel("Настройки повторения", replayRows(replayed, action));
}

// The id of the playback that is active in the side menu, -1 if there is none.
function activePlayback() {
    const active = callPage("menu_activePlayback");
    return active === undefined ? -1 : active;
}

// A transport button that can't act looks so.
function updateTransport() {
    const isOff = activePlayback() === -1;
    const isPaused = Boolean(callPage("menu_isPlaybackPaused"));
    const mayAct = {play: isPaused, pause: !isPaused};
    $("#transport .btn, #transport input").prop("disabled", function () {
        return isOff || mayAct[this.id] === false || answers.isAwaited(this);
    });
}

// The volume of the active playback, which may be told before the bar is there.
function showVolume() {
    setSlider("#transport #volume_value", $("#playback_page").data("volume") || 50);
}

function sendVolume() {
    wrapper_Playback_SetVolume(activePlayback(), Number($("#transport #volume_value").val()), "playback");
}

function openNewPlayback() {
    loadSideMenu("playback_new");
    loadMainBody("playback_new");
    loadBotMenu("playback_new");
    loadModal("playback_new");
}

function leaveNewPlayback() {
    loadSideMenu("playback");
    loadMainBody("playback_list");
    loadBotMenu("playback_list");
    loadModal("playback");
}

function buildTransport() {
    var actions = {
        backward: wrapperPlayPrev,
        forward: wrapperPlayNext,
        stop: wrapperStopPlay,
        play: function (id) {
            wrapperStartPlay(id, false);
        },
        pause: function (id) {
            wrapperPausePlay(id, true);
        },
        mute: function () {
            setSlider("#transport #volume_value", 0);
            sendVolume();
        },
    };
    const requests = {backward: "playNext", forward: "playNext", stop: "stop", play: "pause", pause: "pause"};
    $("#transport").on("click", ".btn", function () {
        if (requests[this.id]) {
            answers.wait("playback/" + requests[this.id], this, updateTransport);
        }
        actions[this.id](activePlayback());
    });
    onSliderSet($("#transport #volume_value"), sendVolume);
    showVolume();
    $("#new").on("click", openNewPlayback);
    updateTransport();
}

function buildCreateBar(back) {
    buildBackBar(null, back);
    $("#bot_menu").append(
        $("<span class='quiet ellipsis bar_text' id='selected_devices'>"),
        $("<button type='button' class='btn btn-primary push_right' id='create'>")
            .append($("<i class='fa fa-play'>"), document.createTextNode(" Начать"))
            .on("click", () => createPlayback())
    );
    showSelection();
}

// What the server may refuse a start with.
function declareStartRefusals() {
    notice("modalLowPriorityShow", {
        id: "modalLowPriority",
        title: "Ошибка",
        text: "Невозмоно заменить поток с более высоким приоритетом",
    });
    notice("modalNoDevicesShow", {
        id: "modalNoDevices",
        title: "Ошибка",
        text: "Отсутствуют устройства на которые можно запустить воспроизведение",
    });
    notice("modalRequiredUpdateShow", {
        id: "modalRequiredUpdate",
        title: "Ошибка",
        text: "Требуется обновить версию ПО на устройствах",
    });
    notice("modalBusyPortsShow", {
        id: "modalBusyPorts",
        title: "Ошибка",
        text: "Недостаточно свободных аудио портов для запуска воспроизведения",
        accept: {text: "Отменить"},
    });
    notice("modalPlayError", {
        title: "Ошибка",
        text: "Произошла ошибка при воспроизведении трека на сервере. Проверьте логи сервера.",
    });
}

// What the page refuses by itself.
function declareMissingChoice(sourceText) {
    notice("modalSelectingAudioSourceShow", {id: "modalSelectingAudioSource", title: "Ошибка", text: sourceText});
    notice("modalSelectingKelpasShow", {
        id: "modalSelectingKelpas",
        title: "Ошибка",
        text: "Для продолжения выберите один или несколько устройств на которые будет транслироваться аудио поток.",
    });
}

// The dialogs of a page that starts what the operator picks.
function declareSourceDialogs() {
    declareStartRefusals();
    declareMissingChoice("Для продолжения выберите источник аудио сигнала для трансляции.");
    notice("modalOverlapShow", {
        id: "modalOverlap",
        title: "Ошибка",
        text: "На устройстве/устройствах идет воспроизведение, но его возможно заменить",
        cancel: {text: "Отменить"},
        other: {text: "На свободные", action: () => modalOverlapPartial()},
        accept: {text: "Заменить", action: () => modalOverlapAccept()},
    });
}

// Shows what a playback plays.
function wrapperLoadPlayback(id) {
    playback_cleanPlaylist();
    wrapper.playback_loadPlayback(id);
}
