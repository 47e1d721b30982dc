#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Task.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/PageFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

namespace
{

/// The lines of the table: its zone, what is typed, what goes out, and what is drawn.
QVector<QStringList> readTable()
{
    QFile file(TABLE);
    QVector<QStringList> rows;
    const bool isOpen = file.open(QIODevice::ReadOnly);
    Q_ASSERT(isOpen);
    for (const QString& line : QString::fromUtf8(file.readAll()).split('\n')) {
        if (isOpen && line.startsWith('|')) {
            QStringList cells;
            for (const QString& cell : line.mid(1).split('|')) {
                cells.append(cell.trimmed());
            }
            rows.append(cells);
        }
    }
    rows.removeFirst();
    return rows;
}

QString momentOf(const QJsonObject& event)
{
    return QStringList{event["startDate"].toString(), event["startTime"].toString(),
                       event["days"].toString()}
        .join(' ')
        .trimmed();
}

} // namespace

/// The road of a task's moments from the form to the server, back again and into the calendar, in
/// the time zone of this process.
class TimeZonesTest : public PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void moments_data();
    void moments();

private:
    void openForm();
    void fillIn(const QStringList& typed);
    QString shown() const;
    QString drawn(const QString& month);
    /// Saves, answers what goes out, and gives the moments of the events.
    QStringList save();
};

void TimeZonesTest::moments_data()
{
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QStringList>("sent");
    QTest::addColumn<QString>("month");
    QTest::addColumn<QString>("occurrences");
    for (QStringList row : readTable()) {
        if (row.takeFirst() == qEnvironmentVariable("TZ")) {
            const QStringList typed = row.mid(0, 6);
            QStringList sent = row.mid(6, 2);
            sent.removeAll(QString());
            QTest::newRow(qPrintable(typed.join(' ')))
                << typed << sent << row.value(8) << row.value(9);
        }
    }
}

void TimeZonesTest::moments()
{
    QFETCH(QStringList, typed);
    QFETCH(QStringList, sent);
    QFETCH(QString, month);
    QFETCH(QString, occurrences);
    openForm();
    fillIn(typed);
    const QStringList out = save();
    if (sent.first().startsWith("refused")) {
        QCOMPARE(out, QStringList());
        QCOMPARE(text("$('#main .has-error input').attr('id')"),
                 "task_" + sent.first().section(' ', 1));
        return;
    }
    QCOMPARE(out, sent);
    openForm();
    QCOMPARE(shown(), typed.join(' '));
    QCOMPARE(drawn(month), occurrences);
    QVERIFY(is("$('#main_calendar .fc-event').length === "
               "$('#main_calendar').fullCalendar('clientEvents', function (one) {"
               "  var view = $('#main_calendar').fullCalendar('getView');"
               "  return one.start >= view.start && one.start < view.end;"
               "}).length"));
    QCOMPARE(console().scriptErrors(), QStringList());
}

/// The page afresh, with what the mirror holds.
void TimeZonesTest::openForm()
{
    const bool isFirst = Data::tasks.isEmpty();
    const auto load = QStringLiteral("loadModal('admin/tasks'); loadBotMenu('admin/tasks'); "
                                     "loadMainBody('admin/tasks')");
    const auto isThere = QStringLiteral("$('#task_time').val() && $('#save').length === 1 && "
                                        "$('#modalAddTask').length === 1");
    if (isFirst) {
        openPage(load, isThere, Slots::Real, [] {
            auto unit = std::make_unique<Device>();
            unit->setId(1);
            Data::deviceList.append(std::move(unit));
            auto task = std::make_unique<Task>();
            task->setId(1);
            task->setType("play");
            task->setState(true);
            task->setStartDate("2020-02-03");
            task->setStartTime("10:20");
            task->setDeviceList({1});
            task->setTitle("Task");
            task->setTargetPlaying("list");
            task->setActionIfEnd("stop");
            Data::tasks.append(std::move(task));
        });
    } else {
        run("loadMainBody('blank')");
        QVERIFY(console().waitFor("$('#task_time').length === 0"));
        run(load);
        QVERIFY(console().waitFor(isThere));
    }
}

void TimeZonesTest::fillIn(const QStringList& typed)
{
    const QStringList fields{"type", "date", "time", "stop", "end"};
    for (int place = 0; place < fields.size(); ++place) {
        run(QStringLiteral("$('#task_%1').val('%2').trigger('input').trigger('select2:select')")
                .arg(fields.at(place), typed.at(place)));
    }
    run("$('#task_type').trigger('change')");
    if (!typed.last().isEmpty()) {
        run(QStringLiteral("$('#%1:not(.active)').click(); "
                           "$('.day_button.active').not('#%1').click()")
                .arg(typed.last()));
    }
}

QString TimeZonesTest::shown() const
{
    return text(
        "['type', 'date', 'time', 'stop', 'end'].map("
        "function (name) { return $('#task_' + name).val(); }).concat("
        "$('#task_type').val() === 'weekly' ? $('#main .day_button.active').attr('id') : '')"
        ".join(' ')");
}

QStringList TimeZonesTest::save()
{
    const int before = Data::tcpClient.queuedMessages().size();
    run("$('#save').click()");
    const QVector<QByteArray> queue = Data::tcpClient.queuedMessages().mid(before);
    QStringList moments;
    for (const QByteArray& message : queue) {
        const QJsonObject event = QJsonDocument::fromJson(message).object();
        if (event["request"] == "task") {
            moments.append(momentOf(event)); // none of a stop event that goes
            Data::parser.parse(
                QJsonDocument(
                    QJsonObject{{"order", event["order"]}, {"response", "success"}, {"id", 2}})
                    .toJson());
        }
    }
    moments.removeAll(QString());
    return moments;
}

QString TimeZonesTest::drawn(const QString& month)
{
    run("loadMainBody('task_list')");
    console().waitFor("$('#main_calendar .fc-toolbar').length === 1");
    run(QStringLiteral("$('#main_calendar').fullCalendar('changeView', 'month'); "
                       "$('#main_calendar').fullCalendar('gotoDate', '%1-01')")
            .arg(month));
    console().waitFor("typeof task_showUnit === 'function'");
    run("task_showUnit()");
    return text(
        QStringLiteral("$('#main_calendar').fullCalendar('clientEvents')"
                       ".filter(function (one) { return one.start.format('YYYY-MM') === '%1'; })"
                       ".sort(function (a, b) { return a.start - b.start; })"
                       ".map(function (one) {"
                       "  return one.start.format('DD HH:mm') + (one.end ? '-' + one.end.format("
                       "    one.end.date() === one.start.date() ? 'HH:mm' : 'DD HH:mm') : '');"
                       "}).join(', ')")
            .arg(month));
}

/// A process of this program for each zone of the table: the zone of a process is its own.
int main(int argc, char* argv[])
{
    const QByteArray mark = "VANTORDESK_ZONE_TEST";
    if (qEnvironmentVariableIsSet(mark)) {
        return runPageTest<TimeZonesTest>(argc, argv);
    }
    QStringList zones;
    for (const QStringList& row : readTable()) {
        zones.append(row.first());
    }
    zones.removeDuplicates();
    int failed = 0;
    qputenv(mark, "1");
    for (const QString& zone : qAsConst(zones)) {
        qputenv("TZ", zone.toUtf8());
        failed += QProcess::execute(QString::fromLocal8Bit(argv[0]), {}) == 0 ? 0 : 1;
    }
    return failed;
}

#include "time_zones_test.moc"
