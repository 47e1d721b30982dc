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

// The rows of the fields below `place`, whose ids begin with `prefix`.
class TaskFields {
    constructor(place, prefix, dayPrefix) {
        this.prefix = prefix;
        const type = $("<select>").attr("id", prefix + "type");
        taskTypes.forEach((one) => type.append(new Option(one[1], one[0])));
        this.row(place, "Тип", $("<span class='panel_field'>").append(type));
        const days = this.row(place, "День недели", $("<span class='panel_value'>")).attr("id", prefix + "week_day_row");
        this.days = new DaysField(days.find(".panel_value"), dayPrefix);
        this.row(place, "Время старта", this.input("time", "чч:мм"));
        this.row(place, "Дата начала повтора", this.input("date", "гггг-мм-дд"));
        this.row(place, "Время остановки", this.input("stop", "чч:мм"));
        this.row(place, "Дата окончания повтора", this.input("end", "гггг-мм-дд")).addClass(prefix + "end_row");
        this.note = $("<div class='task_zone quiet'>").appendTo(place);
        $(this.field("time") + "," + this.field("date") + "," + this.field("stop")).on("input", () => this.showNote());
        this.zone = wrapper.task_zoneName();
    }

    row(place, label, content) {
        return $("<div class='panel_row form_field'>").append($("<span class='panel_label'>").text(label), content).appendTo(place);
    }

    input(name, hint) {
        return $("<input class='form-control digits' autocomplete='off'>").attr({id: this.prefix + name, placeholder: hint});
    }

    field(name) {
        return "#" + this.prefix + name;
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

    // What is wrong with a field; "" where nothing is.
    timeError() {
        return taskTime.isTime(this.text("time")) ? "" : "Время в виде чч:мм";
    }

    dateError() {
        return taskTime.isDate(this.text("date")) ? "" : "Дата в виде гггг-мм-дд";
    }

    stopError() {
        const stop = this.text("stop");
        if (stop === "") {
            return "";
        }
        return !taskTime.isTime(stop) ? "Время в виде чч:мм" : stop === this.text("time") ? "Остановка совпадает со стартом" : "";
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
