#include "network/TcpClient.h"

#include "log/Log.h"
#include "network/Redaction.h"

#include <QCryptographicHash>
#include <QHostAddress>
#include <QScopedValueRollback>
#include <QSslCertificate>
#include <QSslCipher>
#include <QSslError>
#include <QSslSocket>

namespace
{

constexpr int firstTickMilliseconds = 100;
constexpr int tickMilliseconds = 10;

void logErrors(const QList<QSslError>& errors)
{
    Log::message(QStringLiteral("SSL error count ") + QString::number(errors.size()));
    for (int index = 0; index < errors.size(); ++index) {
        Log::message(QString::number(index) + QStringLiteral(". ") +
                     errors.at(index).errorString());
    }
}

} // namespace

TcpClient::TcpClient(int maximumObjectSize) : splitter(maximumObjectSize)
{
    connect(&writeTimer, &QTimer::timeout, this, &TcpClient::writeMessage);
    readers.setMaxThreadCount(1); // one after another, as they came
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

void TcpClient::setCloseHook(std::function<void()> hook)
{
    onClose = std::move(hook);
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
    socket->setReadBufferSize(readBufferSize);
    peerWatch.watch(socket.get());
    connect(socket.get(), &QSslSocket::readyRead, this, &TcpClient::readMessage);
    // Queued: the socket doesn't tell of what is written while it tells of something.
    connect(socket.get(), &QSslSocket::encryptedBytesWritten, this, &TcpClient::sendAttachment,
            Qt::QueuedConnection);
    connect(socket.get(), &QSslSocket::disconnected, this, &TcpClient::connectionLost);
    connect(socket.get(), &QSslSocket::errorOccurred, socket.get(), [ssl = socket.get()] {
        Log::message(QStringLiteral("Connection: ") + ssl->errorString());
    });
    if (socket->bytesAvailable() > 0) {
        scheduleReading(); // came along with the handshake, before anybody listened for it
    }
    Log::message("Connection success");
    meetPeer(host, port);
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
        logErrors(socket->sslHandshakeErrors());
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
    const Logger::Burst burst(Log::logger());
    Log::message("Handshake success");
    Log::message(QStringLiteral("Cipher: ") + socket->sessionCipher().name() +
                 QStringLiteral(", ") + socket->sessionCipher().protocolString());
    logErrors(socket->sslHandshakeErrors()); // not judged, but told
}

/// The certificate isn't judged, but whoever wants to know can see whether it is that of last time.
void TcpClient::meetPeer(const QString& host, int port)
{
    const QByteArray fingerprint =
        socket->peerCertificate().digest(QCryptographicHash::Sha256).toHex(':');
    peerChanged = knownPeers.meet(host, port, fingerprint) == KnownPeers::Met::Changed;
    Log::message("Server certificate SHA-256: " + fingerprint);
    if (peerChanged) {
        Log::message("Server certificate is another than last time");
    }
}

int TcpClient::getLocalPort() const
{
    return socket ? socket->localPort() : 0;
}

void TcpClient::write(const OutgoingMessage& message)
{
    if (Log::isWritten(LogLevel::Debug)) {
        Log::message("Quered message: " + redacted(message.text), LogLevel::Debug);
    }
    messages.push_back(message);
    scheduleWriting();
}

void TcpClient::request(int protocolId, int commandId, const QJsonObject& fields,
                        const Attachment& attachment)
{
    const Request request{protocolId, commandId, fields, parser->currentCause(), attachment};
    if (socket && request.cause == Cause::Console) {
        waiting.push_back(request);
        scheduleWriting();
    } else {
        write(parser->writeJson(request));
    }
}

QVector<QByteArray> TcpClient::queuedMessages() const
{
    QVector<QByteArray> texts;
    for (const OutgoingMessage& message : messages) {
        texts.append(message.whole());
    }
    return texts;
}

void TcpClient::scheduleWriting()
{
    // What a handler writes leaves right behind it; this is for an event loop that it may run.
    if (!writingScheduled) {
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

bool TcpClient::enterWaiting()
{
    if (waiting.empty()) {
        return false;
    }
    const Request request = std::move(waiting.front());
    waiting.pop_front();
    write(parser->writeJson(request));
    return true;
}

void TcpClient::writeMessage()
{
    // Asked each time: a write may find that the connection has gone.
    const auto connected = [this] { return socket && socket->isEncrypted(); };
    while (connected() && leaving.isEmpty() && waitingAnswers == 0 &&
           (!messages.empty() || enterWaiting())) {
        const OutgoingMessage message = std::move(messages.front());
        messages.pop_front();
        send(message);
    }
    if (!connected() || (messages.empty() && waiting.empty())) {
        writeTimer.stop();
    } else {
        writeTimer.start(tickMilliseconds);
    }
}

void TcpClient::send(const OutgoingMessage& message)
{
    const QScopedValueRollback<bool> inSend(sending, true);
    waitingAnswers += message.expectsAnswer ? 1 : 0;
    socket->write(message.text);
    socket->flush();
    peerWatch.dataWritten();
    logSent(message); // while it is on its way: the server needn't wait for that
    leaving = message.attachment;
    leavingAt = 0;
    sendAttachment();
}

/// The socket encrypts what it is given at once, and keeps a copy: so it gets a piece at a time.
void TcpClient::sendAttachment()
{
    if (leaving.isEmpty() || socket->bytesToWrite() > 0 || socket->encryptedBytesToWrite() > 0) {
        return;
    }
    const QScopedValueRollback<bool> inSend(sending, true);
    const int piece = qMin(attachmentPiece, leaving.size() - leavingAt);
    const QByteArray held = leaving; // the write may find that the connection has gone
    leavingAt += piece;
    const bool isLast = leavingAt == held.size();
    socket->write(held.constData() + leavingAt - piece, piece);
    if (isLast) {
        leaving.clear();
        socket->write(OutgoingMessage::closing);
        scheduleWriting();
    }
    socket->flush();
    peerWatch.dataWritten();
}

void TcpClient::logSent(const OutgoingMessage& message)
{
    const Logger::Burst burst(Log::logger());
    Log::message(QStringLiteral("Output message: "));
    if (message.expectsAnswer) {
        Log::message(QStringLiteral("Protocol: ") + message.protocol);
        Log::message(QStringLiteral("Command: ") + message.command);
    }
    if (Log::isWritten(LogLevel::Debug)) {
        Log::message(redacted(message.text), LogLevel::Debug);
        if (!message.attachment.isEmpty()) {
            Log::message(QStringLiteral("With %1 bytes").arg(message.attachment.size()),
                         LogLevel::Debug);
        }
        if (message.expectsAnswer) {
            Log::message("Waiting for answer", LogLevel::Debug);
        }
    }
}

void TcpClient::scheduleReading()
{
    QMetaObject::invokeMethod(this, &TcpClient::readMessage, Qt::QueuedConnection);
}

void TcpClient::readMessage()
{
    if (!socket || reading || isReadingAside) {
        return; // whoever reads takes up what has arrived
    }
    if (sending) {
        scheduleReading(); // the socket tells of it from within the write
        return;
    }
    const QScopedValueRollback<bool> inRead(reading, true);
    gatherLog();
    if (onRead) {
        onRead(true);
    }
    readObjects();
    if (onRead) {
        onRead(false);
    }
}

/// The socket hands a large read over in small pieces; the event loop comes round behind them all.
void TcpClient::gatherLog()
{
    if (!gathered) {
        gathered.emplace();
        QMetaObject::invokeMethod(
            this, [this] { gathered.reset(); }, Qt::QueuedConnection);
    }
}

void TcpClient::readObjects()
{
    const int connection = connectionCount;
    QElapsedTimer turn;
    turn.start();
    while (handleNext()) {
        // What the handler has caused leaves at once; nobody else needs to be called for it.
        writeMessage();
        const bool replaced = connection != connectionCount;
        if (replaced || turn.hasExpired(readingTurnMilliseconds)) {
            // What follows belonged to the session that ended, but the next may have begun.
            scheduleReading();
            return;
        }
    }
}

/// Handles what comes next in the stream, if there is anything.
bool TcpClient::handleNext()
{
    if (readObject) {
        IncomingMessage message = std::move(*readObject);
        readObject.reset();
        parser->handle(message);
        readers.start(
            [message = std::move(message)] {}); // to let go of millions of values takes long
        return true;
    }
    while (!isReadingAside) {
        const JsonStreamSplitter::Found found = splitter.next();
        if (found != JsonStreamSplitter::Found::Nothing) {
            take(found);
            return true;
        }
        if (socket->bytesAvailable() == 0) {
            return false;
        }
        splitter.feed(socket->readAll());
    }
    return false;
}

void TcpClient::take(JsonStreamSplitter::Found found)
{
    switch (found) {
    case JsonStreamSplitter::Found::Object:
        received(splitter.takeObject());
        break;
    case JsonStreamSplitter::Found::Garbage:
        Log::dropped(QStringLiteral("Dropped what is no object in the stream"));
        break;
    case JsonStreamSplitter::Found::TooDeep:
        Log::dropped(QStringLiteral("Dropped message: nested too deeply"));
        releaseQueue();
        break;
    case JsonStreamSplitter::Found::TooManyValues:
        Log::dropped(QStringLiteral("Dropped message: too many values"));
        releaseQueue();
        break;
    case JsonStreamSplitter::Found::TooLarge:
        Log::message("Message too large, connection closed");
        exit();
        break;
    case JsonStreamSplitter::Found::Nothing:
        break;
    }
}

void TcpClient::received(const QByteArray& text)
{
    releaseQueue();
    if (!parser) {
        return;
    }
    if (text.size() > NetworkParser::largeObjectSize) {
        readAside(text);
    } else {
        parser->parse(text);
    }
}

void TcpClient::readAside(const QByteArray& text)
{
    isReadingAside = true;
    readers.start([this, text, connection = connectionCount] {
        const auto message = std::make_shared<IncomingMessage>(NetworkParser::read(text));
        QMetaObject::invokeMethod(
            this, [=] { readingAsideEnded(connection, message); }, Qt::QueuedConnection);
    });
}

void TcpClient::readingAsideEnded(int connection, const std::shared_ptr<IncomingMessage>& message)
{
    if (connection == connectionCount) {
        isReadingAside = false;
        readObject = std::move(*message);
        readMessage();
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
    waiting.clear();
    leaving.clear();
    splitter.clear();
    isReadingAside = false;
    readObject.reset();
    gathered.reset(); // the event loop may not come round any more
    waitingAnswers = 0;
    writeTimer.stop();
    peerWatch.stop();
    if (onClose) {
        onClose();
    }
    if (!socket) {
        return;
    }
    socket->disconnect(this);
    socket->disconnectFromHost();
    socket->close();
    socket.release()->deleteLater(); // it may be on the stack below us
}

void TcpClient::connectionLost()
{
    const QScopedValueRollback<bool> whileEnding(lostConnection, true);
    exit();
}

void TcpClient::exit()
{
    close();
    if (parser) {
        parser->reset();
    }
    if (onSessionEnd) {
        onSessionEnd();
    }
}
