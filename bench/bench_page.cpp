// The home page with a large fleet: how long it takes to fill and to filter, and how long a click
// waits meanwhile; what one push of a unit's state costs against parsing it and evaluating the same
// scripts; and the memory against a bare view with the same content.

#include "Measure.h"
#include "StallWatch.h"
#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Zone.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "page/ScriptCall.h"
#include "view/ScriptPipe.h"
#include "view/WebView.h"

#include <QApplication>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTimer>
#include <QWebFrame>
#include <QWebView>

namespace
{

constexpr int zones = 20;
const char* const consoleMode = "--memory-console";
const char* const bareMode = "--memory-bare";

[[noreturn]] void fail(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
    std::exit(1);
}

void makeFleet(int units)
{
    for (int id = 2; id < 2 + zones; ++id) {
        auto zone = std::make_unique<Zone>();
        zone->setId(id);
        zone->setName(QStringLiteral("Зона %1").arg(id));
        Data::zoneList.append(std::move(zone));
    }
    for (int id = 1; id <= units; ++id) {
        auto device = std::make_unique<Device>();
        device->setId(id);
        device->setName(QStringLiteral("Громкоговоритель %1").arg(id));
        device->setStatus(DeviceOnline);
        device->includeToZone(2 + id % zones);
        Data::deviceList.append(std::move(device));
    }
}

void paint(WebView& view)
{
    view.getView()->grab();
}

/// Whether the wall knows all units; only those near the window have a tile.
QString isFull(int units)
{
    return QStringLiteral("cards !== null && cards.list !== null && cards.list.counts.all === %1")
        .arg(units);
}

void showHomePage(Console& console, int units)
{
    if (!console.showSession([=] { makeFleet(units); }) ||
        !console.waitFor(
            isFull(units) + QStringLiteral(" && $('.zone').length > %1").arg(zones - 1), 120000)) {
        fail("the home page didn't fill");
    }
}

/// From the operator's click on the tab until all tiles have been painted, in seconds.
double load(Console& console, int units, double& stall)
{
    console.value("loadModal('device_list'); loadMainBody('none'); loadSideMenu('none')");
    console.waitFor("$('#main').is(':empty') && $('#side_menu').is(':empty')");
    const StallWatch watch;
    const double time = Measure::seconds([&] {
        console.value("loadHomePage()");
        if (!console.waitFor(isFull(units), 120000)) {
            fail("the home page didn't fill");
        }
        paint(console.view());
        QCoreApplication::processEvents();
    });
    stall = watch.longest();
    return time;
}

/// A click on a zone until the tiles of that zone have been painted, in seconds.
double filter(Console& console, int& zone)
{
    zone = 2 + (zone - 1) % zones;
    return Measure::seconds([&] {
        console.value(QStringLiteral("$('#zone_%1').click()").arg(zone));
        paint(console.view());
    });
}

QByteArray statePush(int order)
{
    const QJsonObject push{{"request", "device"},
                           {"action", "setState"},
                           {"order", order},
                           {"deviceId", 7},
                           {"link", "bidirectional"},
                           {"battery", "ok"},
                           {"batteryLevel", order % 100},
                           {"case", order % 2 ? "open" : "close"},
                           {"volume", order % 100},
                           {"playback", "none"}};
    return QJsonDocument(push).toJson();
}

/// What the console's page is told because of one push, as script texts for a bare view.
QStringList scriptsOf(const QByteArray& push, ScriptPipe& pipe)
{
    QStringList scripts;
    Page::setSink([&](const Page::Call& call) {
        scripts.append(
            QStringLiteral("typeof %1==='function'&&%2").arg(call.function, call.script()));
        pipe.add(call);
    });
    Data::parser.parse(push);
    Page::setSink([&](const Page::Call& call) { pipe.add(call); });
    return scripts;
}

void measurePush(Measure::Report& report, Program& program, int units, int pushes, int repetitions)
{
    ScriptPipe& pipe = program.scripts();
    QWebFrame* const frame = program.view().frame();
    QVector<QByteArray> texts;
    QVector<QStringList> scripts;
    for (int order = 0; order < pushes; ++order) {
        texts.append(statePush(order));
        scripts.append(scriptsOf(texts.last(), pipe));
    }
    const auto bare = [&] {
        return Measure::seconds([&] {
            for (int index = 0; index < pushes; ++index) {
                if (QJsonDocument::fromJson(texts.at(index)).isNull()) {
                    fail("no JSON");
                }
                for (const QString& script : scripts.at(index)) {
                    frame->evaluateJavaScript(script);
                }
            }
        });
    };
    const auto console = [&] {
        Data::tcpClient.close(); // forgets the requests of the last round
        Data::parser.reset();
        return Measure::seconds([&] {
            for (const QByteArray& text : texts) {
                const ScriptPipe::Gathering read(pipe); // a push comes in a read of its own
                Data::parser.parse(text);
            }
            pipe.flush();
        });
    };
    std::vector<Measure::Way> ways{{"parsing, and evaluating the same scripts", bare},
                                   {"console", console}};
    Measure::interleave(ways, repetitions);
    const QByteArray heading =
        QStringLiteral("One push of a unit's state, %1 units known").arg(units).toUtf8();
    report.table(heading.constData(), ways, pushes, "push");
}

/// The resident memory of this process, in kB.
long residentMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    static const QRegularExpression line(QStringLiteral("VmRSS:\\s*(\\d+)"));
    return line.match(QString::fromLatin1(status.readAll())).captured(1).toLong();
}

/// Child: the console with a full home page; leaves the page's elements in a file.
int showConsole(int units, const QString& file)
{
    Console console;
    Data::debugMode = false;
    console.showLogin();
    showHomePage(console, units);
    paint(console.view());
    const long memory = residentMemory();
    QFile content(file);
    content.open(QIODevice::WriteOnly);
    content.write(
        console.text("$('script').remove(); document.documentElement.outerHTML").toUtf8());
    content.close();
    std::fprintf(stderr, "%ld\n", memory);
    return 0;
}

/// Child: a bare view with the same elements and style sheets.
int showBare(const QString& file)
{
    QFile content(file);
    content.open(QIODevice::ReadOnly);
    QWebView view;
    view.resize(1280, 800);
    QObject::connect(&view, &QWebView::loadFinished, &view, [&] {
        view.show();
        view.grab();
        std::fprintf(stderr, "%ld\n", residentMemory());
        QCoreApplication::quit();
    });
    view.setHtml(QString::fromUtf8(content.readAll()), QUrl(QStringLiteral("qrc:/Web/index.html")));
    return QApplication::exec();
}

double memoryOf(const QStringList& arguments)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), arguments);
    if (!child.waitForFinished(120000) || child.exitCode() != 0) {
        fail("a child failed");
    }
    return child.readAllStandardError().trimmed().split('\n').last().toDouble();
}

void measureMemory(Measure::Report& report, int units, int repetitions)
{
    const QString file = report.path() + QStringLiteral("/content.html");
    const QString count = QString::number(units);
    std::vector<double> ratios;
    double bare = 0;
    double console = 0;
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        console = memoryOf({consoleMode, count, file});
        bare = memoryOf({bareMode, count, file});
        ratios.push_back(console / bare);
    }
    report.line("Resident memory, home page with %d units: bare view %.0f MB, console %.0f MB   "
                "%5.2f\n",
                units, bare / 1024, console / 1024, Measure::median(ratios));
}

void measurePage(Measure::Report& report, Console& console, int units, int repetitions)
{
    showHomePage(console, units);
    std::vector<double> loads;
    std::vector<double> stalls;
    std::vector<double> filters;
    int zone = 2;
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        double stall = 0;
        loads.push_back(load(console, units, stall));
        stalls.push_back(stall);
        filters.push_back(filter(console, zone));
        console.value("menu_ZoneSelectAll()");
    }
    report.line("Home page, %d units: full and painted after %.0f ms, longest wait of a click "
                "%.0f ms, filter by zone %.0f ms\n",
                units, 1000 * Measure::median(loads), 1000 * Measure::median(stalls),
                1000 * Measure::median(filters));
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments.at(1) == QLatin1String(consoleMode)) {
        return showConsole(arguments.at(2).toInt(), arguments.at(3));
    }
    if (arguments.size() == 4 && arguments.at(1) == QLatin1String(bareMode)) {
        return showBare(arguments.at(3));
    }
    const int scale = Measure::option(argc, argv, "--scale", 1); // divides every number of units
    const int pushes = Measure::option(argc, argv, "--pushes", 2000);
    const int repetitions = Measure::option(argc, argv, "--repetitions", 5);
    Measure::Report report;
    {
        Console console;
        Data::debugMode = false;
        console.showLogin();
        for (const int units : {1000, 5000}) {
            measurePage(report, console, units / scale, repetitions);
        }
        for (const int units : {10, 1000, 5000}) {
            const int count = std::max(units / scale, 10);
            showHomePage(console, count);
            measurePush(report, console.program(), count, pushes, repetitions);
        }
    }
    measureMemory(report, 1000 / scale, std::min(repetitions, 3));
    return 0;
}
