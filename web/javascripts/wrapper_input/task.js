// The calendar of tasks: what the server will fire, in local time, of all units or of one.

(function () {
    const colours = {
        0: ["#5b6b7a", "#4c5a67"],
        1: ["#1cb814", "#00ae00"],
        2: ["#1cb814", "#00ae00"],
        3: ["#f0ab2d", "#ee9a00"],
        4: ["#f0ab2d", "#ee9a00"],
        5: ["#d92222", "#d40100"],
        6: ["#d92222", "#d40100"],
        7: ["#d92222", "#d40100"],
    };
    const tasks = new Map(); // on show, by their ids
    let isLoading = false;
    let timer = null;

    function eventsOf(id, task, from, to) {
        const colour = colours[task.group] || colours[0];
        return taskTime.occurrences(task, from, to).map((one) => ({
            id: id,
            title: "\n" + task.title,
            hint: hint(one, task.title),
            start: taskTime.stamp(one.start),
            end: one.end ? taskTime.stamp(one.end) : null,
            color: colour[0],
            borderColor: colour[1],
            allDay: false,
        }));
    }

    // "9:30–10:30 Weekly".
    function hint(one, title) {
        return taskTime.clock(one.start) + (one.end ? "–" + taskTime.clock(one.end) : "") + " " + title;
    }

    // Only for what is on show; what has begun the day before may reach into it.
    function eventsBetween(start, end, timezone, done) {
        const from = moment(start.format("YYYY-MM-DD")).subtract(1, "days");
        const to = moment(end.format("YYYY-MM-DD"));
        const found = [];
        tasks.forEach((task, id) => [].push.apply(found, eventsOf(id, task, from, to)));
        done(found);
    }

    function showZone() {
        const view = $("#main_calendar").fullCalendar("getView");
        $("#task_zone").text("Время: " + wrapper.task_zoneName() + ", " + taskTime.offsetText(moment(view.intervalStart.format("YYYY-MM-DD"))));
    }

    function ask() {
        clearTimeout(timer);
        timer = null;
        isLoading = true;
        callPage("task_reloadUnits");
        const unit = callPage("task_shownUnit") || 0;
        if (unit === 0) {
            tasks.clear();
            wrapper_Task_LoadList();
        } else {
            wrapper_Task_Load(unit);
        }
        isLoading = false;
    }

    // Whatever is told of a task: all is asked for again, once a picture.
    function askSoon() {
        if (!isLoading && timer === null) {
            timer = setTimeout(ask, 16);
        }
    }

    const follow = {};
    ["setTitle", "setType", "setFrequency", "setStartDateTime", "setEndDate", "setEndTime", "setEnabled", "setWeeklyDays"].forEach(
        (name) => (follow["wrapperInput_task_" + name] = (id, value) => askSoon())
    );

    page(
        Object.assign(follow, {
            task_showUnit: ask,
            task_showZone: showZone,
            wrapperInput_task_initScheduler: () => tasks.clear(),
            wrapperInput_task_clean: () => tasks.clear(),
            wrapperInput_task_add: function (id, title, group, frequency, startDate, startTime, days, endDate, endTime) {
                if (!isLoading) {
                    askSoon();
                    return;
                }
                tasks.set(id, {
                    title: title,
                    group: group,
                    frequency: frequency,
                    startDate: startDate,
                    startTime: startTime,
                    days: days,
                    endDate: endDate,
                    endTime: endTime,
                });
            },
            wrapperInput_task_buildScheduler: function () {
                $("#main_calendar").fullCalendar("refetchEvents");
                showZone();
            },
            wrapperInput_task_delete: function (id) {
                if (tasks.delete(id)) {
                    $("#main_calendar").fullCalendar("refetchEvents");
                }
            },
        })
    );

    $("#main_calendar").fullCalendar({
        lang: "ru",
        header: {left: "prev,next today", center: "title", right: "month,basicWeek,basicDay"},
        defaultView: "basicWeek",
        timeFormat: "H:mm",
        editable: false,
        windowResizeDelay: 300,
        aspectRatio: 1,
        contentHeight: () => $("#main_calendar").parent().height() - 50,
        defaultDate: moment(),
        events: eventsBetween,
        viewRender: showZone,
        eventAfterAllRender: function (view) {
            if (view.name === "basicDay") {
                // The library formats piece by piece, without the case that a month takes in a date.
                $("#main_calendar .fc-center h2").text(moment(view.intervalStart.format("YYYY-MM-DD")).format("LL"));
            }
        },
        eventRender: function (event, element) {
            element[0].title = event.hint;
        },
    });
    $("#main").on("leave", function () {
        clearTimeout(timer);
        $("#main_calendar").fullCalendar("destroy");
    });
    setTimeout(() => $("#main_calendar").length && ask(), 200);
})();
