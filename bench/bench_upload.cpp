// A file on its way to the server, against a bare loop with the same chunks and waits to the same
// receiver; what the transfer holds in memory, and what it costs the thread of the pages.

#include "Measure.h"
#include "files/FileSender.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include <atomic>
#include <thread>

namespace
{

constexpr qint64 chunkBytes = 1024;
constexpr qint64 megabyte = 1024 * 1024;
const QString address = QStringLiteral("127.0.0.1");

[[noreturn]] void fail(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
    std::exit(1);
}

/// Takes one connection after the other, and all that comes.
class Receiver
{
public:
    Receiver() : thread([this] { work(); })
    {
        while (port == 0) {
            std::this_thread::yield();
        }
    }
    ~Receiver()
    {
        isOver = true;
        thread.join();
    }
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    quint16 getPort() const { return port; }
    qint64 getBytes() const { return bytes; }

private:
    void work()
    {
        constexpr int turn = 100; // milliseconds until it looks whether that is all
        QTcpServer server;
        if (!server.listen(QHostAddress::LocalHost)) {
            fail("no port");
        }
        port = server.serverPort();
        while (!isOver) {
            if (server.waitForNewConnection(turn)) {
                const std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
                while (socket->waitForReadyRead(-1)) {
                    bytes += socket->readAll().size();
                }
            }
        }
    }

    std::atomic<quint16> port{0};
    std::atomic<qint64> bytes{0};
    std::atomic<bool> isOver{false};
    std::thread thread;
};

/// As plain as it can be written.
void sendBare(const QString& path, quint16 port)
{
    QTcpSocket socket;
    socket.connectToHost(address, port);
    QFile file(path);
    if (!socket.waitForConnected() || !file.open(QIODevice::ReadOnly)) {
        fail("no connection or no file");
    }
    socket.setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, 1024);
    for (QByteArray chunk = file.read(chunkBytes); !chunk.isEmpty();
         chunk = file.read(chunkBytes)) {
        socket.write(chunk);
        socket.flush();
        socket.waitForBytesWritten(100);
        QThread::usleep(100);
    }
    socket.disconnectFromHost();
    if (socket.state() != QAbstractSocket::UnconnectedState) {
        socket.waitForDisconnected();
    }
}

/// The seconds that this thread has computed.
double threadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

struct Cost {
    double mostMegabytes = 0; ///< above what was held before
    double pageThread = 0;    ///< share of the time that the thread of the pages computes
};

void sendOurs(QThread& thread, const QString& path, qint64 size, quint16 port, Cost& cost)
{
    const double held = Measure::residentMegabytes();
    const double computed = threadSeconds();
    auto* const sender = new FileSender(path, size, address, port);
    sender->moveToThread(&thread);
    QEventLoop loop;
    QObject::connect(sender, &FileSender::progressed, &loop, [&] {
        cost.mostMegabytes = std::max(cost.mostMegabytes, Measure::residentMegabytes() - held);
    });
    QObject::connect(sender, &FileSender::finished, &loop, [&](const QString& problem) {
        if (!problem.isEmpty()) {
            fail(qPrintable(problem));
        }
        loop.quit();
    });
    const double took = Measure::seconds([&] {
        QMetaObject::invokeMethod(sender, &FileSender::start, Qt::QueuedConnection);
        loop.exec();
    });
    cost.pageThread = std::max(cost.pageThread, (threadSeconds() - computed) / took);
    sender->deleteLater();
}

QString makeFile(const QString& folder, qint64 size)
{
    QFile file(folder + QStringLiteral("/file"));
    if (!file.open(QIODevice::WriteOnly) || !file.resize(size)) {
        fail("no file");
    }
    return file.fileName();
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const qint64 size = Measure::option(argc, argv, "--megabytes", 8) * megabyte;
    const int repetitions = Measure::option(argc, argv, "--repetitions", 5);
    Measure::Report report;
    const QString path = makeFile(report.path(), size);
    const Receiver receiver;
    QThread thread;
    thread.start();
    Cost cost;
    std::vector<Measure::Way> ways{
        {"a bare loop",
         [&] { return Measure::seconds([&] { sendBare(path, receiver.getPort()); }); }},
        {"the upload", [&] {
             return Measure::seconds(
                 [&] { sendOurs(thread, path, size, receiver.getPort(), cost); });
         }}};
    Measure::interleave(ways, repetitions);
    thread.quit();
    thread.wait();
    report.table("A file to the server", ways, static_cast<double>(size / chunkBytes), "chunk");
    report.line("  at most %.1f MB more memory, %.1f %% of the pages' thread\n", cost.mostMegabytes,
                100 * cost.pageThread);
    return 0;
}
