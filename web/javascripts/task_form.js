// The fields of when a task happens, in the form and in the dialog of a new one.

const taskTypes = [
    ["once", "Одноразовые"],
    ["daily", "Ежедневные"],
    ["weekly", "Еженедельные"],
    ["monthly", "Ежемесячные"],
    ["annually", "Ежегодные"],
];

const dayButtons = [
    ["monday", "Пн"],
    ["tuesday", "Вт"],
    ["wednesday", "Ср"],
    ["thursday", "Чт"],
    ["friday", "Пт"],
    ["saturday", "Сб"],
    ["sunday", "Вс"],
];

// The day buttons as a part of a form. The last one that is on can't be turned off.
class DaysField {
    constructor(place, prefix) {
        this.prefix = prefix;
        this.stored = null;
        this.foreign = $.noop;
        const box = $("<div class='btn-group'>").appendTo(place);
        dayButtons.forEach((day) =>
            $("<button type='button' class='btn btn-default day_button'>")
                .attr("id", prefix + day[0])
                .text(day[1])
                .on("click", (event) => this.toggle($(event.currentTarget)))
                .appendTo(box)
        );
    }

    button(name) {
        return $("#" + this.prefix + name);
    }

    toggle(button) {
        if (!button.hasClass("active") || this.value().length > 1) {
            button.toggleClass("active");
        }
    }

    value() {
        return dayButtons.map((day) => day[0]).filter((name) => this.button(name).hasClass("active"));
    }

    show(days) {
        dayButtons.forEach((day) => this.button(day[0]).toggleClass("active", days.indexOf(day[0]) >= 0));
    }

    store(days) {
        const isOwn = this.isTouched();
        this.stored = days;
        if (!isOwn) {
            this.show(days);
        } else if (!this.isTouched()) {
            this.foreign();
        }
    }

    isTouched() {
        return this.stored !== null && this.value().join() !== this.stored.join();
    }

    reset() {
        this.show(this.stored || []);
    }

    begin() {
        this.stored = null;
    }

    take() {
        this.stored = this.value();
    }
}

// What a field of a moment takes, however short: "9", "930", "9.30" for a time, "2.3", "2.3.26",
// "20260302" for a date. What is none stays as it is typed, to be marked.
const timeField = {
    hint: "чч:мм",
    form: "HH:mm",
    whole: function (text) {
        const parts = /^(\d{1,2})(?:[:., -]?(\d{2}))?$/.exec(text.trim());
        return parts ? ("0" + parts[1]).slice(-2) + ":" + (parts[2] || "00") : text.trim();
    },
    unit: (caret) => (caret < 3 ? "hours" : "minutes"),
};

const dateField = {
    hint: "гггг-мм-дд",
    form: "YYYY-MM-DD",
    whole: function (text) {
        const date = moment(text.trim(), ["YYYY-MM-DD", "YYYYMMDD", "D.M.YYYY", "D.M.YY", "D.M"], true);
        return date.isValid() ? date.format("YYYY-MM-DD") : text.trim();
    },
    unit: (caret) => (caret < 5 ? "years" : caret < 8 ? "months" : "days"),
};

function putMoment(field, text) {
    if (field.value !== text) {
        $(field).val(text).trigger("input");
    }
}

// Up and Down count on what the caret stands at, the empty field from now.
function stepMoment(event, kind) {
    const step = {38: 1, 40: -1}[event.which] || 0;
    const field = event.target;
    const at = field.value === "" ? moment() : moment.utc(kind.whole(field.value), kind.form, true);
    if (step !== 0 && at.isValid()) {
        const caret = field.selectionStart;
        putMoment(field, (field.value === "" ? at : at.add(step, kind.unit(caret))).format(kind.form));
        field.setSelectionRange(caret, caret);
        event.preventDefault();
    }
}

// The rows of the fields below `place`, whose ids begin with `prefix`.
class TaskFields {
    constructor(place, prefix, dayPrefix) {
        this.prefix = prefix;
        const type = $("<select>").attr("id", this.id("type"));
        taskTypes.forEach((one) => type.append(new Option(one[1], one[0])));
        this.row(place, "Тип", $("<span class='panel_field'>").append(type));
        const days = this.row(place, "День недели", $("<span class='panel_value'>")).attr("id", this.id("week_day_row"));
        this.days = new DaysField(days.find(".panel_value"), dayPrefix);
        this.row(place, "Время старта", this.input("time", timeField));
        this.row(place, "Дата начала повтора", this.input("date", dateField));
        this.row(place, "Время остановки", this.input("stop", timeField));
        this.row(place, "Дата окончания повтора", this.input("end", dateField)).addClass(prefix + "end_row");
        this.note = $("<div class='task_zone quiet'>").appendTo(place);
        $(this.field("time") + "," + this.field("date") + "," + this.field("stop")).on("input", () => this.showNote());
        this.zone = wrapper.task_zoneName();
    }

    row(place, label, content) {
        return $("<div class='panel_row form_field'>").append($("<span class='panel_label'>").text(label), content).appendTo(place);
    }

    input(name, kind) {
        return $("<input class='form-control digits' autocomplete='off'>")
            .attr({id: this.id(name), placeholder: kind.hint})
            .on("change", (event) => putMoment(event.target, kind.whole(event.target.value)))
            .on("keydown", (event) => stepMoment(event, kind));
    }

    // "task_time" in the form, "addTaskTime" in the dialog.
    id(name) {
        return this.prefix + (this.prefix.endsWith("_") ? name : name.charAt(0).toUpperCase() + name.substr(1));
    }

    field(name) {
        return "#" + this.id(name);
    }

    text(name) {
        return $(this.field(name)).val().trim();
    }

    // Which rows a kind of task has.
    showType(type) {
        $(this.field("week_day_row")).toggle(type === "weekly");
        $("." + this.prefix + "end_row").toggle(type !== "once");
        this.type = type;
        this.showNote();
    }

    get local() {
        return {date: this.text("date"), time: this.text("time"), stop: this.text("stop"), days: this.days.value()};
    }

    // Which zone is shown, and where the server's day is another than the typed one.
    showNote() {
        const local = this.local;
        const at = moment(local.date + " " + local.time, "YYYY-MM-DD HH:mm", true);
        const sent = taskTime.toServer(Object.assign({}, local, {stop: ""}));
        const utcDate = sent ? sent.start.substr(0, 10) : local.date;
        const isOther = (this.type === "monthly" || this.type === "annually") && utcDate !== local.date;
        this.note.text(
            "Время: " + this.zone + ", " + taskTime.offsetText(at.isValid() ? at : moment()) +
                (isOther ? ". Сервер повторяет по UTC: день начала " + utcDate : "")
        );
    }

    // Whether what the form sends comes back as it was typed: not where summer time skips the hour,
    // or takes a stop of the next day more than a day away from the start.
    comesBack(name) {
        const local = this.local;
        const sent = taskTime.toServer(local);
        if (!sent) {
            return true;
        }
        const start = sent.start.split(" ");
        return taskTime.toForm(start[0], start[1], sent.endTime, "")[name] === local[name];
    }

    // What is wrong with a field; "" where nothing is.
    timeError() {
        if (!taskTime.isTime(this.text("time"))) {
            return "Время в виде чч:мм";
        }
        return this.comesBack("time") ? "" : "В этот день такого времени нет: перевод часов";
    }

    dateError() {
        return taskTime.isDate(this.text("date")) ? "" : "Дата в виде гггг-мм-дд";
    }

    stopError() {
        const stop = this.text("stop");
        if (stop === "") {
            return "";
        }
        if (!taskTime.isTime(stop)) {
            return "Время в виде чч:мм";
        }
        if (stop === this.text("time")) {
            return "Остановка совпадает со стартом";
        }
        return this.comesBack("stop") ? "" : "Между стартом и остановкой перевод часов";
    }

    endError() {
        const end = this.text("end");
        if (end === "" || this.type === "once") {
            return "";
        }
        return !taskTime.isDate(end) ? "Дата в виде гггг-мм-дд" : end < this.text("date") ? "Окончание раньше начала" : "";
    }

    // Marks what is wrong; answers whether nothing is.
    check() {
        return ["time", "date", "stop", "end"].filter((name) => !markField(this.field(name), this[name + "Error"]())).length === 0;
    }

    // What travels; the end of the repeats as it is typed.
    get toServer() {
        return Object.assign(taskTime.toServer(this.local), {endDate: this.type === "once" ? "" : this.text("end")});
    }
}
