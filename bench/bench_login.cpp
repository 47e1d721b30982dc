// A login until the mirror is complete and on show, against a bare client that sends the very same
// requests one by one over the same TLS to the same demo server. Both in seconds of the processor:
// the time on the clock is mostly the server's.

#include "Measure.h"
#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/User.h"
#include "network/JsonStreamSplitter.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "session/DemoServer.h"
#include "view/WebView.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QRegularExpression>
#include <QSslSocket>

namespace
{

constexpr int startMilliseconds = 60000;
const QString address = QStringLiteral("127.0.0.1");

[[noreturn]] void fail(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
    std::exit(1);
}

bool isComplete(int units)
{
    return Data::getCurrentUser() && Data::deviceList.size() == units &&
           Data::parser.getPacketCount() == 0 && Data::tcpClient.waitingRequestCount() == 0;
}

/// Logs in and waits until every request has its reply and the wall shows it, in seconds of the
/// processor; logs out again, and leaves the resident memory before that in `megabytes`.
double logIn(Console& console, quint16 port, int units, double* megabytes = nullptr)
{
    const double time = Measure::processorSeconds([&] {
        console.view().login_tryLogin("admin", "admin",
                                      QStringLiteral("%1/%2").arg(address).arg(port));
        while (!isComplete(units)) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        if (!console.waitFor(QStringLiteral("cards && cards.list.counts.all === %1").arg(units))) {
            fail("the wall has not come");
        }
    });
    if (megabytes) {
        *megabytes = Measure::residentMegabytes();
    }
    Data::tcpClient.exit();
    console.waitForPage("login.html");
    return time;
}

/// The requests of a login, as the log of one in debug mode has them.
QVector<QByteArray> recordLogin(Console& console, quint16 port, int units)
{
    Data::debugMode = true;
    logIn(console, port, units);
    Data::debugMode = false;
    static const QRegularExpression request("Quered message: (\\{.*?\n\\})\n",
                                            QRegularExpression::DotMatchesEverythingOption);
    QVector<QByteArray> texts;
    const QDir folder(console.folder() + "log");
    const QStringList logs = folder.entryList({"*.txt"});
    for (const QString& name : logs) {
        QFile log(folder.filePath(name));
        log.open(QIODevice::ReadOnly);
        auto matches = request.globalMatch(QString::fromUtf8(log.readAll()));
        while (matches.hasNext()) {
            const QByteArray text = matches.next().captured(1).toUtf8() + '\n';
            if (text.contains("\"action\": \"login\"")) {
                texts.clear(); // the logins before this one stand in the log too
            }
            texts.append(text);
        }
    }
    return texts;
}

/// Sends each text when the object that answers the one before has come.
double replay(const QVector<QByteArray>& texts, quint16 port)
{
    return Measure::processorSeconds([&] {
        QSslSocket socket;
        JsonStreamSplitter splitter;
        QEventLoop loop;
        int next = 0;
        socket.setPeerVerifyMode(QSslSocket::VerifyNone);
        const auto send = [&] {
            socket.write(texts.at(next++));
            socket.flush();
        };
        QObject::connect(&socket, &QSslSocket::readyRead, &socket, [&] {
            splitter.feed(socket.readAll());
            while (splitter.next() == JsonStreamSplitter::Found::Object) {
                if (next == texts.size()) {
                    loop.quit();
                    return;
                }
                send();
            }
        });
        socket.connectToHostEncrypted(address, port);
        if (!socket.waitForEncrypted(startMilliseconds)) {
            fail("the bare client found no server");
        }
        socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        send();
        loop.exec();
        socket.disconnect();
        socket.abort();
    });
}

void measure(Measure::Report& report, Console& console, int units, int repetitions)
{
    DemoServer server;
    if (!server.start(report.path(), 0, {"--devices", QString::number(units)})) {
        fail("the demo server didn't start");
    }
    const quint16 port = server.port();
    const QVector<QByteArray> texts = recordLogin(console, port, units);
    std::vector<Measure::Way> ways{
        {"bare client, the same requests", [&] { return replay(texts, port); }},
        {"console", [&] { return logIn(console, port, units); }}};
    Measure::interleave(ways, repetitions);
    const QByteArray heading = QStringLiteral("Login until the mirror is complete, %1 units, %2 "
                                              "requests")
                                   .arg(units)
                                   .arg(texts.size())
                                   .toUtf8();
    report.table(heading.constData(), ways, texts.size(), "request");
    double megabytes = 0;
    logIn(console, port, units, &megabytes);
    report.line("  resident memory behind it: %.0f MB\n", megabytes);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const int scale = Measure::option(argc, argv, "--scale", 1); // divides every number of units
    const int repetitions = Measure::option(argc, argv, "--repetitions", 3);
    Measure::Report report;
    Console console;
    Data::debugMode = false;
    console.waitForPage("login.html");
    const int largest = Measure::option(argc, argv, "--largest", 5000);
    for (const int units : {100, 1000, 5000, 20000}) {
        if (units <= largest) {
            measure(report, console, units / scale, repetitions);
        }
    }
    return 0;
}
