// A list of many items of equal size, a wall of tiles or a column of rows: what is known of each
// item, which of them pass the filter, which are ticked, which one is on show. `ItemView` decides
// which of them have an element.
//
// Options:
//   list       the element that the items stand in
//   scroller   the element that scrolls it
//   region     the region whose "leave" ends the list
//   template   the mark-up of an item without texts; `data-part` names its parts
//   prefix     begins the ids: prefix + item, and prefix + part + "_" + item
//   paint      {field: [function (parts, item), …]}: what shows a field; `parts.root` is the element
//   actions    {name: function (id)}: what a click into a part with that `data-action` does; "open"
//              is that of the rest of the item, and of Enter; a list with "tick" ticks by Space
//   tickable   function (item): whether it may be ticked; without it none may
//   changed    function (): called when an item came or went, or passes or is ticked otherwise

class ItemList {
    constructor(options) {
        this.options = options;
        this.items = new Map(); // in order of arrival
        this.passing = []; // the items that pass the filter, in that order; null after it changed
        this.filter = () => true;
        this.counts = {all: 0, shown: 0, ticked: 0, tickedHidden: 0};
        this.active = null;
        this.arrivals = 0;
        this.view = new ItemView(this, options);
        $(options.region).on("leave", () => this.destroy());
    }

    has(id) {
        return this.items.has(id);
    }

    get(id) {
        return this.items.get(id);
    }

    // The first item of all; undefined in an empty list.
    first() {
        return this.items.values().next().value;
    }

    // The items that the filter lets through, in order of arrival.
    shown() {
        if (this.passing === null) {
            this.passing = Array.from(this.items.values()).filter((item) => item.passes);
        }
        return this.passing;
    }

    // Adds an item with its fields. One that is known keeps its place and its fields.
    add(id, fields) {
        if (this.has(id)) {
            return;
        }
        const item = Object.assign({id: id, number: ++this.arrivals, ticked: false, active: false, element: null}, fields);
        item.passes = this.filter(item);
        this.items.set(id, item);
        if (item.passes && this.passing) {
            this.passing.push(item);
        }
        this.count(item, 1);
        this.view.added(item);
        this.options.changed();
    }

    remove(id) {
        const item = this.get(id);
        if (!item) {
            return;
        }
        this.view.removing(item);
        this.count(item, -1);
        this.items.delete(id);
        this.passing = null;
        this.active = this.active === item ? null : this.active;
        this.view.removed();
        this.options.changed();
    }

    // Removes all items at once.
    clear() {
        this.view.clear();
        this.items.clear();
        this.passing = [];
        this.active = null;
        this.counts = {all: 0, shown: 0, ticked: 0, tickedHidden: 0};
        this.options.changed();
    }

    // A field of an item. What is known already, and what nobody sees, touches no element.
    set(id, field, value) {
        const item = this.get(id);
        if (!item || item[field] === value) {
            return;
        }
        this.count(item, -1);
        item[field] = value;
        const passes = this.filter(item);
        const moves = passes !== item.passes;
        item.passes = passes;
        this.count(item, 1);
        this.view.paint(item, field);
        if (moves) {
            this.passing = null;
            this.view.passed(item);
        }
        if (moves || field === "ticked") {
            this.options.changed();
        }
    }

    count(item, step) {
        this.counts.all += step;
        this.counts.shown += item.passes ? step : 0;
        this.counts.ticked += item.ticked ? step : 0;
        this.counts.tickedHidden += item.ticked && !item.passes ? step : 0;
    }

    // Shows the items for which `filter` is true, from their beginning.
    setFilter(filter) {
        this.filter = filter;
        this.counts = {all: 0, shown: 0, ticked: 0, tickedHidden: 0};
        this.items.forEach((item) => {
            item.passes = filter(item);
            this.count(item, 1);
        });
        this.passing = null;
        this.view.filtered();
        this.options.changed();
    }

    mayTick(item) {
        return Boolean(this.options.tickable && this.options.tickable(item));
    }

    tick(id, isTicked) {
        const item = this.get(id);
        if (item && (!isTicked || this.mayTick(item))) {
            this.set(id, "ticked", isTicked);
        }
    }

    toggleTick(id) {
        const item = this.get(id);
        if (item) {
            this.tick(id, !item.ticked);
        }
    }

    // Ticks many items; those that may not be ticked stay as they are.
    tickAll(items, isTicked) {
        const changed = this.options.changed;
        this.options.changed = () => {};
        items.forEach((item) => this.tick(item.id, isTicked));
        this.options.changed = changed;
        changed();
    }

    // The ids of the ticked items, in order of arrival.
    ticks() {
        return this.counts.ticked === 0 ? [] : this.everyItem().filter((item) => item.ticked).map((item) => item.id);
    }

    everyItem() {
        return Array.from(this.items.values());
    }

    // Makes an item the one on show; none for an id that isn't there.
    activate(id) {
        const before = this.active;
        this.active = this.get(id) || null;
        if (before && before !== this.active) {
            this.set(before.id, "active", false);
        }
        if (this.active) {
            this.set(id, "active", true);
        }
    }

    // Scrolls as far as it takes to see an item, at the next turn.
    reveal(id) {
        const item = this.get(id);
        if (item && item.passes) {
            this.view.revealSoon(item);
        }
    }

    // Frees all that the list holds.
    destroy() {
        this.view.destroy();
        this.items.clear();
        this.passing = [];
        this.active = null;
    }
}

function itemList(options) {
    return new ItemList(Object.assign({changed: () => {}, actions: {}, paint: {}}, options));
}
