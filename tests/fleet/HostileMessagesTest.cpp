#include "fleet/Fleet.h"

#include <QSet>
#include <QTest>

#include <iterator>
#include <map>
#include <optional>

/// Every field of every message, missing or with a value that it can't have. A unit that has taken
/// over the good message hears nothing new from the spoilt one.
class HostileMessagesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void spoiltFieldChangesNothing_data();
    void spoiltFieldChangesNothing();
    void spoiltElementsDoNotCrash_data();
    void spoiltElementsDoNotCrash();
};

namespace
{

/// A message and the way to the console: a push, or the reply to a command.
struct Message {
    const char* name;
    const char* text;
    std::optional<DeviceCommand> command;
};

const Message messages[] = {
    {"setState", R"({"request": "device", "action": "setState", "order": 1, "deviceId": 5,
        "versionMainText": "a 1.2.3 b", "versionPSS": "1.0", "versionMain": "1",
        "versionLC": "1.1", "link": "bidirectional", "battery": "charge", "batteryLevel": 50,
        "case": "close", "volume": 20, "playback": "gong",
        "lines": [{"tipId": 1, "title": "A", "state": "ok", "new": false}]})",
     std::nullopt},
    {"getState", R"({"id": 5, "versionMainText": "a 1.2.3 b", "versionPSS": "1.0",
        "versionMain": "1", "versionLC": "1.1", "battery": "charge", "batteryLevel": 50,
        "case": "close", "ip": "1.1.1.1", "mac": "00",
        "lines": [{"tipId": 1, "title": "A", "state": "ok", "new": false}]})",
     DeviceCommand::GetState},
    {"getConfig", R"({"id": 5, "dhcp": true, "ip": "1", "mask": "2", "gateway": "3",
        "staticIp": "4", "staticMask": "5", "staticGateway": "6", "multicastIp": "7",
        "commandPort": 8, "allowedCommandIp": "9", "tavrinRelayControl": false,
        "lineJoined": true, "tavrinAddress": 3, "tavrinRelayEvent": false,
        "tavrinErrorIndication": true, "multicastListen": true, "multicastAIN0": true,
        "multicastAIN1": true, "priorityAIN0": 1, "priorityAIN1": 1, "priorityScenario": 1,
        "priorityListen": 1, "priorityStream": 2})",
     DeviceCommand::GetConfig},
    {"getVolume", R"({"id": 5, "volume": 30})", DeviceCommand::GetVolume},
    {"getEqualizer", R"({"id": 5, "enabled": true, "levels": [1, 2, 3]})",
     DeviceCommand::GetEqualizer},
    {"getTitle", R"({"id": 5, "title": "Hall"})", DeviceCommand::GetTitle},
    {"getAvailableMemory", R"({"id": 5, "size": 30})", DeviceCommand::GetAvailableMemory},
    {"playMessage", R"({"id": 5, "playbackGroupId": 30, "position": 3})",
     DeviceCommand::PlayMessage},
};

void give(const Message& message, const QJsonObject& content)
{
    if (message.command) {
        Fleet::answer(*message.command, Fleet::json(message.text), content);
    } else {
        Fleet::push(content);
    }
}

QVector<QJsonValue> spoiltValues(const QJsonValue& good)
{
    QVector<QJsonValue> values{QJsonValue::Undefined, QJsonValue::Null, QJsonArray{1, "x"},
                               QJsonObject{{"a", 1}}};
    values.append(good.isString() ? QJsonValue(7) : QJsonValue("seven"));
    if (good.isDouble()) {
        values += {7.5, 1e300, -4e9};
    }
    if (!good.isBool()) {
        values.append(true);
    }
    return values;
}

} // namespace

void HostileMessagesTest::spoiltFieldChangesNothing_data()
{
    QTest::addColumn<int>("message");
    for (std::size_t index = 0; index < std::size(messages); ++index) {
        QTest::newRow(messages[index].name) << static_cast<int>(index);
    }
}

void HostileMessagesTest::spoiltFieldChangesNothing()
{
    QFETCH(int, message);
    SessionFixture session;
    Fleet::addDevice(5).setAvailableMemory(1);
    const QJsonObject good = Fleet::json(messages[message].text);
    const QSet<QString> kept{"request", "action", "order"};
    give(messages[message], good);
    give(messages[message], good); // to learn what is told of every message
    session.page.take();
    give(messages[message], good);
    const QStringList usual = session.page.take();
    for (const QString& field : good.keys()) {
        for (const QJsonValue& value : spoiltValues(good.value(field))) {
            // An array of levels is none of units: its one good element stands.
            if (kept.contains(field) || (value.isArray() && good.value(field).isArray())) {
                continue;
            }
            QJsonObject spoilt = good;
            spoilt.insert(field, value);
            give(messages[message], spoilt);
            for (const QString& call : session.page.take()) {
                QVERIFY2(usual.contains(call), qPrintable(field + QStringLiteral(": ") + call));
            }
            QCOMPARE(Data::deviceList.size(), 1);
        }
    }
}

void HostileMessagesTest::spoiltElementsDoNotCrash_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("element");
    const auto row = [](const char* name, const char* list, const char* element) {
        QTest::newRow(name) << list << element;
    };
    row("device getState", "lines", R"({"tipId": 300, "title": "A", "state": "ok", "new": 0})");
    row("device getDevices", "devices", R"({"id": 5, "title": "A", "link": "no", "volume": 101})");
    row("device listMessages", "list", R"({"position": 0, "title": "A", "size": 1})");
    row("device listScenarios", "list", R"({"position": 0, "positionGong": 0,
        "positionMessage": 0, "priority": 1, "title": "A", "repeat": 1})");
    row("device getPlays", "playbackGroups",
        R"({"id": 5, "type": "message", "position": 0, "devices": [5]})");
    row("device getEqualizer", "levels", R"({"x": 1})");
    row("zone list zones", "zones", R"({"id": 3, "title": "A", "type": "logic", "parentId": 3})");
    row("zone list devices", "devices", R"({"id": 5, "parentId": 3})");
}

/// The unit is there after every spoilt element, and its volume as it was.
void HostileMessagesTest::spoiltElementsDoNotCrash()
{
    QFETCH(QString, list);
    QFETCH(QString, element);
    const QStringList name = QString::fromLatin1(QTest::currentDataTag()).split(QLatin1Char(' '));
    const QJsonObject good = Fleet::json(element.toUtf8().constData());
    const auto give = [&](const QJsonValue& spoilt) {
        const SessionFixture session;
        Fleet::addDevice(5).setVolume(30);
        Fleet::addZone(0, "all");
        const QJsonObject reply{
            {"id", 5}, {"zones", QJsonArray()}, {"enabled", true}, {list, QJsonArray{spoilt}}};
        const auto command = std::map<QString, DeviceCommand>{
            {"getState", DeviceCommand::GetState},
            {"getDevices", DeviceCommand::GetDevices},
            {"listMessages", DeviceCommand::ListMessages},
            {"listScenarios", DeviceCommand::ListScenarios},
            {"getPlays", DeviceCommand::GetPlays},
            {"getEqualizer", DeviceCommand::GetEqualizer},
        };
        if (name.value(0) == "zone") {
            Fleet::answer(ZoneCommand::List, {}, reply);
        } else {
            Fleet::answer(command.at(name.value(1)), QJsonObject{{"id", 5}}, reply);
        }
        QVERIFY(Data::getDeviceById(5));
        QCOMPARE(Data::getDeviceById(5)->getVolume(), 30);
    };
    for (const QString& field : good.keys()) {
        for (const QJsonValue& value : spoiltValues(good.value(field))) {
            QJsonObject spoilt = good;
            spoilt.insert(field, value);
            give(spoilt);
        }
    }
    for (const QJsonValue& value : spoiltValues(good)) {
        give(value.isUndefined() ? QJsonValue() : value);
    }
}

QTEST_GUILESS_MAIN(HostileMessagesTest)
#include "HostileMessagesTest.moc"
