// A list of boxes: which zones, units, playlists, presets or tasks a form means. It may hold many
// thousand rows, of which those near the window have an element.
//
// The boxes know what the mirror holds (`store`, `clear`) and what the operator has chosen
// otherwise, which stays until the form is reset, taken or shows another record. A tick may come
// before its row does.
//
// Options:
//   list     "#zoneList": the element that the rows stand in, and that scrolls them
//   prefix   begins the ids: "zone_" makes the row `zone_5`, its box `zone_checkbox_5`
//   title    the name of the cell with the title: "name" makes `zone_name_5`
//   note     the name of the second cell; none without it
//   region   the region whose "leave" ends the list
//   empty    what an empty list says
//   ticked   function (id): the operator has ticked or unticked a box
class TickList {
    constructor(options) {
        this.options = Object.assign({}, options, {ticked: options.ticked || $.noop});
        this.stored = new Set(); // what the mirror holds
        this.own = new Set(); // what the operator has turned round
        this.locked = new Set();
        this.isOff = false; // whether the operator may turn none
        this.foreign = $.noop; // called when the mirror changes what the operator has turned round
        this.hint = $("<div class='empty_list'>").text(options.empty).insertAfter(options.list);
        this.list = itemList({
            list: $(options.list).addClass("tick_list"),
            scroller: options.list,
            region: options.region,
            prefix: options.prefix,
            template: this.template(),
            paint: this.painters(),
            actions: {open: (id) => this.turn(id), tick: (id) => this.turn(id)},
            tickable: () => true,
            changed: () => this.hint.toggle(this.list.counts.all === 0),
        });
        $(options.list).show();
    }

    template() {
        const {title, note} = this.options;
        const second = note ? "<span class='tick_note' data-part='" + note + "'></span>" : "";
        return (
            "<div class='tick_row' role='checkbox'><input type='checkbox' tabindex='-1' data-part='checkbox'>" +
            "<span class='tick_title ellipsis' data-part='" + title + "'></span>" + second + "</div>"
        );
    }

    painters() {
        const {title, note} = this.options;
        return {
            title: [
                (parts, item) => {
                    parts[title].textContent = item.title;
                    parts[title].title = item.title;
                },
            ],
            note: note ? [(parts, item) => (parts[note].textContent = item.note)] : [],
            ticked: [(parts, item) => (parts.checkbox.checked = item.ticked)],
            locked: [
                (parts, item) => {
                    parts.checkbox.disabled = item.locked || this.isOff;
                    parts.root.classList.toggle("tick_locked", item.locked || this.isOff);
                },
            ],
        };
    }

    has(id) {
        return this.list.has(id);
    }

    // Adds a row; one that is there stays as it is.
    add(id, fields) {
        const isLocked = this.locked.has(id);
        this.list.add(id, Object.assign({note: "", locked: isLocked}, fields));
        this.list.tick(id, isLocked || this.stored.has(id) !== this.own.has(id));
    }

    // Changes the title or the note of a row.
    set(id, fields) {
        Object.keys(fields).forEach((name) => this.list.set(id, name, fields[name]));
    }

    remove(id) {
        this.list.remove(id);
        [this.stored, this.own, this.locked].forEach((set) => set.delete(id));
    }

    // Takes all rows away; what is ticked is remembered for rows that come again.
    empty() {
        this.list.clear();
    }

    // The operator's click or key.
    turn(id) {
        const item = this.list.get(id);
        if (!item.locked && !this.isOff) {
            this.list.toggleTick(id);
            this.own[item.ticked === this.stored.has(id) ? "delete" : "add"](id);
            this.options.ticked(id);
        }
    }

    // What the mirror holds: nothing, and then each of its entries.

    clear() {
        this.stored.forEach((id) => this.own.has(id) || this.locked.has(id) || this.list.tick(id, false));
        this.stored.clear();
    }

    store(id) {
        this.stored.add(id);
        if (!this.own.has(id)) {
            this.list.tick(id, true);
        } else if (this.list.get(id).ticked) {
            this.own.delete(id); // both mean the same now
            this.foreign();
        }
    }

    // Rows that must be ticked as long as something else is: the box is ticked and can't be turned.

    lock(id) {
        this.locked.add(id);
        this.list.tick(id, true);
        this.list.set(id, "locked", true);
    }

    // A box that is no longer needed stays ticked, as if the operator had ticked it.
    unlock(id) {
        this.locked.delete(id);
        this.list.set(id, "locked", false);
        if (this.has(id) && !this.stored.has(id)) {
            this.own.add(id);
        }
    }

    unlockAll() {
        Array.from(this.locked).forEach((id) => this.unlock(id));
    }

    // Ticks a box because of something else on the page, which is no change of the operator's.
    mark(id) {
        this.list.tick(id, true);
    }

    // The ids of the ticked rows, and of all, in order of arrival.

    ticks() {
        return this.list.ticks();
    }

    ids() {
        return this.list.everyItem().map((item) => item.id);
    }

    // The mirror's word about a box whose turning was a request of its own.
    settle(id, isTicked) {
        this.own.delete(id);
        this.stored[isTicked ? "add" : "delete"](id);
        this.list.tick(id, isTicked);
    }

    // Whether the operator may turn boxes at all.
    setEnabled(isEnabled) {
        this.isOff = !isEnabled;
        this.list.everyItem().forEach((item) => this.list.view.paint(item, "locked"));
    }

    // As a part of a form.

    isTouched() {
        return Array.from(this.own).some((id) => !this.locked.has(id));
    }

    // Back to what the mirror holds.
    reset() {
        this.own.clear();
        this.list.everyItem().forEach((item) => this.list.tick(item.id, item.locked || this.stored.has(item.id)));
    }

    // Another record: nothing is known of it yet.
    begin() {
        this.stored.clear();
        this.unlockAll();
        this.reset();
    }

    // The server has taken what is ticked.
    take() {
        this.stored = new Set(this.ticks());
        this.own.clear();
    }
}

function tickList(options) {
    return new TickList(options);
}

// What native code tells of zones to a list of boxes for them. A box shows the path: the name of the
// zone above, and its own. `noteOf` gives the second cell by the type of a zone.
function zoneBoxFunctions(zones, titleOf, noteOf) {
    const renameParent = (parent, name) =>
        zones.list.everyItem().forEach((zone) => zone.parent === parent && zones.set(zone.id, {title: titleOf(zone.name, name)}));
    return {
        wrapperInput_zone_add: function (id, parentId, name, parentName, type) {
            if (id > 1) {
                zones.add(id, {title: titleOf(name, parentName), name: name, parent: parentId, note: noteOf ? noteOf(type) : ""});
            }
        },
        wrapperInput_zone_setName: function (id, name, parentName) {
            zones.set(id, {title: titleOf(name, parentName), name: name});
            renameParent(id, name);
        },
        wrapperInput_zone_delete: function (id) {
            renameParent(id, "Все зоны");
            zones.remove(id);
        },
    };
}

function zonePath(name, parentName) {
    return parentName + "/" + name;
}
