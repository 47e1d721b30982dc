// The elements of an `ItemList`. Up to 200 items each one has its element; of a longer list those
// have one that stand near the window, besides the one on show, the one with the focus and the one
// under a pressed button. Two spacers keep the place of the others, so the scroll bar is right.

const everyElement = 200; // items up to which each one has its element
const atFirst = 60; // elements of a long list before its cells could be measured

let viewsSoFar = 0; // names the handlers of a view at the window

class ItemView {
    constructor(list, options) {
        this.list = list;
        this.options = options;
        this.place = $(options.list).addClass("item_list")[0];
        this.scroller = $(options.scroller)[0];
        this.pattern = $.parseHTML(options.template.trim())[0];
        this.painters = new Set([].concat.apply([], Object.keys(options.paint).map((field) => options.paint[field])));
        this.above = this.addSpacer();
        this.below = this.addSpacer();
        this.present = new Set(); // the items that have an element
        this.cell = null; // {height, columns, width} of what the items stand in, once measured
        this.topIndex = 0; // among the shown items, the first in the window
        this.pressed = null;
        this.revealing = null; // the item that the next update scrolls to
        this.stop = null; // the item that Tab leads to
        this.timer = null;
        this.events = ".items" + ++viewsSoFar;
        this.listen();
    }

    addSpacer() {
        return $("<div class='item_spacer' style='height: 0px'>").appendTo(this.place)[0];
    }

    listen() {
        $(this.scroller).on("scroll" + this.events, () => this.update());
        $(window).on("resize" + this.events, () => this.resized());
        $(document).on("mouseup" + this.events, () => (this.pressed = null));
        $(this.place).closest(".modal").on("shown.bs.modal" + this.events, () => this.update());
        $(this.place)
            .on("mousedown", (event) => (this.pressed = this.itemAt(event.target)))
            .on("click", (event) => this.clicked(event))
            .on("focusin", (event) => this.leadTabTo(this.itemAt(event.target)))
            .on("keydown", (event) => itemKey(this, event));
    }

    destroy() {
        clearTimeout(this.timer);
        $(this.scroller).off(this.events);
        $(window).off(this.events);
        $(document).off(this.events);
        $(this.place).closest(".modal").off(this.events);
        $(this.place).off();
        this.present.clear();
        this.pressed = this.stop = this.revealing = null;
    }

    get isLong() {
        return this.list.items.size > everyElement;
    }

    // The item whose element holds a node.
    itemAt(node) {
        let element = node;
        while (element && element.parentNode !== this.place) {
            element = element.parentNode;
        }
        return (element && element.item) || null;
    }

    clicked(event) {
        const item = this.itemAt(event.target);
        const part = event.target.closest("[data-action]");
        const action = this.options.actions[part && this.place.contains(part) ? part.getAttribute("data-action") : "open"];
        if (item && action) {
            action(item.id, event);
        }
    }

    // Elements.

    build(item) {
        const element = this.pattern.cloneNode(true);
        const parts = {root: element};
        const named = element.querySelectorAll("[data-part]");
        for (let index = 0; index < named.length; ++index) {
            const name = named[index].getAttribute("data-part");
            parts[name] = named[index];
            named[index].id = this.options.prefix + name + "_" + item.id;
        }
        const own = element.getAttribute("data-part");
        element.id = this.options.prefix + (own ? own + "_" : "") + item.id;
        element.tabIndex = -1;
        element.item = item;
        item.element = element;
        item.parts = parts;
        this.present.add(item);
        this.painters.forEach((painter) => painter(parts, item));
        element.classList.toggle("hidden", !item.passes);
    }

    paint(item, field) {
        if (item.element) {
            (this.options.paint[field] || []).forEach((painter) => painter(item.parts, item));
        }
    }

    drop(item) {
        item.element.remove(); // nothing of jQuery hangs on it
        item.element = item.parts = null;
        this.present.delete(item);
    }

    // What the list tells.

    added(item) {
        if (this.isLong) {
            this.updateSoon();
            return;
        }
        this.build(item);
        this.place.insertBefore(item.element, this.below);
        this.keepStop();
    }

    // The focus goes on to a neighbour.
    removing(item) {
        if (item.element && item.element.contains(document.activeElement)) {
            const shown = this.list.shown();
            const index = shown.indexOf(item);
            this.focus(shown[index + 1] || shown[index - 1]);
        }
        if (item.element) {
            this.drop(item);
        }
        this.pressed = this.pressed === item ? null : this.pressed;
        this.revealing = this.revealing === item ? null : this.revealing;
        this.stop = this.stop === item ? null : this.stop;
    }

    clear() {
        this.present.forEach((item) => this.drop(item));
        this.pressed = this.stop = this.revealing = null;
        this.updateSoon();
    }

    removed() {
        if (this.isLong || this.present.size < this.list.items.size) {
            this.updateSoon();
        } else {
            this.keepStop();
        }
    }

    passed(item) {
        if (item.element) {
            item.element.classList.toggle("hidden", !item.passes);
        }
        this.removed();
    }

    filtered() {
        this.present.forEach((item) => item.element.classList.toggle("hidden", !item.passes));
        this.scroller.scrollTop = 0;
        this.update();
    }

    // Which items have an element.

    updateSoon() {
        if (this.timer === null) {
            this.timer = setTimeout(() => this.update(), 0);
        }
    }

    update() {
        clearTimeout(this.timer);
        this.timer = null;
        this.measure();
        if (this.revealing) {
            this.scrollTo(this.revealing);
        }
        const range = this.isLong ? this.nearRange() : null;
        const wanted = range ? this.withKept(this.list.shown().slice(range.first, range.last)) : this.list.everyItem();
        this.showOnly(wanted);
        this.fillSpacers(range);
        this.keepStop();
    }

    // The items that keep their element wherever they are, in their places among the near ones.
    withKept(near) {
        const kept = [this.list.active, this.itemAt(document.activeElement), this.pressed];
        const wanted = new Set(near.concat(kept.filter(Boolean)));
        return Array.from(wanted).sort((one, other) => one.number - other.number);
    }

    // An element that stays is never moved: it would lose the focus.
    showOnly(wanted) {
        const staying = new Set(wanted);
        Array.from(this.present)
            .filter((item) => !staying.has(item))
            .forEach((item) => this.drop(item));
        let next = this.above.nextSibling;
        wanted.forEach((item) => {
            if (!item.element) {
                this.build(item);
                this.place.insertBefore(item.element, next);
            } else {
                next = item.element.nextSibling;
            }
        });
    }

    // Space for the items without an element, and the exact place of each one far from the others.
    fillSpacers(range) {
        const shown = this.list.shown();
        const height = range && this.cell ? this.cell.height : 0;
        const columns = range && this.cell ? this.cell.columns : 1;
        this.above.style.height = range ? (range.first / columns) * height + "px" : "0px";
        this.below.style.height = range ? Math.ceil((shown.length - range.last) / columns) * height + "px" : "0px";
        const near = new Set(range ? shown.slice(range.first, range.last) : shown);
        this.present.forEach((item) => this.placeFar(item, item.passes && !near.has(item)));
    }

    placeFar(item, isFar) {
        if (isFar || item.element.style.position) {
            const index = isFar ? this.list.shown().indexOf(item) : 0;
            $(item.element).css({
                position: isFar ? "absolute" : "",
                top: isFar ? this.above.offsetTop + Math.floor(index / this.cell.columns) * this.cell.height + "px" : "",
                left: isFar ? this.above.offsetLeft + (index % this.cell.columns) * this.cell.width + "px" : "",
            });
        }
    }

    // Geometry: `offset` is where the list begins in what the scroller scrolls.

    measure() {
        const sample = Array.from(this.present).find((item) => item.passes && !item.element.style.position);
        const box = sample && sample.element.getBoundingClientRect();
        if (box && box.height > 0) {
            const columns = Math.max(1, Math.floor(this.above.offsetWidth / box.width + 0.05));
            this.cell = {height: box.height, width: box.width, columns: columns};
        }
    }

    get offset() {
        const top = this.above.getBoundingClientRect().top - this.scroller.getBoundingClientRect().top;
        return top + this.scroller.scrollTop;
    }

    // The shown items in the window and one window's height above and below, by whole rows.
    nearRange() {
        const length = this.list.shown().length;
        if (!this.cell) {
            if (this.place.offsetParent !== null) {
                this.updateSoon(); // what is hidden can't be measured
            }
            return {first: 0, last: Math.min(length, atFirst)};
        }
        const {height, columns} = this.cell;
        const seen = this.scroller.clientHeight;
        const rows = Math.ceil(length / columns);
        const bottom = Math.max(0, rows * height - seen);
        const top = Math.min(Math.max(0, this.scroller.scrollTop - this.offset), bottom);
        this.topIndex = Math.floor(top / height) * columns;
        return {
            first: Math.max(0, Math.floor((top - seen) / height)) * columns,
            last: Math.min(length, Math.ceil((top + 2 * seen) / height) * columns),
        };
    }

    // A window of another size has other columns: what stood at its top stays there.
    resized() {
        const before = this.cell;
        const top = this.topIndex;
        this.measure();
        if (this.isLong && before && this.cell.columns !== before.columns) {
            const row = Math.floor(top / this.cell.columns);
            this.fillSpacers({first: row * this.cell.columns, last: this.list.shown().length});
            this.scroller.scrollTop = top === 0 ? 0 : row * this.cell.height + this.offset;
        }
        this.update();
    }

    revealSoon(item) {
        this.revealing = item;
        this.updateSoon();
    }

    reveal(item) {
        if (!this.cell) {
            this.update();
        }
        this.revealing = item;
        this.update();
    }

    scrollTo(item) {
        this.revealing = null;
        const row = Math.floor(this.list.shown().indexOf(item) / (this.cell ? this.cell.columns : 1));
        const height = this.cell ? this.cell.height : 0;
        const top = this.offset + row * height;
        const seen = this.scroller.clientHeight;
        if (top < this.scroller.scrollTop) {
            this.scroller.scrollTop = row === 0 ? 0 : top;
        } else if (top + height > this.scroller.scrollTop + seen) {
            this.scroller.scrollTop = top + height - seen;
        }
    }

    // Keys: one item of the list can be reached by Tab, the arrows lead from it to the others.

    leadTabTo(item) {
        if (this.stop && this.stop.element) {
            this.stop.element.tabIndex = -1;
        }
        this.stop = item;
        if (item) {
            item.element.tabIndex = 0;
        }
    }

    keepStop() {
        if (!this.stop || !this.stop.element || !this.stop.passes) {
            const shown = this.list.shown();
            const item = shown[this.topIndex] || shown[0];
            this.leadTabTo(item && item.element ? item : null);
        } else {
            this.stop.element.tabIndex = 0;
        }
    }

    focus(item) {
        if (item) {
            this.reveal(item);
            item.element.focus();
        }
    }
}

// How far a key leads among the shown items.
function itemStep(view, key) {
    const columns = view.cell ? view.cell.columns : 1;
    const rows = view.cell ? Math.max(1, Math.floor(view.scroller.clientHeight / view.cell.height)) : 1;
    const end = view.list.shown().length;
    return {35: end, 36: -end, 33: -rows * columns, 34: rows * columns, 37: -1, 38: -columns, 39: 1, 40: columns}[key];
}

function itemKey(view, event) {
    const item = view.itemAt(event.target);
    if (!item || event.target !== item.element || event.ctrlKey || event.altKey || event.metaKey) {
        return;
    }
    const step = itemStep(view, event.which);
    const isTick = event.which === 32 && view.options.actions.tick;
    const action = isTick ? view.options.actions.tick : view.options.actions.open;
    if (step !== undefined) {
        const shown = view.list.shown();
        const index = shown.indexOf(item) + step;
        view.focus(shown[Math.max(0, Math.min(shown.length - 1, index))]);
    } else if ((event.which === 13 || event.which === 32) && action) {
        action(item.id, event);
    } else {
        return;
    }
    event.preventDefault();
}
