#include "network/TcpClient.h"

#include "app/Data.h"
#include "log/Log.h"
#include "network/NetworkParser.h"

#include <QHostAddress>
#include <QJsonDocument>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QSslError>
#include <QSslSocket>

namespace
{

constexpr int firstTickMilliseconds = 100;
constexpr int tickMilliseconds = 10;

} // namespace

TcpClient::TcpClient(int maximumObjectSize) : splitter(maximumObjectSize)
{
    connect(&writeTimer, &QTimer::timeout, this, &TcpClient::writeMessage);
}

TcpClient::~TcpClient() = default;

void TcpClient::addParser(NetworkParser* messageParser)
{
    parser = messageParser;
    parser->setAcknowledgementWriter([this](const QByteArray& text) { write(text); });
}

void TcpClient::setSessionEndHook(std::function<void()> hook)
{
    onSessionEnd = std::move(hook);
}

void TcpClient::setReadHook(std::function<void(bool)> hook)
{
    onRead = std::move(hook);
}

bool TcpClient::connectToServer(const QString& host, int port)
{
    close();
    socket = std::make_unique<QSslSocket>();
    socket->setPeerVerifyMode(QSslSocket::QueryPeer);
    connect(socket.get(), &QSslSocket::encrypted, this, &TcpClient::handshake);
    // Whoever answers is taken for the server: installations run on self-signed certificates.
    connect(socket.get(), QOverload<const QList<QSslError>&>::of(&QSslSocket::sslErrors),
            socket.get(), [ssl = socket.get()] { ssl->ignoreSslErrors(); });
    if (!waitForConnection(host, port)) {
        return false;
    }
    if (parser) {
        parser->reset();
    }
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    peerWatch.watch(socket.get());
    connect(socket.get(), &QSslSocket::readyRead, this, &TcpClient::readMessage);
    connect(socket.get(), &QSslSocket::disconnected, this, &TcpClient::exit);
    if (socket->bytesAvailable() > 0) {
        // Came along with the handshake, before anybody listened for it.
        QMetaObject::invokeMethod(this, &TcpClient::readMessage, Qt::QueuedConnection);
    }
    Log::message("Connection success");
    writeTimer.start(firstTickMilliseconds);
    return true;
}

bool TcpClient::waitForConnection(const QString& host, int port)
{
    if (port > 0 && port <= 0xFFFF) {
        socket->connectToHostEncrypted(host, static_cast<quint16>(port), QIODevice::ReadWrite,
                                       QAbstractSocket::AnyIPProtocol);
    }
    if (!socket->waitForEncrypted(encryptedTimeoutMilliseconds)) {
        const QList<QSslError> errors = socket->sslHandshakeErrors();
        Log::message(QStringLiteral("SSL error count ") + QString::number(errors.size()));
        for (int index = 0; index < errors.size(); ++index) {
            Log::message(QString::number(index) + QStringLiteral(". ") +
                         errors.at(index).errorString());
        }
        Log::message(socket->errorString());
        socket->abort();
        return false;
    }
    if (!socket->waitForConnected(connectedTimeoutMilliseconds)) {
        Log::message("Connection error");
        return false;
    }
    return true;
}

void TcpClient::handshake()
{
    Log::message("Handshake success");
}

int TcpClient::getLocalPort() const
{
    return socket ? socket->localPort() : 0;
}

void TcpClient::write(const QByteArray& message)
{
    messages.append(message);
    if (Log::isWritten(LogLevel::Debug)) {
        Log::message("Quered message: " + message, LogLevel::Debug);
    }
    scheduleWriting();
}

void TcpClient::scheduleWriting()
{
    if (!writingScheduled && !reading) {
        writingScheduled = true;
        QMetaObject::invokeMethod(
            this,
            [this] {
                writingScheduled = false;
                writeMessage();
            },
            Qt::QueuedConnection);
    }
}

void TcpClient::writeMessage()
{
    const bool connected = socket && socket->isEncrypted();
    while (connected && !messages.isEmpty() && waitingAnswers == 0) {
        send(messages.takeFirst());
    }
    if (messages.isEmpty() || !connected) {
        writeTimer.stop();
    } else {
        writeTimer.start(tickMilliseconds);
    }
}

void TcpClient::send(const QByteArray& text)
{
    socket->write(text);
    socket->flush();
    peerWatch.dataWritten();
    // Looked at and logged while the message is on its way: the server needn't wait for that.
    if (logSent(text)) {
        ++waitingAnswers;
    }
}

bool TcpClient::logSent(const QByteArray& text)
{
    const QJsonObject message = QJsonDocument::fromJson(text).object();
    const bool expectsAnswer = message.value(QLatin1String("request")).isString();
    const Logger::Burst burst(Log::logger());
    Log::message(QStringLiteral("Output message: "));
    if (expectsAnswer) {
        Log::message(QStringLiteral("Protocol: ") +
                     message.value(QLatin1String("request")).toString());
        Log::message(QStringLiteral("Command: ") +
                     message.value(QLatin1String("action")).toString());
    }
    Log::message(text, LogLevel::Debug);
    if (expectsAnswer) {
        Log::message("Waiting for answer", LogLevel::Debug);
    }
    return expectsAnswer;
}

void TcpClient::readMessage()
{
    if (!socket) {
        return;
    }
    const int connection = connectionCount;
    // What the handlers write leaves right after them; nobody else needs to be called for it.
    const QScopedValueRollback<bool> inRead(reading, true);
    if (onRead) {
        onRead(true);
    }
    const auto tellEnd = qScopeGuard([this] {
        if (onRead) {
            onRead(false);
        }
    });
    splitter.feed(socket->readAll());
    for (;;) {
        switch (splitter.next()) {
        case JsonStreamSplitter::Found::Nothing:
            return;
        case JsonStreamSplitter::Found::Object:
            received(splitter.object());
            break;
        case JsonStreamSplitter::Found::Garbage:
            Log::message("Dropped what is no object in the stream");
            break;
        case JsonStreamSplitter::Found::TooDeep:
            Log::message("Dropped message: nested too deeply");
            releaseQueue();
            break;
        case JsonStreamSplitter::Found::TooLarge:
            Log::message("Message too large, connection closed");
            exit();
            return;
        }
        writeMessage();
        if (connection != connectionCount) {
            return; // the session has ended in a handler; what follows belonged to it
        }
    }
}

void TcpClient::received(const QByteArray& text)
{
    releaseQueue();
    if (parser) {
        parser->parse(text);
    }
}

void TcpClient::releaseQueue()
{
    waitingAnswers = qMax(0, waitingAnswers - 1);
}

void TcpClient::close()
{
    ++connectionCount;
    messages.clear();
    splitter.clear();
    waitingAnswers = 0;
    writeTimer.stop();
    peerWatch.stop();
    if (!socket) {
        return;
    }
    socket->disconnect(this);
    socket->disconnectFromHost();
    socket->close();
    socket.release()->deleteLater(); // it may be on the stack below us
}

void TcpClient::exit()
{
    Data::localPort = 0;
    close();
    if (parser) {
        parser->reset();
    }
    if (onSessionEnd) {
        onSessionEnd();
    }
}
