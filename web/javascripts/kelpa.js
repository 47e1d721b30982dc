// The card of one unit: its mark-up, and how each field of the unit shows in it.

const linkStates = [
    {name: "offline", word: "Отключен"},
    {name: "incoming", word: "Подключение"},
    {name: "online", word: "Подключен"},
];

// The parts of a card below its name. Their ids are "device_", the part, and the unit.
const cardParts = {
    playing: "<span data-part='playing'></span>",
    task: "<span class='btn tile_icon btn-default hidden' data-part='task'><i class='fa fa-calendar'></i></span>",
    lines: "<span data-part='lines'><i class='fa fa-volume-up'></i></span>",
    battery: "<span data-part='battery'><i data-part='battery_level'></i></span>",
    power: "<span data-part='power'><i class='fa fa-bolt'></i></span>",
    hull: "<span data-part='hull'><i></i></span>",
    button: "<span data-part='button' data-action='tick' title='Выбрать'></span>",
    volume: "<div class='tile_volume'><div data-part='volume'></div></div>",
};

// A card with some of the parts in a row, and maybe the volume below them.
function cardTemplate(names, hasVolumeBelow) {
    const icons = names.map((name) => cardParts[name]).join("");
    return `<div><div data-part="border"><div data-part="header">
        <span class="tile_name ellipsis" data-part="name"></span><span class="tile_state" data-part="state"></span>
        </div><div class="tile_icons">${icons}</div>${hasVolumeBelow ? cardParts.volume : ""}</div></div>`;
}

function isAlarm(playback) {
    return playback === -4 || playback === 6;
}

// The classes of the whole card. `playing` is undefined where the page doesn't look at playbacks.
function paintCard(parts, item) {
    const classes = ["zone_device", "tile", "device_" + item.id];
    const marks = {device_online: item.status === 2, unread: item.read === false, alarm_on_air: isAlarm(item.category)};
    if (item.playing !== undefined) {
        classes.push("playback_device", "playback_" + item.playing);
    }
    parts.root.className = classes
        .concat(item.zones.map((zone) => "zone_device_" + zone))
        .concat(Object.keys(marks).filter((mark) => marks[mark]))
        .concat(item.passes ? [] : "hidden")
        .join(" ");
}

// An icon of the unit's health: before the unit has been read nobody knows it.
function paintHealth(part, item, mode, what, word) {
    part.className = "btn tile_icon tile_health " + mode;
    part.title = what + ": " + (item.read ? word : "состояние неизвестно");
}

function modeOf(isGood) {
    return isGood ? "btn-success" : "btn-danger";
}

function batteryStep(level) {
    return level >= 100 ? 4 : level > 75 ? 3 : level > 50 ? 2 : level > 25 ? 1 : 0;
}

function paintLines(parts, item) {
    const isGood = item.lines === 1;
    paintHealth(parts.lines, item, modeOf(isGood), "Линии", isGood ? "нормально" : "ошибка");
}

function paintBattery(parts, item) {
    const word = {2: "заряжена", 1: "заряжается или разряжается"}[item.battery] || "отсутствует или неисправна";
    const mode = {2: "btn-success", 1: "btn-warning"}[item.battery] || "btn-danger";
    paintHealth(parts.battery, item, mode, "АКБ", item.batteryLevel + "%, " + word);
    parts.battery_level.className = "fa fa-battery-" + batteryStep(item.batteryLevel);
}

function paintPower(parts, item) {
    const isGood = item.power === 1;
    paintHealth(parts.power, item, modeOf(isGood), "Сеть 220 В", isGood ? "нормально" : "отсутствует");
}

function paintHull(parts, item) {
    const isGood = item.hull === 1;
    paintHealth(parts.hull, item, modeOf(isGood), "Крышка корпуса", isGood ? "закрыта" : "открыта");
    parts.hull.firstChild.className = "fa " + (isGood ? "fa-lock" : "fa-unlock-alt");
}

function paintName(parts, item) {
    parts.name.textContent = item.name;
    parts.name.title = item.name;
}

function paintLink(parts, item) {
    const state = linkStates[item.status];
    parts.border.className = "kelpa_item kelpa_item_" + state.name;
    parts.header.className = "kelpa_item_heading_" + state.name;
    parts.state.textContent = state.word;
}

function paintPlaying(parts, item) {
    parts.playing.className = "btn tile_icon fa " + (getPlaybackIcon(item.category) || "");
    parts.playing.title = (isAlarm(item.category) ? "Тревога: " : "Воспроизведение: ") + playbackWord(item.category);
}

function paintTask(parts, item) {
    parts.task.title = "Расписание: " + item.task;
    parts.task.classList.toggle("hidden", item.task === "");
}

function paintTick(parts, item) {
    const box = item.ticked ? "fa-check-square-o" : "fa-square-o";
    parts.button.className = "btn tile_icon tile_select fa " + box + (item.status === 2 ? "" : " disabled");
}

function paintVolume(parts, item) {
    parts.volume.style.width = item.volume + "%";
    parts.volume.setAttribute("data-value", item.volume);
    parts.volume.parentNode.title = "Громкость: " + item.volume;
}

// How the fields show in a card with these parts.
function paintersOf(names, hasVolumeBelow) {
    const has = (name) => names.indexOf(name) >= 0;
    const tick = has("button") ? [paintTick] : [];
    const health = has("lines")
        ? {
              lines: [paintLines],
              battery: [paintBattery],
              batteryLevel: [paintBattery],
              power: [paintPower],
              hull: [paintHull],
              read: [paintCard, paintLines, paintBattery, paintPower, paintHull],
          }
        : {};
    return Object.assign(
        {
            name: [paintName],
            status: [paintCard, paintLink].concat(tick),
            category: [paintCard, paintPlaying],
            playing: [paintCard],
            zones: [paintCard],
            task: [paintTask],
            ticked: tick,
            volume: hasVolumeBelow || has("volume") ? [paintVolume] : [],
        },
        health
    );
}
