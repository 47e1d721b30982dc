// Hours at the console in minutes: pages that change each second under a stream of pushes, then
// logins and logouts. Prints the resident memory as time goes by, and how long an operator's click
// has to wait meanwhile.

#include "Measure.h"
#include "app/Data.h"
#include "page/Console.h"
#include "session/DemoServer.h"
#include "view/WebView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>
#include <QtTest>

#include <algorithm>
#include <array>
#include <atomic>

namespace
{

constexpr int stormsPerSecond = 10;
constexpr int probeMilliseconds = 50;

const char* const pages[] = {
    "loadHomePage()", "$('#playlist').click()",   "wrapperLoadDeviceInfo(1)",
    "loadHomePage()", "$('#microphone').click()", "$('#menu_admin').click()",
};

[[noreturn]] void fail(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
    std::exit(1);
}

/// How long something that happens outside, such as a click, waits for the event loop.
class WaitProbe
{
public:
    WaitProbe()
    {
        worker = QThread::create([this] {
            while (!isOver) {
                QElapsedTimer asked;
                asked.start();
                QMetaObject::invokeMethod(
                    &receiver, [this, asked] { waits.push_back(asked.nsecsElapsed() / 1000000); },
                    Qt::QueuedConnection);
                QThread::msleep(probeMilliseconds);
            }
        });
        worker->start();
    }
    ~WaitProbe()
    {
        isOver = true;
        worker->wait();
        delete worker;
    }
    WaitProbe(const WaitProbe&) = delete;
    WaitProbe& operator=(const WaitProbe&) = delete;

    /// The longest wait since the last call, in milliseconds.
    qint64 takeLongest()
    {
        const auto from = waits.begin() + static_cast<std::ptrdiff_t>(looked);
        const qint64 longest = from == waits.end() ? 0 : *std::max_element(from, waits.end());
        looked = waits.size();
        return longest;
    }

    /// In milliseconds: the wait that so many of a hundred don't exceed.
    qint64 percentile(int percent)
    {
        std::sort(waits.begin(), waits.end());
        return waits.empty() ? 0
                             : waits[(waits.size() - 1) * static_cast<std::size_t>(percent) / 100];
    }

private:
    QObject receiver;
    QThread* worker = nullptr;
    std::atomic_bool isOver{false};
    std::vector<qint64> waits;
    std::size_t looked = 0;
};

void logIn(Console& console)
{
    if (!console.showLogin()) {
        fail("no login page");
    }
    console.logIn("admin", "admin");
    if (!console.waitForPage("index.html") ||
        !console.waitFor("$('#top_menu #device_list').length > 0 && "
                         "!$('#loadingModal').is(':visible')",
                         60000)) {
        fail("not logged in");
    }
}

void changePages(Measure::Report& report, Console& console, DemoServer& server, int seconds,
                 int pushes)
{
    WaitProbe probe;
    QTimer storm;
    QObject::connect(&storm, &QTimer::timeout, &storm, [&] {
        server.tell("storm " + QByteArray::number(std::max(1, pushes / stormsPerSecond)));
    });
    storm.start(1000 / stormsPerSecond);
    std::array<qint64, std::size(pages)> longest{};
    const int shown = std::max(1, seconds / 8);
    for (int second = 0; second < seconds; ++second) {
        const std::size_t page = static_cast<std::size_t>(second) % std::size(pages);
        console.value(QLatin1String(pages[page]) + QStringLiteral("; null"));
        QTest::qWait(1000);
        server.output(); // what it says is taken away
        longest[page] = std::max(longest[page], probe.takeLongest());
        if (second % shown == shown - 1) {
            report.line("after %4d s  %6.0f MB\n", second + 1, Measure::residentMegabytes());
        }
    }
    for (std::size_t page = 0; page < std::size(pages); ++page) {
        report.line("  %-28s a click waited %d ms at most\n", pages[page],
                    static_cast<int>(longest[page]));
    }
    report.line("a click waited  %d ms at the median, %d at the 99th percentile\n",
                static_cast<int>(probe.percentile(50)), static_cast<int>(probe.percentile(99)));
}

void comeAndGo(Measure::Report& report, Console& console, int logins)
{
    const int shown = std::max(1, logins / 8);
    for (int login = 0; login < logins; ++login) {
        logIn(console);
        if (login % shown == shown - 1) {
            report.line("after %4d logins  %6.0f MB\n", login + 1, Measure::residentMegabytes());
        }
    }
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const int units = Measure::option(argc, argv, "--units", 1000);
    const int seconds = Measure::option(argc, argv, "--seconds", 1200);
    const int pushes = Measure::option(argc, argv, "--pushes", 200);
    const int logins = Measure::option(argc, argv, "--logins", 500);
    Measure::Report report;
    DemoServer server;
    if (!server.start(report.path(), 0, {"--devices", QString::number(units)})) {
        fail("the demo server didn't start");
    }
    Console console({{QStringLiteral("127.0.0.1"), server.port(), true}});
    Data::debugMode = false;
    logIn(console);
    report.line("%d units, %d pushes a second, a page each second\n", units, pushes);
    changePages(report, console, server, seconds, pushes);
    report.line("logins and logouts\n");
    comeAndGo(report, console, logins);
    return 0;
}
