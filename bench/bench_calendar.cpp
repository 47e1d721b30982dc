// The calendar's month with many tasks: how long the step to a full month takes against the library
// drawing the same events alone, and how long a click waits meanwhile.

#include "Measure.h"
#include "StallWatch.h"
#include "app/Data.h"
#include "model/ModelList.h"
#include "model/Task.h"
#include "page/Console.h"
#include "view/WebView.h"

#include <QApplication>
#include <QWebView>

namespace
{

/// Of a hundred tasks sixty happen once, the others again and again.
QString frequencyOf(int id)
{
    const int part = id % 100;
    return part < 60   ? "once"
           : part < 80 ? "monthly"
           : part < 90 ? "annually"
           : part < 99 ? "weekly"
                       : "daily";
}

void makeTasks(int count)
{
    for (int id = 1; id <= count; ++id) {
        auto task = std::make_unique<Task>();
        task->setId(id);
        task->setType("play");
        task->setTitle(QStringLiteral("Задание %1").arg(id));
        task->setState(true);
        task->setFrequency(frequencyOf(id));
        task->setWeeklyDays("monday");
        task->setStartDate(QStringLiteral("2030-03-%1").arg(1 + id * 7 % 28, 2, 10, QChar('0')));
        task->setStartTime(QStringLiteral("%1:%2")
                               .arg(8 + id % 9, 2, 10, QChar('0'))
                               .arg(id % 60, 2, 10, QChar('0')));
        task->setEndTime("17:30");
        task->setEndId(count + id);
        Data::tasks.append(std::move(task));
    }
}

/// A step from an empty month to the full one, until it is painted, in seconds. The page's own
/// calendar says when its month is whole; the library draws it at once.
double step(Console& console, const QString& calendar, double& stall)
{
    console.value(QStringLiteral("%1.fullCalendar('gotoDate', '2029-01-01'); null").arg(calendar));
    const StallWatch watch;
    const double time = Measure::seconds([&] {
        console.value(
            QStringLiteral("%1.fullCalendar('gotoDate', '2030-03-01'); null").arg(calendar));
        console.waitFor(QStringLiteral("%1.find('.fc-event').length === expected").arg(calendar),
                        60000);
        QCoreApplication::processEvents();
        stall = watch.longest(); // the picture below is the bench's own
        console.view().getView()->grab();
    });
    return time;
}

bool openCalendar(Console& console, int tasks)
{
    return console.showSession([=] { makeTasks(tasks); }) &&
           console.waitFor("$('#task_list').length === 1") &&
           (console.value("$('#task_list').click(); null"),
            console.waitFor("$('#main_calendar .fc-toolbar').length === 1")) &&
           (console.value("$('#main_calendar').fullCalendar('changeView', 'month'); "
                          "$('#main_calendar').fullCalendar('gotoDate', '2030-03-01'); null"),
            console.waitFor("$('#main_calendar').fullCalendar('clientEvents').length > 0", 60000));
}

/// The library beside the page's calendar, with the events that the page has made.
void addBareCalendar(Console& console)
{
    console.value(
        "var view = $('#main_calendar').fullCalendar('getView');"
        "var made = $('#main_calendar').fullCalendar('clientEvents', function (one) {"
        "  return one.start >= view.start && one.start < view.end; });"
        "var events = made.map(function (one) { return {id: one.id, title: one.title,"
        "  start: one.start.format(), end: one.end ? one.end.format() : null, color: one.color,"
        "  borderColor: one.borderColor, allDay: false}; });"
        "var expected = events.length;"
        "$('<div id=bare>').css({position: 'fixed', top: 0, left: 0, width: "
        "$('#main_calendar').width(), 'z-index': 9}).appendTo('body').fullCalendar({lang: 'ru',"
        "defaultView: 'month', timeFormat: 'H:mm', contentHeight: 590, events: events,"
        "defaultDate: '2029-01-01'}); null");
}

} // namespace

int main(int argc, char** argv)
{
    const int tasks = Measure::option(argc, argv, "--tasks", 2000);
    const int repetitions = Measure::option(argc, argv, "--repetitions", 5);
    QApplication application(argc, argv);
    Measure::Report report;
    Console console;
    if (!openCalendar(console, tasks)) {
        std::fputs("the calendar didn't open\n", stderr);
        return 1;
    }
    addBareCalendar(console);
    std::vector<double> stalls;
    double stall = 0;
    std::vector<Measure::Way> ways{
        {"the library alone", [&] { return step(console, "$('#bare')", stall); }},
        {"the page's calendar", [&] {
             const double time = step(console, "$('#main_calendar')", stall);
             stalls.push_back(stall);
             return time;
         }}};
    Measure::interleave(ways, repetitions);
    const QByteArray heading = QStringLiteral("A month of %1 tasks, %2 events")
                                   .arg(tasks)
                                   .arg(console.value("expected").toInt())
                                   .toUtf8();
    report.table(heading.constData(), ways, 1, "month");
    report.line("  a click waits at most %.0f ms\n",
                1000 * *std::max_element(stalls.begin(), stalls.end()));
    return 0;
}
