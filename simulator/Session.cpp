#include "simulator/Session.h"

#include "simulator/EventLog.h"
#include "simulator/Identity.h"

#include <QHostAddress>
#include <QJsonDocument>

namespace simulator
{

namespace
{

constexpr int handshakeLimit = 10000; // milliseconds

const char* describe(ObjectReader::Fault fault)
{
    switch (fault) {
    case ObjectReader::Fault::Garbage:
        return "sent something else than JSON objects";
    case ObjectReader::Fault::TooLarge:
        return "sent an object that is too large";
    case ObjectReader::Fault::TooDeep:
        return "sent an object that is nested too deeply";
    case ObjectReader::Fault::None:
        break;
    }
    return "";
}

QByteArray textOf(const QJsonObject& message)
{
    return QJsonDocument(message).toJson(QJsonDocument::Compact);
}

} // namespace

Session::Session(qintptr descriptor, int number, const Identity& identity,
                 const Manners& serverManners, QObject* parent)
    : QObject(parent), manners(serverManners), sequence(number)
{
    connect(&socket, &QSslSocket::readyRead, this, &Session::read);
    connect(&socket, &QSslSocket::disconnected, &delay, &QTimer::stop);
    connect(&socket, &QSslSocket::disconnected, this, &Session::ended);
    connect(&socket, &QSslSocket::encrypted, &patience, &QTimer::stop);
    connect(&patience, &QTimer::timeout, this,
            [this] { dismiss("made no TLS connection in time"); });
    connect(&delay, &QTimer::timeout, this, &Session::serveNext);
    connect(&overflow, &QTimer::timeout, this, [this] { dismiss("doesn't read what it is sent"); });
    overflow.setSingleShot(true);
    delay.setSingleShot(true);
    patience.setSingleShot(true);
    patience.start(handshakeLimit);

    if (!socket.setSocketDescriptor(descriptor)) {
        // Nobody listens to this session yet.
        QTimer::singleShot(0, this, &Session::ended);
        return;
    }
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    socket.setLocalCertificate(identity.certificate);
    socket.setPrivateKey(identity.key);
    qCInfo(events).noquote() << "Session" << sequence << "from" << socket.peerAddress().toString();
    socket.startServerEncryption();
}

Session::~Session()
{
    // The socket's last signals would reach a half-destroyed session.
    socket.disconnect(this);
}

void Session::reply(const QJsonObject& request, QJsonObject answer)
{
    answer.insert("order", request.value("order"));
    send(textOf(answer));
}

void Session::push(const std::vector<QJsonObject>& messages)
{
    QByteArray text;
    for (QJsonObject message : messages) {
        message.insert("order", nextPush++);
        text += textOf(message);
    }
    send(text);
}

void Session::drop()
{
    socket.abort();
}

void Session::hurry()
{
    if (delay.isActive()) {
        delay.start(manners.replyDelay);
    }
}

void Session::read()
{
    reader.feed(socket.readAll());
    while (socket.isOpen()) {
        const auto text = reader.next();
        if (!text) {
            break;
        }
        take(*text);
    }
    if (reader.fault() != ObjectReader::Fault::None) {
        dismiss(describe(reader.fault()));
    }
}

void Session::take(const QByteArray& text)
{
    QJsonParseError problem;
    const QJsonObject object = QJsonDocument::fromJson(text, &problem).object();
    if (problem.error != QJsonParseError::NoError) {
        dismiss("sent an object that is no JSON");
        return;
    }
    if (!object.value("request").isString()) {
        if (!object.value("response").isString()) {
            qCWarning(events) << "Session" << sequence << "sent neither a request nor a response";
        }
        return;
    }
    waiting.enqueue(object);
    if (waiting.size() > 1) {
        return;
    }
    if (manners.replyDelay > 0) {
        delay.start(manners.replyDelay);
    } else {
        serveNext();
    }
}

/// Handles the request whose turn it is, and in a delayed session lets the next one wait its time.
void Session::serveNext()
{
    const QJsonObject request = waiting.dequeue();
    if (!manners.silent) {
        Q_EMIT requested(request);
    }
    if (!waiting.isEmpty()) {
        delay.start(manners.replyDelay);
    }
}

/// Writing never waits. What a console doesn't read stays here, up to a bound: then it is dropped,
/// as soon as whoever sends to all consoles is through.
void Session::send(const QByteArray& text)
{
    if (overflow.isActive()) {
        return;
    }
    socket.write(text);
    if (socket.bytesToWrite() + socket.encryptedBytesToWrite() > manners.mostUnread) {
        overflow.start(0);
    }
}

void Session::dismiss(const char* why)
{
    qCWarning(events) << "Session" << sequence << why << "and is dropped";
    drop();
}

} // namespace simulator
