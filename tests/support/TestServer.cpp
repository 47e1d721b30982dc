#include "support/TestServer.h"

#include "network/JsonStreamSplitter.h"

#include <QFile>
#include <QJsonDocument>
#include <QMutexLocker>
#include <QProcess>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTimer>

namespace
{

/// A self-signed identity, made afresh in every test program.
struct Identity {
    Identity()
    {
        const QTemporaryDir folder;
        const QString keyPath = folder.filePath(QStringLiteral("key.pem"));
        const QString certificatePath = folder.filePath(QStringLiteral("certificate.pem"));
        QProcess::execute(
            QStringLiteral("openssl"),
            {QStringLiteral("req"), QStringLiteral("-x509"), QStringLiteral("-nodes"),
             QStringLiteral("-newkey"), QStringLiteral("ec"), QStringLiteral("-pkeyopt"),
             QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-days"),
             QStringLiteral("2"), QStringLiteral("-subj"), QStringLiteral("/CN=test"),
             QStringLiteral("-keyout"), keyPath, QStringLiteral("-out"), certificatePath});
        QFile keyFile(keyPath);
        keyFile.open(QIODevice::ReadOnly);
        key = QSslKey(&keyFile, QSsl::Ec);
        certificate = QSslCertificate::fromPath(certificatePath).value(0);
        if (key.isNull() || certificate.isNull()) {
            qFatal("The test server has no certificate: is the openssl tool there?");
        }
    }

    QSslKey key;
    QSslCertificate certificate;
};

const Identity& identity()
{
    static const Identity made;
    return made;
}

/// Hands each connection over as it is, before any socket of another kind is made for it.
class Listener : public QTcpServer
{
public:
    Listener(QObject* parent, std::function<void(qintptr)> acceptor)
        : QTcpServer(parent), accepted(std::move(acceptor))
    {
    }

protected:
    void incomingConnection(qintptr descriptor) override { accepted(descriptor); }

private:
    std::function<void(qintptr)> accepted;
};

QString nameOf(const QJsonObject& message)
{
    return message.value(QLatin1String("request")).toString() + QLatin1Char('/') +
           message.value(QLatin1String("action")).toString();
}

QByteArray wireText(const QVector<QJsonObject>& objects)
{
    QByteArray result;
    for (const QJsonObject& object : objects) {
        result += QJsonDocument(object).toJson(QJsonDocument::Compact);
    }
    return result;
}

const QJsonObject success{{QStringLiteral("response"), QStringLiteral("success")}};
const QJsonObject greeting{{QStringLiteral("request"), QStringLiteral("helper")},
                           {QStringLiteral("action"), QStringLiteral("brokenLink")},
                           {QStringLiteral("order"), 1}};

} // namespace

TestServer::TestServer(Conduct howItBehaves, std::function<void()> enterThread,
                       const QHostAddress& address)
    : conduct(howItBehaves), worker(std::make_unique<QObject>())
{
    identity();
    worker->moveToThread(&thread);
    thread.start();
    run([&] {
        if (enterThread) {
            enterThread();
        }
        listen(address);
    });
}

TestServer::~TestServer()
{
    frozen.release();
    run([this] { worker.reset(); });
    thread.quit();
    thread.wait();
}

void TestServer::run(const std::function<void()>& work)
{
    QSemaphore done;
    QMetaObject::invokeMethod(
        worker.get(),
        [&] {
            work();
            done.release();
        },
        Qt::QueuedConnection);
    done.acquire();
}

void TestServer::listen(const QHostAddress& address)
{
    auto* const listener =
        new Listener(worker.get(), [this](qintptr descriptor) { accept(descriptor); });
    if (!listener->listen(address)) {
        qFatal("The test server can't listen");
    }
    listeningPort = listener->serverPort();
}

void TestServer::accept(qintptr descriptor)
{
    auto* const socket = new QSslSocket(worker.get());
    socket->setSocketDescriptor(descriptor);
    newest = socket;
    {
        const QMutexLocker lock(&mutex);
        ++connections;
        ++openConnections;
    }
    QObject::connect(socket, &QSslSocket::disconnected, worker.get(), [this] {
        const QMutexLocker lock(&mutex);
        --openConnections;
    });
    if (conduct == Conduct::Plain) {
        socket->write("HTTP/1.1 400 Bad Request\r\n\r\n");
    } else if (conduct == Conduct::HangsUp) {
        socket->disconnectFromHost();
    } else if (conduct != Conduct::Silent) {
        startTls(socket);
    }
}

void TestServer::startTls(QSslSocket* socket)
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setPrivateKey(identity().key);
    configuration.setLocalCertificate(identity().certificate);
    configuration.setPeerVerifyMode(QSslSocket::VerifyNone);
    if (conduct == Conduct::OldTls) {
        configuration.setProtocol(QSsl::TlsV1_2);
    }
    socket->setSslConfiguration(configuration);
    QObject::connect(socket, &QSslSocket::encrypted, socket, [this, socket] {
        if (conduct == Conduct::HangsUpLater) {
            socket->disconnectFromHost();
        }
        if (conduct == Conduct::OldTls) {
            socket->write(wireText({greeting}));
        }
    });
    const auto splitter = std::make_shared<JsonStreamSplitter>();
    QObject::connect(socket, &QSslSocket::readyRead, socket, [=] { read(socket, *splitter); });
    socket->startServerEncryption();
}

void TestServer::read(QTcpSocket* socket, JsonStreamSplitter& splitter)
{
    const QByteArray arrived = socket->readAll();
    {
        const QMutexLocker lock(&mutex);
        bytes += arrived;
    }
    splitter.feed(arrived);
    while (splitter.next() == JsonStreamSplitter::Found::Object) {
        handle(socket, QJsonDocument::fromJson(splitter.takeObject()).object());
    }
}

void TestServer::handle(QTcpSocket* socket, const QJsonObject& message)
{
    Step step;
    int wait = 0;
    {
        const QMutexLocker lock(&mutex);
        wait = delay;
        messages.append(message);
        if (!message.contains(QLatin1String("request"))) {
            return;
        }
        const auto row = script.find(nameOf(message));
        if (row != script.end()) {
            step = row->second;
        } else if (answersAll) {
            step.objects = {success};
        }
    }
    for (QJsonObject& object : step.objects) {
        if (object.contains(QLatin1String("response")) &&
            !object.contains(QLatin1String("order"))) {
            object.insert(QStringLiteral("order"), message.value(QLatin1String("order")));
        }
    }
    const QByteArray text = wireText(step.objects) + step.rest;
    const auto answer = [socket, text, closes = step.closes] {
        socket->write(text);
        if (closes) {
            socket->disconnectFromHost();
        }
    };
    if (wait > 0) {
        QTimer::singleShot(wait, socket, answer);
    } else {
        answer();
    }
}

void TestServer::onRequest(const QString& name, const Step& step)
{
    const QMutexLocker lock(&mutex);
    script[name] = step;
}

void TestServer::answerAll()
{
    const QMutexLocker lock(&mutex);
    answersAll = true;
}

void TestServer::setDelay(int milliseconds)
{
    const QMutexLocker lock(&mutex);
    delay = milliseconds;
}

void TestServer::send(const QVector<QJsonObject>& objects)
{
    sendRaw(wireText(objects));
}

void TestServer::sendRaw(const QByteArray& text)
{
    run([&] {
        newest->write(text);
        newest->flush();
    });
}

void TestServer::hangUp()
{
    run([this] { newest->disconnectFromHost(); });
}

void TestServer::freeze()
{
    QMetaObject::invokeMethod(
        worker.get(), [this] { frozen.acquire(); }, Qt::QueuedConnection);
}

void TestServer::thaw()
{
    frozen.release();
}

QVector<QJsonObject> TestServer::received() const
{
    const QMutexLocker lock(&mutex);
    return messages;
}

QString TestServer::describe(const QJsonObject& message)
{
    const bool isRequest = message.contains(QLatin1String("request"));
    return (isRequest ? nameOf(message) : QStringLiteral("ack")) + QLatin1Char(' ') +
           QString::number(message.value(QLatin1String("order")).toInt(-1));
}

QStringList TestServer::receivedNames() const
{
    QStringList names;
    for (const QJsonObject& message : received()) {
        names.append(describe(message));
    }
    return names;
}

QByteArray TestServer::receivedBytes() const
{
    const QMutexLocker lock(&mutex);
    return bytes;
}

int TestServer::connectionCount() const
{
    const QMutexLocker lock(&mutex);
    return connections;
}

int TestServer::openConnectionCount() const
{
    const QMutexLocker lock(&mutex);
    return openConnections;
}
