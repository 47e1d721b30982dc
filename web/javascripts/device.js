// What several pages show of a unit.

const playbackKinds = {
    "-4": {icon: "btn-danger fa-microphone", word: "Тревожное вещание"},
    "-3": {icon: "btn-danger fa-upload", word: "Сообщение из памяти устройства"},
    "-2": {icon: "btn-danger fa-upload", word: "Фрагмент из памяти устройства"},
    "-1": {icon: "btn-danger fa-exclamation-triangle", word: "ГОЧС"},
    0: {icon: "btn-default fa-stop", word: "нет"},
    1: {icon: "btn-default fa-podcast", word: "Радио"},
    2: {icon: "btn-default fa-play-circle-o", word: "Плейлист"},
    3: {icon: "btn-default fa-exclamation-circle", word: "Рекламное сообщение"},
    4: {icon: "btn-default fa-exclamation-circle", word: "Служебное сообщение"},
    5: {icon: "btn-default fa-microphone", word: "Вещание с микрофона"},
    6: {icon: "btn-default fa-exclamation-triangle", word: "Тревожное сообщение"},
    7: {icon: "btn-default fa-bell-o", word: "Гонг"},
};

function playbackKind(playback) {
    return (typeof playback === "number" && playbackKinds[playback]) || {icon: undefined, word: "неизвестно"};
}

// The two classes that show what a unit plays; the number must come as a number.
function getPlaybackIcon(playback) {
    return playbackKind(playback).icon;
}

function playbackWord(playback) {
    return playbackKind(playback).word;
}

// Sets one of several classes and takes the others away.
function setOneClass(selector, classes, chosen) {
    $(selector).removeClass(classes.join(" ")).addClass(chosen);
}

// The word for a unit's link, in its colour.
const linkClasses = ["state_offline", "state_incoming", "state_online"];

function paintLinkWord(parts, item) {
    parts.status.textContent = linkStates[item.status].word;
    setOneClass(parts.status, linkClasses, linkClasses[item.status]);
}

// The state of a line, or of a terminal device where those can be edited: being new goes first.
function showLineState(cell, state, isNew, editable) {
    const words = editable ? ["Подключено", "Отключено"] : ["Нормально", "Ошибка"];
    setOneClass(cell, linkClasses, linkClasses[Number(isNew) === 1 ? 1 : state === 0 ? 2 : 0]);
    cell.text(Number(isNew) === 1 ? "Новое" : words[state === 0 ? 0 : 1]);
}

// Range fields. The part of one that lies before its button has the accent's colour; one that stands
// upright is shown turned over, so that up is more.
function paintSlider() {
    const share = (100 * (this.value - this.min)) / (this.max - this.min);
    const isTurned = this.classList.contains("slider_turned");
    const colours = isTurned ? ["--line-strong", "--accent"] : ["--accent", "--line-strong"];
    this.style.backgroundImage = `linear-gradient(to right, var(${colours[0]}) ${share}%, var(${colours[1]}) ${share}%)`;
}

function setSlider(selector, value) {
    $(selector).val(value).each(paintSlider);
}

// What a range field is set to, in its unit: percent, or as its `data-unit` says.
function sliderText(slider) {
    const value = slider.classList.contains("slider_turned") ? -slider.value : Number(slider.value);
    const unit = slider.getAttribute("data-unit") || "%";
    return (unit !== "%" && value > 0 ? "+" : "") + value + (unit === "%" ? "%" : " " + unit);
}

// Shows the number beside the button of a range field while the operator moves it.
function showSliderNumber(slider) {
    const box = slider.getBoundingClientRect();
    const isUpright = box.height > box.width;
    const share = (slider.value - slider.min) / (slider.max - slider.min);
    $("#slider_number")
        .text(sliderText(slider))
        .css({
            left: isUpright ? box.right + 8 : box.left + 10 + share * (box.width - 20),
            top: isUpright ? box.top + 10 + share * (box.height - 20) : box.top - 30,
        })
        .toggleClass("beside", isUpright)
        .show();
}

function hideSliderNumber() {
    $("#slider_number").hide();
}

// Runs `action` on a range field that the operator has set, by mouse or by key.
function onSliderSet(sliders, action) {
    const keys = [33, 34, 35, 36, 37, 38, 39, 40];
    sliders
        .on("mouseup", (event) => action(event.currentTarget))
        .on("keyup", (event) => keys.indexOf(event.which) >= 0 && action(event.currentTarget));
}

$(document)
    .on("input", "input.slider", function () {
        paintSlider.call(this);
        showSliderNumber(this);
    })
    .on("change mouseup", "input.slider", hideSliderNumber)
    .on("focusout", "input.slider", hideSliderNumber)
    .ready(() => $("<div id='slider_number' class='digits'>").hide().appendTo("body"));

function deviceSlider(id, minimum, maximum, step) {
    return $("<input type='range' class='slider'>").attr({id: id, min: minimum, max: maximum, step: step});
}

// One band of an equaliser, upright, with its number below and its gain above. The field counts
// downwards.
function bandSlider(band) {
    function showGain() {
        $(this).closest(".equalizer_band").find(".band_gain").text(sliderText(this).replace(" дБ", ""));
    }
    return $("<div class='equalizer_band'>").append(
        $("<span class='band_gain digits'>"),
        $("<span class='band_slider'>").append(
            deviceSlider("device_equalizer_" + band, -6, 6, 1)
                .addClass("slider_turned")
                .attr({"data-unit": "дБ", title: "Полоса " + (band + 1)})
                .on("input slider:shown", showGain)
        ),
        $("<span class='band_number quiet'>").text(band + 1)
    );
}

// The panel that takes the place of a unit's memory while that plays, behind `place`.
function addInsideAudioPanel(place) {
    titledPanel(
        "Сообщение",
        $("<div class='panel_text'>").append(
            $("<p>").text("Идет воспроизведение фрагмента/сообщения из внутренней памяти устройства"),
            $("<button type='button' class='btn btn-danger' id='stop_inside_audio'>").append("<i class='fa fa-stop'></i>", document.createTextNode(" Остановить"))
        )
    )
        .attr("id", "messagesAndScenariosStop")
        .hide()
        .insertAfter(place);
    $("#stop_inside_audio").on("click", () => deviceInfo_stopInsideAudio());
}

// The page of one unit.
function wrapperLoadDeviceInfo(id) {
    deviceForLoad = id;
    loadMainBody("device_info");
    loadSideMenu("device_list");
    loadTopMenu("device_info");
    loadBotMenu("device_info");
    loadModal("device_info");
}
