// A list of rows of which one is active, and shown in the form beside it.
//
// Options:
//   table    "#userList": the table whose body holds the rows
//   prefix   begins the ids of the rows: "" or "zone_"
//   active   the class of the active row: "user_active"
//   cells    function (fields): the cells of a row, [{name: "title", text: "…", class: "…"}], whose
//            ids are the name, "_" and the row's id
//   buttons  [{icon, title, action: function (id, fields), shown: function (fields)}]; a quiet one
//            destroys nothing
//   select   function (id): asks for what the active row holds
//   emptied  function (): the last row has gone
//   empty    what an empty list says

const rowPortion = 200; // rows that get elements at a time

class ListPage {
    constructor(options) {
        this.options = options;
        this.table = $(options.table);
        this.body = this.table.find("tbody");
        this.rows = new Map(); // in order of arrival: {fields, element}; those with elements come first
        this.built = 0;
        this.wanted = rowPortion;
        this.activeId = null;
        this.empty = $("<div class='empty_list'>").text(options.empty).insertAfter(this.table);
        this.listen();
    }

    listen() {
        this.body.on("click", "tr", (event) => {
            const id = $(event.currentTarget).data("id");
            if (id === this.activeId) {
                this.options.select(id);
            } else {
                forms.leave(() => this.open(id));
            }
        });
        this.body.on("click", ".row_button", (event) => {
            event.stopPropagation();
            const id = $(event.target).closest("tr").data("id");
            $(event.currentTarget).data("button").action(id, this.get(id));
        });
        const scroller = this.table.parent();
        scroller.on("scroll", () => {
            if (scroller[0].scrollHeight - scroller.scrollTop() < 3 * scroller.height()) {
                this.build(this.built + rowPortion);
            }
        });
        $(document).on("keydown.list_page", (event) => this.walk(event));
        $("#main").on("leave", () => $(document).off("keydown.list_page"));
    }

    has(id) {
        return this.rows.has(id);
    }

    // The fields of a row; undefined for one that isn't there.
    get(id) {
        return this.has(id) ? this.rows.get(id).fields : undefined;
    }

    isActive(id) {
        return this.has(id) && this.activeId === id;
    }

    // Adds a row; one that is there stays as it is. The first becomes active.
    add(id, fields) {
        if (this.has(id)) {
            return;
        }
        this.rows.set(id, {fields: fields, element: null});
        this.empty.hide();
        this.build(this.wanted);
        if (this.activeId === null) {
            this.activate(id);
        }
    }

    // Changes some fields of a row.
    set(id, fields) {
        if (this.has(id)) {
            const row = this.rows.get(id);
            Object.assign(row.fields, fields);
            this.paint(id, row);
        }
    }

    // Takes a row away. If it was the active one the first takes its place, also if that one has
    // gone from the mirror too: then its own removal is on its way.
    remove(id) {
        const row = this.rows.get(id);
        if (!row) {
            return;
        }
        const hadFocus = row.element && (row.element.is(":focus") || row.element.find(":focus").length > 0);
        this.rows.delete(id);
        if (row.element) {
            row.element.remove();
            --this.built;
            this.build(this.wanted);
        }
        if (this.activeId === id) {
            this.activeId = null;
            this.openFirst(hadFocus);
        }
        this.empty.toggle(this.rows.size === 0);
    }

    // Takes all rows away, to be filled anew.
    clear() {
        this.rows.clear();
        this.body.empty();
        this.built = 0;
        this.activeId = null;
        this.empty.show();
    }

    openFirst(hadFocus) {
        if (this.rows.size === 0) {
            (this.options.emptied || $.noop)();
            return;
        }
        this.open(this.rows.keys().next().value);
        if (hadFocus) {
            this.element(this.activeId).focus();
        }
    }

    // Makes a row the active one and asks for what it holds.
    open(id) {
        this.activate(id);
        this.options.select(id);
    }

    activate(id) {
        if (!this.has(id)) {
            return;
        }
        this.mark(this.activeId, false);
        this.activeId = id;
        while (!this.rows.get(id).element) {
            this.build(this.built + rowPortion);
        }
        this.mark(id, true);
    }

    mark(id, isActive) {
        if (this.has(id) && this.element(id)) {
            this.element(id)
                .toggleClass("row_active " + this.options.active, isActive)
                .attr("tabindex", isActive ? 0 : -1)
                .find(".row_button")
                .attr("tabindex", isActive ? 0 : -1);
        }
    }

    element(id) {
        return this.rows.get(id).element;
    }

    // Gives elements to the rows up to a number.
    build(number) {
        this.wanted = Math.max(this.wanted, number);
        if (this.built >= Math.min(this.wanted, this.rows.size)) {
            return;
        }
        const fresh = document.createDocumentFragment();
        for (const [id, row] of this.rows) {
            if (this.built >= this.wanted) {
                break;
            }
            if (!row.element) {
                row.element = $("<tr tabindex='-1'>").attr("id", this.options.prefix + id).data("id", id);
                this.paint(id, row);
                fresh.appendChild(row.element[0]);
                ++this.built;
            }
        }
        this.body.append(fresh);
    }

    paint(id, row) {
        if (!row.element) {
            return;
        }
        const cells = this.options.cells(row.fields).map((cell) =>
            $("<td>")
                .attr({id: cell.name + "_" + id, title: cell.text})
                .addClass(cell.class || "ellipsis")
                .text(cell.text)
        );
        if (row.element.children().length === 0) {
            row.element.append(cells);
            if (this.options.buttons.length) {
                row.element.append($("<td class='column_button'>").append(this.buttons(row.fields)));
            }
        } else {
            cells.forEach((cell, index) => row.element.children().eq(index).replaceWith(cell));
        }
    }

    buttons(fields) {
        return this.options.buttons
            .filter((button) => !button.shown || button.shown(fields))
            .map((button) =>
                $("<button type='button' class='row_button' tabindex='-1'>")
                    .attr("title", button.title)
                    .toggleClass("quiet_button", Boolean(button.quiet))
                    .data("button", button)
                    .append($("<i class='fa'>").addClass(button.icon))
            );
    }

    // Up and down walk the list that the mouse is over, or that has the focus.
    walk(event) {
        const step = {38: "prev", 40: "next"}[event.which];
        const hasFocus = this.table.find(document.activeElement).length > 0;
        const isMeant = hasFocus || document.querySelector(this.options.table + ":hover") !== null;
        if (!step || !isMeant || event.isDefaultPrevented() || this.activeId === null) {
            return;
        }
        event.preventDefault();
        this.build(this.built + (step === "next" && this.element(this.activeId).next().length === 0 ? rowPortion : 0));
        const other = this.element(this.activeId)[step]("tr");
        if (other.length) {
            forms.leave(() => this.step(other, hasFocus));
        }
    }

    step(row, hasFocus) {
        this.open(row.data("id"));
        row[0].scrollIntoView({block: "nearest"});
        if (hasFocus) {
            row.focus();
        }
    }
}

function listPage(options) {
    return new ListPage(options);
}
