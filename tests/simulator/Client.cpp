#include "simulator/Client.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QJsonDocument>
#include <QTimer>

namespace
{

constexpr int patience = 20000; // milliseconds

/// Length of the first JSON object in the text, 0 while it is not whole. The parser itself says
/// where the next one begins.
int firstObject(const QByteArray& text)
{
    QJsonParseError problem;
    QJsonDocument::fromJson(text, &problem);
    switch (problem.error) {
    case QJsonParseError::NoError:
        return text.size();
    case QJsonParseError::GarbageAtEnd:
        return problem.offset;
    default:
        return 0;
    }
}

/// QTest::qWaitFor() looks every ten milliseconds, which is most of the time of a short exchange.
template <typename Condition> bool waitUntil(Condition condition)
{
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.start(patience);
    while (!condition() && deadline.isActive()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

} // namespace

Client::Client(quint16 port)
{
    socket.setPeerVerifyMode(QSslSocket::VerifyNone);
    QObject::connect(&socket, &QSslSocket::readyRead, &socket, [this] { read(); });
    socket.connectToHostEncrypted("127.0.0.1", port);
    const bool encrypted = waitUntil([this] { return socket.isEncrypted(); });
    Q_UNUSED(encrypted) // isConnected() tells
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
}

void Client::sendRaw(const QByteArray& bytes)
{
    socket.write(bytes);
    socket.flush();
}

int Client::send(const QString& request, const QString& action, QJsonObject fields)
{
    const int order = nextOrder++;
    fields.insert("request", request);
    fields.insert("action", action);
    fields.insert("order", order);
    sendRaw(QJsonDocument(fields).toJson());
    return order;
}

QJsonObject Client::takeFirst(QVector<QJsonObject>& arrived)
{
    const bool came = waitUntil([&arrived] { return !arrived.isEmpty(); });
    return came ? arrived.takeFirst() : QJsonObject();
}

QJsonObject Client::takeReply()
{
    return takeFirst(replies);
}

QJsonObject Client::takePush()
{
    return takeFirst(pushes);
}

QJsonObject Client::takePush(const QString& action)
{
    QJsonObject push = takePush();
    while (!push.isEmpty() && push.value("action") != action) {
        push = takePush();
    }
    return push;
}

QJsonObject Client::ask(const QString& request, const QString& action, const QJsonObject& fields)
{
    const int order = send(request, action, fields);
    const QJsonObject reply = takeReply();
    return reply.value("order") == order ? reply : QJsonObject();
}

bool Client::logIn(const QString& name)
{
    return ask("user", "login", {{"version", 9}, {"user", name}, {"password", digestOf(name)}})
               .value("response") == "success";
}

bool Client::waitForEnd()
{
    return waitUntil([this] { return socket.state() == QAbstractSocket::UnconnectedState; });
}

void Client::read()
{
    buffer += socket.readAll();
    for (int length = firstObject(buffer); length > 0; length = firstObject(buffer)) {
        const QJsonObject object = QJsonDocument::fromJson(buffer.left(length)).object();
        buffer.remove(0, length);
        (object.contains("request") ? pushes : replies).append(object);
    }
}

QString digestOf(const QString& password)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5).toHex());
}
