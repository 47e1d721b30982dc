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

const healthPainters = {
    lines: (parts, value, item) =>
        paintHealth(parts.lines, item, modeOf(value === 1), "Линии", value === 1 ? "нормально" : "ошибка"),
    battery: (parts, value, item) => {
        const word = {2: "заряжена", 1: "заряжается или разряжается"}[value] || "отсутствует или неисправна";
        const mode = {2: "btn-success", 1: "btn-warning"}[value] || "btn-danger";
        paintHealth(parts.battery, item, mode, "АКБ", item.batteryLevel + "%, " + word);
    },
    batteryLevel: (parts, value, item) => {
        parts.battery_level.className = "fa fa-battery-" + batteryStep(value);
        healthPainters.battery(parts, item.battery, item);
    },
    power: (parts, value, item) =>
        paintHealth(parts.power, item, modeOf(value === 1), "Сеть 220 В", value === 1 ? "нормально" : "отсутствует"),
    hull: (parts, value, item) => {
        parts.hull.firstChild.className = "fa " + (value === 1 ? "fa-lock" : "fa-unlock-alt");
        paintHealth(parts.hull, item, modeOf(value === 1), "Крышка корпуса", value === 1 ? "закрыта" : "открыта");
    },
    read: (parts, value, item) => {
        paintCard(parts, item);
        ["lines", "battery", "power", "hull"].forEach((field) => healthPainters[field](parts, item[field], item));
    },
};

const cardPainters = {
    name: (parts, name) => {
        parts.name.textContent = name;
        parts.name.title = name;
    },
    status: (parts, status, item) => {
        const state = linkStates[status];
        paintCard(parts, item);
        parts.border.className = "kelpa_item kelpa_item_" + state.name;
        parts.header.className = "kelpa_item_heading_" + state.name;
        parts.state.textContent = state.word;
        if (parts.button) {
            tickPainter.ticked(parts, item.ticked, item);
        }
    },
    category: (parts, category, item) => {
        paintCard(parts, item);
        parts.playing.className = "btn tile_icon fa " + (getPlaybackIcon(category) || "");
        parts.playing.title = (isAlarm(category) ? "Тревога: " : "Воспроизведение: ") + playbackWord(category);
    },
    playing: (parts, playing, item) => paintCard(parts, item),
    zones: (parts, zones, item) => paintCard(parts, item),
    task: (parts, title) => {
        parts.task.title = "Расписание: " + title;
        parts.task.classList.toggle("hidden", title === "");
    },
};

const tickPainter = {
    ticked: (parts, isTicked, item) => {
        parts.button.className =
            "btn tile_icon tile_select fa " + (isTicked ? "fa-check-square-o" : "fa-square-o") + (item.status === 2 ? "" : " disabled");
    },
};

const volumePainter = {
    volume: (parts, volume) => {
        parts.volume.style.width = volume + "%";
        parts.volume.setAttribute("data-value", volume);
        parts.volume.parentNode.title = "Громкость: " + volume;
    },
};

// How the fields show in a card with these parts.
function paintersOf(names, hasVolumeBelow) {
    return Object.assign(
        {},
        cardPainters,
        names.indexOf("button") >= 0 && tickPainter,
        (hasVolumeBelow || names.indexOf("volume") >= 0) && volumePainter,
        names.indexOf("lines") >= 0 && healthPainters
    );
}
