// A form of the record that is active in a list.
//
// Options:
//   fields   {title: "#user_title"}: what the record has, and where it is edited
//   parts    [tickList(…), switchField(…)]: what is no single field: knows by itself what the
//            mirror holds and what the operator has changed
//   secrets  ["#user_password"]: fields that start empty and are sent only if filled in
//   rules    {title: function (value): a word for what is wrong, "" where nothing is}
//   save     function (values, id): sends; answers false if there was nothing to send
//   request  what the save waits for, "user/edit"; a save in several steps has an array of them, or a
//            function that gives it: each is sent when the one before has succeeded

// The form on show, which may hold what isn't saved yet.
const forms = (function () {
    const leavers = ".side_entry, .top_tab, #back, #menu_settings, #menu_admin, #menu_change_user, #menu_exit, .header_alarm";
    let current = null;
    let pending = null; // what waits for the operator's word: {id, go}

    // Does `go`, at once or when the operator has said what becomes of the changes.
    function leave(go) {
        if (!current || !current.isChanged()) {
            go();
        } else {
            pending = {id: current.id, go: go};
            modalUnsavedChanges();
        }
    }

    function goOn() {
        const go = pending && current && pending.id === current.id ? pending.go : $.noop;
        pending = null;
        return go;
    }

    function giveUp() {
        $("#modalUnsavedChanges").modal("hide");
        pending = null;
    }

    // A click that leads away from the form.
    window.addEventListener(
        "click",
        (event) => {
            const way = $(event.target).closest(leavers);
            if (way.length && current && current.isChanged()) {
                event.stopImmediatePropagation();
                event.preventDefault();
                leave(() => {
                    current.reset();
                    way.click();
                });
            }
        },
        true
    );

    return {
        leave: leave,
        set: function (form) {
            current = form;
            $("#main").on("leave", () => {
                giveUp();
                current = null;
            });
        },
        giveUp: giveUp,
        isOn: (form) => form === current,
        // The button "Сохранить".
        save: () => current && current.save(),
        saveFirst: function () {
            const go = goOn();
            current.save(go);
        },
        discard: function () {
            const go = goOn();
            current.reset();
            go();
        },
        stay: goOn,
    };
})();

class FormPage {
    constructor(options) {
        this.options = options;
        this.id = null;
        this.stored = {}; // what the mirror holds
        this.picked = {}; // what the operator has chosen in select boxes
        this.note = $("<div class='form_note' style='display: none'>")
            .text("Запись изменена на другом пульте")
            .insertAfter($(this.all()[0]).closest(".panel_box").find(".panel_title"));
        Object.keys(options.fields).forEach((name) => {
            $(options.fields[name]).on("select2:select", (event) => (this.picked[name] = event.target.value));
        });
        $(this.all().join()).on("input select2:select", function () {
            markField(this, "");
        });
        this.parts = options.parts || [];
        this.parts.forEach((part) => (part.foreign = () => this.note.show()));
        forms.set(this);
    }

    all() {
        const fields = this.options.fields;
        return Object.keys(fields)
            .map((name) => fields[name])
            .concat(this.options.secrets || []);
    }

    secrets() {
        return $((this.options.secrets || []).join());
    }

    // A select box may have no entry for what is stored, or none yet.
    value(name) {
        const field = $(this.options.fields[name]);
        if (field.is("select")) {
            return name in this.picked ? this.picked[name] : this.stored[name];
        }
        return field.val();
    }

    isTouched(name) {
        return this.value(name) !== this.stored[name];
    }

    isChanged() {
        const isTouched = Object.keys(this.stored).some((name) => this.isTouched(name));
        return this.id !== null && (isTouched || this.parts.some((part) => part.isTouched()) || this.secrets().is((index, field) => field.value !== ""));
    }

    // Shows what the mirror tells of a record: another one afresh, of the same one only what the
    // operator hasn't touched.
    show(id, values) {
        if (this.id !== id) {
            this.begin(id);
        }
        Object.keys(values).forEach((name) => {
            const isOwn = name in this.stored && this.isTouched(name);
            this.note.toggle(this.note.is(":visible") || (isOwn && values[name] !== this.stored[name] && values[name] !== this.value(name)));
            this.stored[name] = values[name];
            if (!isOwn) {
                this.put(name);
            }
        });
    }

    // What the mirror tells of these fields next is shown whatever the operator has typed there.
    forget(names) {
        names.forEach((name) => delete this.stored[name]);
    }

    // A record that has taken the place of another owes nothing to that one's changes.
    begin(id) {
        forms.giveUp();
        this.id = id;
        this.stored = {};
        this.parts.forEach((part) => part.begin());
        this.reset();
    }

    put(name) {
        delete this.picked[name];
        this.refresh(name);
        $(this.options.fields[name]).not("select").val(this.stored[name]);
    }

    // Shows what a select box holds, whose entries have changed.
    refresh(name) {
        $(this.options.fields[name]).filter("select").val(this.value(name)).trigger("change.select2");
    }

    // Takes back what the operator has changed.
    reset() {
        this.picked = {};
        this.secrets().val("");
        this.note.hide();
        this.all().forEach((field) => markField(field, ""));
        Object.keys(this.stored).forEach((name) => this.put(name));
        this.parts.forEach((part) => part.reset());
    }

    // Marks what is wrong; answers whether nothing is.
    check() {
        const rules = this.options.rules || {};
        return Object.keys(rules).filter((name) => !markField(this.options.fields[name], rules[name](this.value(name)))).length === 0;
    }

    // Sends the form, and calls `then` when the server has taken it.
    save(then) {
        if (this.id === null || answers.isAwaited("#save") || !this.check()) {
            return;
        }
        const id = this.id;
        const values = {};
        Object.keys(this.options.fields).forEach((name) => (values[name] = this.value(name)));
        const request = this.options.request;
        this.await([].concat(typeof request === "function" ? request() : request), () => {
            if (this.id === id && forms.isOn(this)) {
                this.taken(values);
                (then || $.noop)();
            }
        });
        if (this.options.save(values, id) === false) {
            answers.forget("#save");
        }
    }

    await(requests, done) {
        answers.wait(requests[0], "#save", (word) => {
            if (word === "success" && requests.length > 1 && forms.isOn(this)) {
                this.await(requests.slice(1), done);
            } else if (word === "success") {
                done();
            }
        });
    }

    taken(values) {
        Object.assign(this.stored, values);
        this.parts.forEach((part) => part.take());
        this.reset();
    }
}

function formPage(options) {
    return new FormPage(options);
}
