#include "mirror/Fleet.h"

#include "model/Role.h"
#include "network/TcpClient.h"

#include <QJsonDocument>

#include <memory>

namespace Fleet
{

namespace
{

QVector<QJsonObject> takeQueued()
{
    QVector<QJsonObject> result;
    for (const QByteArray& text : Data::tcpClient.queuedMessages()) {
        const QJsonObject message = QJsonDocument::fromJson(text).object();
        if (message.contains(QStringLiteral("request"))) {
            result.append(message);
        }
    }
    Data::tcpClient.close(); // drops the queue
    return result;
}

} // namespace

QJsonObject json(const char* text)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (!document.isObject()) {
        qFatal("A test's message is no object: %s in %s", qPrintable(error.errorString()), text);
    }
    return document.object();
}

QStringList lines(const char* text)
{
    QStringList result;
    for (const QString& line : QString::fromUtf8(text).split(QLatin1Char('\n'))) {
        if (!line.trimmed().isEmpty()) {
            result.append(line.trimmed());
        }
    }
    return result;
}

QStringList takeRequests()
{
    QStringList result;
    for (QJsonObject& message : takeQueued()) {
        const QString name = message.take(QStringLiteral("request")).toString() + QLatin1Char('/') +
                             message.take(QStringLiteral("action")).toString();
        message.remove(QStringLiteral("order"));
        const QByteArray fields = QJsonDocument(message).toJson(QJsonDocument::Compact);
        result.append(message.isEmpty() ? name
                                        : name + QLatin1Char(' ') + QString::fromUtf8(fields));
    }
    return result;
}

QStringList takeActions()
{
    QStringList result;
    for (const QJsonObject& message : takeQueued()) {
        result.append(message.value(QStringLiteral("action")).toString());
    }
    return result;
}

void push(const QByteArray& text)
{
    push(json(text.constData()));
}

void push(const QJsonObject& message)
{
    SessionFixture::receive(message);
}

Device& addDevice(int id, DeviceStatus status)
{
    auto device = std::make_unique<Device>();
    device->setId(id);
    device->setStatus(status);
    return *Data::deviceList.append(std::move(device));
}

Zone& addZone(int id, const QString& name, int parent, int type)
{
    auto zone = std::make_unique<Zone>();
    zone->setId(id);
    zone->setName(name);
    zone->setParentZone(parent);
    zone->setType(type);
    return *Data::zoneList.append(std::move(zone));
}

void addEverything()
{
    addZone(Zone::everything, QStringLiteral("Все зоны"));
}

void beZoneManager()
{
    auto role = std::make_unique<Role>();
    role->setName(QStringLiteral("keeper"));
    role->setZoneManagement(true);
    role->setCurrent(true);
    Data::roleList.append(std::move(role));
}

} // namespace Fleet
