// Round trips through the queue, against a bare socket that sends the same requests one by one
// over the same TLS to the same server process.

#include "Measure.h"
#include "app/Data.h"
#include "log/Log.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "protocol/Request.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QProcess>
#include <QSettings>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QThread>

#ifdef Q_OS_LINUX
#include <sched.h>
#endif

namespace
{

constexpr int waitMilliseconds = 10000;
const QString address = QStringLiteral("127.0.0.1");

[[noreturn]] void fail(const char* text)
{
    std::fprintf(stderr, "%s\n", text);
    std::exit(1);
}

QString keyFile(const QString& folder)
{
    return folder + QStringLiteral("/key.pem");
}

QString certificateFile(const QString& folder)
{
    return folder + QStringLiteral("/certificate.pem");
}

void makeCertificate(const QString& folder)
{
    const QStringList arguments{
        QStringLiteral("req"),       QStringLiteral("-x509"),    QStringLiteral("-nodes"),
        QStringLiteral("-newkey"),   QStringLiteral("rsa:2048"), QStringLiteral("-subj"),
        QStringLiteral("/CN=bench"), QStringLiteral("-keyout"),  keyFile(folder),
        QStringLiteral("-out"),      certificateFile(folder)};
    QProcess openssl;
    openssl.start(QStringLiteral("openssl"), arguments);
    if (!openssl.waitForFinished(waitMilliseconds) || openssl.exitCode() != 0) {
        fail("openssl made no certificate");
    }
}

/// The server of both clients, in a process of its own: answers each request with a small reply.
class BareServer : public QTcpServer
{
public:
    explicit BareServer(const QString& folder)
    {
        QFile key(keyFile(folder));
        if (!key.open(QIODevice::ReadOnly)) {
            fail("no key");
        }
        privateKey = QSslKey(&key, QSsl::Rsa);
        certificate = QSslCertificate::fromPath(certificateFile(folder)).value(0);
    }

protected:
    void incomingConnection(qintptr descriptor) override
    {
        auto* const socket = new QSslSocket(this);
        socket->setSocketDescriptor(descriptor);
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        socket->setPrivateKey(privateKey);
        socket->setLocalCertificate(certificate);
        connect(socket, &QSslSocket::readyRead, socket, [socket] { answer(*socket); });
        connect(socket, &QSslSocket::disconnected, socket, &QObject::deleteLater);
        socket->startServerEncryption();
    }

private:
    static void answer(QSslSocket& socket)
    {
        const QJsonObject request = QJsonDocument::fromJson(socket.readAll()).object();
        const QJsonObject reply{{"order", request.value(QLatin1String("order"))},
                                {"response", "success"},
                                {"volume", request.value(QLatin1String("volume"))}};
        socket.write(QJsonDocument(reply).toJson());
        socket.flush();
    }

    QSslKey privateKey;
    QSslCertificate certificate;
};

/// Serves until the process is ended; the port goes to standard output.
int serve(const QString& folder)
{
    BareServer server(folder);
    if (!server.listen(QHostAddress(address))) {
        fail("no port");
    }
    std::printf("%d\n", server.serverPort());
    std::fflush(stdout);
    return QCoreApplication::exec();
}

QJsonObject fieldsOf(int number)
{
    return {{"id", number % 1000}, {"volume", number % 100}};
}

/// The requests one by one through the console's own client: request, reply, handler, next.
class QueueClient
{
public:
    explicit QueueClient(int port)
    {
        NetworkCommand command;
        command.setName(QStringLiteral("setVolume"));
        command.setFunction([this](const QJsonObject&) { answered(); });
        auto protocol = std::make_unique<NetworkProtocol>();
        protocol->setName(QStringLiteral("device"));
        protocol->addNetworkCommand(command);
        Data::parser.addProtocol(std::move(protocol));
        Data::tcpClient.addParser(&Data::parser);
        Data::tcpClient.setSessionEndHook([] { fail("the server has gone"); });
        if (!Data::tcpClient.connectToServer(address, port)) {
            fail("the client found no server");
        }
        Data::localPort = Data::tcpClient.getLocalPort();
    }
    ~QueueClient() { Data::tcpClient.close(); }
    QueueClient(const QueueClient&) = delete;
    QueueClient& operator=(const QueueClient&) = delete;

    double run(int count)
    {
        Data::parser.reset();
        left = count;
        return Measure::seconds([this] {
            sendNext();
            loop.exec();
        });
    }

private:
    static void sendNext()
    {
        sendRequest(ProtocolId::Device, 0, fieldsOf(Data::parser.orderCounter));
    }
    void answered()
    {
        if (--left == 0) {
            loop.quit();
        } else {
            sendNext();
        }
    }

    QEventLoop loop;
    int left = 0;
};

/// The same texts over a socket that knows nothing of queues and objects.
class BareClient
{
public:
    BareClient(int port, int count)
    {
        for (int order = 0; order < count; ++order) {
            QJsonObject request = fieldsOf(order);
            request.insert(QStringLiteral("request"), QStringLiteral("device"));
            request.insert(QStringLiteral("action"), QStringLiteral("setVolume"));
            request.insert(QStringLiteral("order"), order);
            texts.append(QJsonDocument(request).toJson());
        }
        socket.setPeerVerifyMode(QSslSocket::VerifyNone);
        socket.connectToHostEncrypted(address, static_cast<quint16>(port));
        if (!socket.waitForEncrypted(waitMilliseconds)) {
            fail("the bare client found no server");
        }
        socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
        QObject::connect(&socket, &QSslSocket::readyRead, &socket, [this] { readReply(); });
        QObject::connect(&socket, &QSslSocket::errorOccurred, &socket,
                         [] { fail("the server has gone"); });
    }

    double run()
    {
        next = 0;
        return Measure::seconds([this] {
            sendNext();
            loop.exec();
        });
    }

private:
    void sendNext()
    {
        socket.write(texts.at(next++));
        socket.flush();
    }
    void readReply()
    {
        if (!socket.readAll().endsWith("}\n")) {
            return;
        }
        if (next == texts.size()) {
            loop.quit();
        } else {
            sendNext();
        }
    }

    QSslSocket socket;
    QEventLoop loop;
    QVector<QByteArray> texts;
    int next = 0;
};

int startServer(QProcess& server, const QString& folder)
{
    server.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--serve"), folder});
    if (!server.waitForReadyRead(waitMilliseconds)) {
        fail("the server didn't start");
    }
    return server.readLine().trimmed().toInt();
}

/// Lets a process run on one processor only; 0 is the caller.
void keepOn(int processor, qint64 process)
{
#ifdef Q_OS_LINUX
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(processor, &set);
    sched_setaffinity(static_cast<pid_t>(process), sizeof(set), &set);
#endif
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments.at(1) == QLatin1String("--serve")) {
        return serve(arguments.at(2));
    }
    const int trips = Measure::option(argc, argv, "--trips", 5000);
    const int repetitions = Measure::option(argc, argv, "--repetitions", 9);
    Measure::Report report;
    QSettings settings(report.path() + QStringLiteral("/config.ini"), QSettings::IniFormat);
    settings.setValue(QStringLiteral("path/log"), report.path());
    Log::logger().setConfig(&settings);
    Log::logger().setPort(&Data::localPort);
    makeCertificate(report.path());
    QProcess server;
    const int port = startServer(server, report.path());
    keepOn(0, 0);
    {
        BareClient bare(port, trips);
        QueueClient queue(port);
        const auto measure = [&](int processor, const char* heading) {
            keepOn(processor, server.processId());
            std::vector<Measure::Way> ways{{"bare socket", [&] { return bare.run(); }},
                                           {"queue", [&] { return queue.run(trips); }}};
            Measure::interleave(ways, repetitions);
            report.table(heading, ways, trips, "trip");
        };
        measure(QThread::idealThreadCount() > 1 ? 1 : 0,
                "Round trips, the server on a processor of its own, as in life");
        measure(0, "Round trips, both sides on one processor: all our work counts in full");
    }
    server.kill();
    server.waitForFinished(waitMilliseconds);
    return 0;
}
