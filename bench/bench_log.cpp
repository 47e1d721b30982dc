// A day's log of the server, from its arrival until it can be read and scrolled, against a bare
// view that shows the same text in one `pre`; and how long a click waits from the choice of the day
// on.

#include "Measure.h"
#include "StallWatch.h"
#include "app/Data.h"
#include "page/Console.h"
#include "protocol/ProtocolLog.h"
#include "session/DemoServer.h"
#include "view/WebView.h"

#include <QApplication>
#include <QWebElement>
#include <QWebFrame>
#include <QWebView>

namespace
{

constexpr int patience = 60000; // milliseconds
constexpr int width = 1280;
constexpr int height = 800;

[[noreturn]] void fail(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
    std::exit(1);
}

void expect(const Console& console, const char* script)
{
    if (!console.waitFor(script, patience)) {
        fail(script);
    }
}

/// The middle of the log and its end, as an operator would look at them.
void readThrough(QWebView& view, const QString& log)
{
    for (const char* place : {"0.5", "1"}) {
        view.page()->mainFrame()->evaluateJavaScript(
            QStringLiteral("(function(){var l=%1; l.scrollTop=l.scrollHeight*%2;})(); null")
                .arg(log, place));
        view.grab();
    }
}

double showBare(const QString& text)
{
    QWebView view;
    view.resize(width, height);
    view.setHtml("<body><pre style='height: 480px; overflow: auto; white-space: pre-wrap; "
                 "word-wrap: break-word; font-size: 13px'></pre></body>");
    view.show();
    return Measure::seconds([&] {
        view.page()->mainFrame()->findFirstElement("pre").setPlainText(text);
        readThrough(view, "document.querySelector('pre')");
    });
}

/// What one opening of a log takes.
struct Opening {
    QByteArray text;
    double time = 0;  ///< seconds from the arrival
    double stall = 0; ///< the longest wait of a click, in seconds
};

Opening showInConsole(Console& console)
{
    Opening opening;
    const auto take = serverLogHooks().arrived;
    std::chrono::steady_clock::time_point arrival;
    serverLogHooks().arrived = [&](const QString& date, const QByteArray& text) {
        opening.text = text;
        arrival = std::chrono::steady_clock::now();
        take(date, text);
    };
    QCoreApplication::processEvents(); // what the bare view has left behind
    const StallWatch watch;
    console.value("$('#log_dates').val($('#log_dates option:eq(1)').val()).trigger('change')");
    while (opening.text.isEmpty() ||
           console.value("$('#modalLogStartLoading').hasClass('in')").toBool()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    opening.stall = watch.longest();
    readThrough(*console.view().getView(), "document.getElementById('log')");
    opening.time =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - arrival).count();
    serverLogHooks().arrived = take;
    if (console.text("$('#log').text()") != QString::fromUtf8(opening.text)) {
        fail("the page doesn't show what has come");
    }
    return opening;
}

} // namespace

int main(int argc, char* argv[])
{
    const int megabytes = Measure::option(argc, argv, "--megabytes", 50);
    const int repetitions = Measure::option(argc, argv, "--repetitions", 3);
    Measure::Report report;
    const QApplication application(argc, argv);
    DemoServer server;
    if (!server.start(report.path())) {
        fail("the demo server didn't start");
    }
    server.tell("log " + QByteArray::number(megabytes));
    Console console({{"127.0.0.1", server.port(), true}});
    console.view().getView()->resize(width, height);
    Data::debugMode = false; // the traffic trace would hold the whole log
    console.showLogin();
    console.logIn("admin", "admin");
    expect(console,
           "typeof cards !== 'undefined' && cards && cards.list && cards.list.counts.all > 0");
    console.value("loadModal('admin/log'); loadMainBody('admin/log'); loadBotMenu('admin/log')");
    expect(console, "$('#log_dates option').length > 1 && typeof modalAdminLogStartLoading === "
                    "'function'");
    double stall = 0;
    Opening last = showInConsole(console);
    std::vector<Measure::Way> ways{{"bare view, one pre", [&] { return showBare(QString::fromUtf8(last.text)); }},
                                   {"console", [&] {
                                        last = showInConsole(console);
                                        stall = std::max(stall, last.stall);
                                        return last.time;
                                    }}};
    Measure::interleave(ways, repetitions);
    report.table("A log until it can be read and scrolled", ways, megabytes, "MB");
    report.line("  longest wait of a click: %.0f ms\n", stall * 1000);
    return 0;
}
