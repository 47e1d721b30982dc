// The cards of units on a page that has some: one list, what native code calls for it, the filter
// by zone, and the ticks that the bottom bar acts on.

let cards = null; // of the page on show; null where it has none

class UnitCards {
    constructor(look) {
        this.look = look;
        this.kind = () => true; // which units the page shows at all
        this.zone = callPage("menu_chosenZone") || 0;
        this.readCount = 0;
        this.made = null;
        this.told = ""; // what the page shows of the counts
        $("#main").on("leave", () => (cards = cards === this ? null : cards));
    }

    // The list; null as long as the page has no place for it.
    get list() {
        if (this.made === null && $("#main #main_kelpa_list").length) {
            this.made = this.makeList($("#main #main_kelpa_list"));
            this.made.setFilter((item) => this.passes(item));
        }
        return this.made;
    }

    makeList(place) {
        const {icons, hasVolumeBelow, open} = this.look;
        return itemList({
            list: place,
            scroller: place.closest(".panel_scroll, #main"),
            region: "#main",
            template: cardTemplate(icons, hasVolumeBelow),
            prefix: "device_",
            paint: paintersOf(icons, hasVolumeBelow),
            actions: {open: open, tick: icons.indexOf("button") < 0 ? undefined : (id) => device_select(id)},
            tickable: (item) => item.status === 2,
            changed: () => this.changed(),
        });
    }

    // What a new card plays. A push tells of a unit without its class: what it plays comes behind it.
    playingOf(playbackClass) {
        if (this.look.withoutPlaybacks) {
            return undefined;
        }
        return playbackClass === undefined ? 0 : Number(playbackClass.substr("playback_".length));
    }

    passes(item) {
        return this.kind(item) && (this.zone === 0 || item.zones.indexOf(this.zone) >= 0);
    }

    // Shows the units of one zone, or of all (0), for which `kind` is true.
    show(kind, zone) {
        this.kind = kind;
        this.zone = zone;
        if (this.list) {
            this.list.setFilter((item) => this.passes(item));
        }
    }

    set(id, field, value) {
        if (this.list) {
            this.list.set(id, field, value);
        }
    }

    setLink(id, status) {
        this.set(id, "status", status);
        if (status !== 2) {
            this.list.tick(id, false);
        }
    }

    setRead(id) {
        const item = this.list.get(id);
        if (item && !item.read) {
            this.set(id, "read", true);
            ++this.readCount;
            showReading();
        }
    }

    setZone(zone, id, isIncluded) {
        const item = this.list.get(id);
        if (item && item.zones.indexOf(zone) >= 0 !== isIncluded) {
            const others = item.zones.filter((other) => other !== zone);
            this.set(id, "zones", isIncluded ? others.concat(zone) : others);
            this.count(id);
        }
    }

    remove(id) {
        const item = this.list.get(id);
        this.readCount -= item && item.read ? 1 : 0;
        this.list.remove(id);
        this.count(id);
        showReading();
    }

    // The zones count the unit anew; what an empty list says may depend on it.
    count(id) {
        callPage("menu_countUnit", id);
        if (this.list.counts.shown === 0) {
            showEmptyCards();
        }
    }

    // What stands where no card does.
    get emptyText() {
        if (this.zone === 0) {
            return "Нет устройств";
        }
        return callPage("menu_unitsOfZone", this.zone) > 0
            ? "Все устройства этой зоны находятся во вложенных зонах"
            : "В этой зоне нет устройств";
    }

    changed() {
        const counts = this.list.counts;
        const told = [counts.shown === 0, counts.ticked, counts.tickedHidden, this.zone].join();
        if (told !== this.told) {
            this.told = told;
            showEmptyCards();
            showSelection();
        }
    }
}

// What a page with cards answers to. `own` has what the page does in another way, or beyond that;
// `look` tells the parts of a card, and what a click on it does.
function unitCards(own, look) {
    cards = new UnitCards(Object.assign({icons: ["playing", "task", "button"], open: (id) => device_select(id)}, look));
    const mine = cards;
    callPage("menu_countAll");
    return Object.assign(
        {
            wrapperInput_device_add: function (id, name, status, volume, category, zonePermission, playbackClass) {
                mine.list.add(id, {
                    name: name,
                    status: status,
                    volume: volume,
                    category: category,
                    playing: mine.playingOf(playbackClass),
                    zones: [],
                    task: "",
                    read: false,
                    lines: status === 2 ? 1 : 0,
                    battery: 0,
                    batteryLevel: 0,
                    power: 0,
                    hull: 0,
                });
                mine.count(id);
                showReading();
            },
            wrapperInput_device_delete: (id) => mine.remove(id),
            wrapperInput_device_setName: (id, name) => mine.set(id, "name", name),
            wrapperInput_device_linkOn: (id) => mine.setLink(id, 2),
            wrapperInput_device_linkIncoming: (id) => mine.setLink(id, 1),
            wrapperInput_device_linkOff: (id) => mine.setLink(id, 0),
            wrapperInput_device_setRead: (id) => mine.setRead(id),
            wrapperInput_device_setVolume: (id, volume) => mine.set(id, "volume", volume),
            wrapperInput_device_setPlaybackCategory: (id, category) => mine.set(id, "category", category),
            wrapperInput_device_setPlayback: function (id, oldPlayback, playback) {
                const item = mine.list.get(id);
                if (item && item.playing !== undefined) {
                    mine.set(id, "playing", playback);
                }
            },
            wrapperInput_device_setTask: (id, taskId, title) => mine.set(id, "task", taskId > 0 ? title : ""),
            wrapperInput_zone_includeDevice: (zone, id) => mine.setZone(zone, id, true),
            wrapperInput_zone_excludeDevice: (zone, id) => mine.setZone(zone, id, false),
            device_select: (id) => mine.list.toggleTick(id),
        },
        own
    );
}

// The filter by zone.

function showCards(kind, zone) {
    if (cards) {
        cards.show(kind, zone);
    }
}

function showCardsOfZone(zone) {
    if (cards) {
        cards.show(cards.kind, zone);
    }
}

function showEmptyCards() {
    const hint = $("#main #no_devices");
    const isEmpty = cards.list.counts.shown === 0;
    if (isEmpty) {
        setText(hint, cards.emptyText);
    }
    if (hint.hasClass("hidden") === isEmpty) {
        hint.toggleClass("hidden", !isEmpty);
    }
}

// The ticks.

function selectedDevices() {
    return cards && cards.list ? cards.list.ticks() : [];
}

function tickCards(items, isTicked) {
    cards.list.tickAll(items, isTicked);
}

function zone_selectAll() {
    tickCards(cards.list.everyItem(), true);
}

// Ticks those that the filter shows.
function zone_selectCurrent() {
    tickCards(cards.list.shown(), true);
}

function zone_deselectAll() {
    tickCards(cards.list.everyItem(), false);
}

// The three buttons that tick many units at once.
function selectionButtons() {
    const box = $("<div class='selection_buttons'>").append($("<span class='quiet'>").text("Выбрать устройства:"));
    [
        ["Все", "zone_select_all", zone_selectAll],
        ["В зоне", "zone_select_current", zone_selectCurrent],
        ["Сброс", "zone_deselect_all", zone_deselectAll],
    ].forEach((button) => {
        $("<button type='button' class='btn btn-default'>")
            .attr("id", button[1])
            .text(button[0])
            .on("click", button[2])
            .appendTo(box);
    });
    return box;
}

// How many units the bottom bar acts on, and how many of them can't be seen.
function showSelection() {
    const counts = cards && cards.list ? cards.list.counts : {ticked: 0, tickedHidden: 0};
    const hidden = counts.tickedHidden ? ", из них скрыто фильтром: " + counts.tickedHidden : "";
    const text = counts.ticked ? "Выбрано устройств: " + counts.ticked + hidden : "Устройства не выбраны";
    setText($("#bot_menu #selected_devices"), text);
    callPage("bar_selectionChanged", counts.ticked);
}

// How many units have been read, until all are.
function showReading() {
    const hint = document.getElementById("devices_read");
    if (hint && cards && cards.list) {
        const all = cards.list.counts.all;
        hint.textContent = cards.readCount < all ? "Загрузка состояния: " + cards.readCount + " из " + all : "";
    }
}
