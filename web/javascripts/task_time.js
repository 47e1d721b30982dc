// When tasks happen. What the operator types and sees is local time, what travels is UTC: the start
// as a date and a time, the stop as a time, the days of a weekly task as names.

const taskTime = (function () {
    const dayNames = ["sunday", "monday", "tuesday", "wednesday", "thursday", "friday", "saturday"];
    const dayMilliseconds = 86400000;
    const dateForm = "YYYY-MM-DD";
    const timeForm = "HH:mm";
    const bothForm = dateForm + " " + timeForm;

    // The same days, so many days later in the week, from Monday on.
    function moveDays(days, step) {
        const moved = days.map((name) => dayNames[(dayNames.indexOf(name) + step + 7) % 7]);
        return dayNames.slice(1).concat(dayNames[0]).filter((name) => moved.indexOf(name) >= 0);
    }

    function splitDays(text) {
        return text.split(",").map((name) => name.trim()).filter((name) => dayNames.indexOf(name) >= 0);
    }

    // The moment of a date and a time of this zone, so many days later: the first one where the clock
    // is set back and shows the time twice.
    function localMoment(date, time, days) {
        const text = moment.utc(date, dateForm, true).add(days, "days").format(dateForm) + " " + time;
        const at = moment(text, bothForm, true);
        const first = [60, 30].map((back) => at.clone().subtract(back, "minutes")).filter((one) => one.format(bothForm) === text);
        return first[0] || at;
    }

    // How many days a moment's UTC date lies behind its local one: -1, 0 or 1.
    function shiftOf(local) {
        const utc = local.clone().utc();
        return Math.round((Date.UTC(utc.year(), utc.month(), utc.date()) - Date.UTC(local.year(), local.month(), local.date())) / dayMilliseconds);
    }

    // A date "YYYY-MM-DD" as a number of days, NaN for none.
    function dayNumber(text) {
        const parts = /^(\d{4})-(\d{2})-(\d{2})$/.exec(text);
        return parts ? Date.UTC(parts[1], parts[2] - 1, parts[3]) / dayMilliseconds : NaN;
    }

    function minutes(text) {
        const parts = /^(\d{1,2}):(\d{2})/.exec(text);
        return parts ? 60 * Number(parts[1]) + Number(parts[2]) : NaN;
    }

    function two(number) {
        return (number < 10 ? "0" : "") + number;
    }

    // The rule by which a day number has an occurrence.
    function ruleOf(task, first) {
        const start = new Date(first * dayMilliseconds);
        const days = splitDays(task.days);
        return {
            once: (day) => day === first,
            daily: () => true,
            weekly: (day) => days.indexOf(dayNames[new Date(day * dayMilliseconds).getUTCDay()]) >= 0,
            monthly: (day) => new Date(day * dayMilliseconds).getUTCDate() === start.getUTCDate(),
            annually: function (day) {
                const date = new Date(day * dayMilliseconds);
                return date.getUTCDate() === start.getUTCDate() && date.getUTCMonth() === start.getUTCMonth();
            },
        }[task.frequency];
    }

    return {
        dayNames: dayNames,
        splitDays: splitDays,
        isDate: (text) => moment(text, dateForm, true).isValid(),
        isTime: (text) => moment(text, timeForm, true).isValid(),

        // From what the form holds, {date, time, stop, days}, to what travels: {start, endTime, days};
        // null where that is no moment, or stop and start are the same. A stop before the start means
        // the next day.
        toServer: function (local) {
            const start = localMoment(local.date, local.time, 0);
            if (!start.isValid() || local.stop === local.time) {
                return null;
            }
            let endTime = "";
            if (local.stop !== "") {
                const stop = localMoment(local.date, local.stop, minutes(local.stop) < minutes(local.time) ? 1 : 0);
                if (!stop.isValid()) {
                    return null;
                }
                endTime = stop.utc().format(timeForm);
            }
            return {start: start.clone().utc().format(bothForm), endTime: endTime, days: moveDays(local.days, shiftOf(start))};
        },

        // And back again: {date, time, stop, days} of what came, empty where it is no moment.
        toForm: function (startDate, startTime, endTime, days) {
            const start = moment.utc(startDate + " " + startTime, bothForm, true);
            if (!start.isValid()) {
                return {date: "", time: "", stop: "", days: splitDays(days)};
            }
            const local = start.clone().local();
            const stop = moment.utc(startDate + " " + endTime, bothForm, true);
            return {
                date: local.format(dateForm),
                time: local.format(timeForm),
                stop: stop.isValid() ? stop.add(minutes(endTime) <= minutes(startTime) ? 1 : 0, "days").local().format(timeForm) : "",
                days: moveDays(splitDays(days), -shiftOf(local)),
            };
        },

        // The occurrences of a task, {frequency, startDate, startTime, days, endDate, endTime} as it
        // travels, that begin between two moments: [{start, end}], end null for none. The server
        // fires in UTC: by the day of the week, the month or the year there; a month or a year without
        // that day has none. Thousands a month: so no more than dates, and no library on the way.
        occurrences: function (task, from, to) {
            const first = dayNumber(task.startDate);
            const last = task.endDate === "" || task.frequency === "once" ? Infinity : dayNumber(task.endDate);
            const rule = ruleOf(task, first);
            const begin = minutes(task.startTime);
            const end = minutes(task.endTime);
            const found = [];
            if (isNaN(first) || isNaN(begin) || !rule) {
                return found;
            }
            const until = Math.min(last, Math.floor(to.valueOf() / dayMilliseconds));
            for (let day = Math.max(first, Math.floor(from.valueOf() / dayMilliseconds) - 1); day <= until; ++day) {
                const start = day * dayMilliseconds + begin * 60000;
                if (rule(day) && start >= from.valueOf() && start < to.valueOf()) {
                    const stop = isNaN(end) ? null : (day + (end <= begin ? 1 : 0)) * dayMilliseconds + end * 60000;
                    found.push({start: new Date(start), end: stop === null ? null : new Date(stop)});
                }
            }
            return found;
        },

        // A date's local time, "2026-03-02T09:05:00" and "9:05".
        stamp: (date) =>
            date.getFullYear() + "-" + two(date.getMonth() + 1) + "-" + two(date.getDate()) + "T" + two(date.getHours()) + ":" + two(date.getMinutes()) + ":00",
        clock: (date) => date.getHours() + ":" + two(date.getMinutes()),

        // "UTC+3", "UTC+5:45": how far local time is from UTC at a moment.
        offsetText: function (at) {
            const offset = Math.abs(at.utcOffset());
            const rest = offset % 60;
            return "UTC" + (at.utcOffset() < 0 ? "-" : "+") + Math.floor(offset / 60) + (rest ? ":" + ("0" + rest).slice(-2) : "");
        },
    };
})();
