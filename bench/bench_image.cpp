// The image of a unit's memory, as base64 in one object, to the server and back: the time against a
// bare client that reads, encodes and sends the same file to the same demo server; what the console
// holds meanwhile beyond what it held before, in images; and how long a click waits.

#include "Measure.h"
#include "StallWatch.h"
#include "app/Data.h"
#include "network/JsonStreamSplitter.h"
#include "page/Console.h"
#include "protocol/Request.h"
#include "session/DemoServer.h"
#include "view/WebView.h"

#include <QApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSslSocket>

namespace
{

constexpr int unit = 1;
constexpr int megabyte = 1024 * 1024;

[[noreturn]] void fail(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
    std::exit(1);
}

/// Beyond what was held before, the most that the process has held since.
class MemoryPeak
{
public:
    MemoryPeak() : before(Measure::residentMegabytes())
    {
        QFile forget(QStringLiteral("/proc/self/clear_refs"));
        forget.open(QIODevice::WriteOnly);
        forget.write("5"); // the peak begins anew
    }
    double megabytes() const
    {
        QFile status(QStringLiteral("/proc/self/status"));
        status.open(QIODevice::ReadOnly);
        const QByteArray text = status.readAll();
        const QByteArray line = text.mid(text.indexOf("VmHWM:") + 6).trimmed();
        return line.left(line.indexOf(' ')).toDouble() / 1024 - before;
    }

private:
    double before;
};

/// An image as the demo server's units take it: a line that tells its one fragment, and that.
void writeImage(const QString& path, int megabytes)
{
    const int size = megabytes * megabyte;
    const QJsonObject entries{
        {"messages", QJsonArray{QJsonObject{{"title", "large"}, {"size", size}}}},
        {"scenarios", QJsonArray{}}};
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(QJsonDocument(entries).toJson(QJsonDocument::Compact) + '\n') < 0 ||
        file.write(QByteArray(size, 'm')) != size) {
        fail("the image can't be written");
    }
}

/// What an operator's doing costs until its last answer has come.
struct Doing {
    double time = 0;   ///< seconds
    double stall = 0;  ///< the longest wait of a click, in seconds
    double memory = 0; ///< megabytes
};

Doing watch(const std::function<void()>& act, const std::function<bool()>& isDone)
{
    Doing doing;
    const MemoryPeak peak;
    const StallWatch stalls;
    doing.time = Measure::seconds([&] {
        act();
        while (!isDone()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    });
    doing.stall = stalls.longest();
    doing.memory = peak.megabytes();
    return doing;
}

Doing upload(Console& console)
{
    return watch([&] { console.view().admin_uploadDeviceMemory(unit, "large.a-bin"); },
                 [wasAsked = false]() mutable {
                     const bool isAsked = isWaiting(DeviceCommand::UploadImage);
                     wasAsked = wasAsked || isAsked;
                     return wasAsked && !isAsked;
                 });
}

Doing download(Console& console, const QString& copy)
{
    QFile::remove(copy);
    return watch([&] { console.view().admin_downloadDeviceMemory(unit, "copy"); },
                 [&] { return QFile::exists(copy); });
}

QJsonObject ask(QSslSocket& socket, const QByteArray& text)
{
    socket.write(text);
    JsonStreamSplitter splitter;
    while (true) {
        while (splitter.next() == JsonStreamSplitter::Found::Object) {
            const QJsonObject answer = QJsonDocument::fromJson(splitter.takeObject()).object();
            if (answer.contains("response")) {
                return answer;
            }
        }
        if (!socket.waitForReadyRead(60000)) {
            fail("no answer to the bare client");
        }
        splitter.feed(socket.readAll());
    }
}

double sendBare(QSslSocket& socket, const QString& path)
{
    return Measure::seconds([&] {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        ask(socket, R"({"request":"device","action":"uploadImage","order":1,"id":1,"image":")" +
                        file.readAll().toBase64() + "\"}");
    });
}

void logInBare(QSslSocket& socket, int port)
{
    socket.setPeerVerifyMode(QSslSocket::VerifyNone);
    socket.connectToHostEncrypted("127.0.0.1", quint16(port));
    const QByteArray login =
        R"({"request":"user","action":"login","order":0,"version":9,"user":"admin","password":")" +
        QCryptographicHash::hash("admin", QCryptographicHash::Md5).toHex() + "\"}";
    if (!socket.waitForEncrypted() || ask(socket, login).value("response") != "success") {
        fail("the bare client isn't let in");
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const int megabytes = Measure::option(argc, argv, "--megabytes", 64);
    const int repetitions = Measure::option(argc, argv, "--repetitions", 3);
    Measure::Report report;
    const QApplication application(argc, argv);
    DemoServer server;
    if (!server.start(report.path())) {
        fail("the demo server didn't start");
    }
    server.tell("memory 1 " + QByteArray::number(2 * megabytes));
    Console console({{"127.0.0.1", server.port(), true}});
    Data::debugMode = false;
    console.showLogin();
    console.logIn("admin", "admin");
    if (!console.waitForPage("index.html") || !console.waitFor("$('.tile').length > 0", 20000)) {
        fail("no session");
    }
    const QString folder = console.folder() + "message/";
    QDir().mkpath(folder);
    writeImage(folder + "large.a-bin", megabytes);
    QSslSocket bare;
    logInBare(bare, server.port());
    Doing up;
    Doing down;
    std::vector<Measure::Way> ways{{"bare client, reads, encodes and sends",
                                    [&] { return sendBare(bare, folder + "large.a-bin"); }},
                                   {"console, from file to unit",
                                    [&] {
                                        up = upload(console);
                                        return up.time;
                                    }},
                                   {"console, from unit to file", [&] {
                                        down = download(console, folder + "copy.a-bin");
                                        return down.time;
                                    }}};
    Measure::interleave(ways, repetitions);
    report.table("An image between file and unit", ways, megabytes, "MB");
    report.line("  to the unit: memory %.1f images, a click waits %.0f ms\n", up.memory / megabytes,
                up.stall * 1000);
    report.line("  to the file: memory %.1f images, a click waits %.0f ms\n",
                down.memory / megabytes, down.stall * 1000);
    return 0;
}
