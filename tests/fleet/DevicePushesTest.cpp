#include "fleet/Fleet.h"

#include <QTest>

/// The stream of states that the server pushes.
class DevicePushesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void stateOfAKnownUnit();
    void unchangedStateIsQuiet();
    void stateOfAnUnknownUnit();
    void unknownUnitWithoutRootZone();
    void memoryIsReadOnce_data();
    void memoryIsReadOnce();
    void playbackWords_data();
    void playbackWords();
    void words_data();
    void words();
    void reloadAsksForEverything_data();
    void reloadAsksForEverything();
    void startOfTranslationAsksWhatPlays();
    void pushWithoutIdIsDropped();
};

namespace
{

QJsonObject state(int id)
{
    QJsonObject message = Fleet::json(R"({"request": "device", "action": "setState", "order": 1,
        "versionMainText": "fw 1.2.3 x", "versionPSS": "1.0.0", "versionMain": "0",
        "versionLC": "2.0.0", "link": "bidirectional", "battery": "ok", "batteryLevel": 90,
        "case": "close", "lines": [{"tipId": 1, "title": "A", "state": "ok", "new": false}],
        "volume": 40, "playback": "none"})");
    message.insert("deviceId", id);
    return message;
}

QJsonObject state(int id, const QString& field, const QString& word)
{
    QJsonObject message = state(id);
    message.insert(field, word);
    return message;
}

} // namespace

void DevicePushesTest::stateOfAKnownUnit()
{
    SessionFixture session;
    Fleet::addDevice(5, DeviceOffline);
    session.page.take();
    Fleet::push(state(5));
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_device_setVersion(5,0,"","","1.2.3");
        wrapperInput_device_setVersion(5,3,"1.0.0","","1.2.3");
        wrapperInput_device_setVersion(5,3,"1.0.0","2.0.0","1.2.3");
        wrapperInput_device_linkOn(5,2);
        wrapperInput_device_setPower(5,1);
        wrapperInput_device_setBattery(5,2);
        wrapperInput_device_setBatteryLevel(5,90);
        wrapperInput_device_setHull(5,1);
        wrapperInput_deviceLine_setName(5,1,"A");
        wrapperInput_deviceLine_setState(5,1,0,0,1);
        wrapperInput_device_setLinesStatus(5,1);
        wrapperInput_deviceLine_setNew(5,1,0,0,1);
        wrapperInput_deviceLine_add(5,1,"A",0,0,1);
        wrapperInput_device_setLinesStatus(5,1);
        wrapperInput_device_setVolume(5,40);
        wrapperInput_device_setPlayback(5,0,0);
        wrapperInput_device_setPlaybackCategory(5,0);
        wrapperInput_device_setPlaybackInfo(5,"--","--");
        deviceInfo_changePlaying(5,0);
        wrapperInput_device_setRead(5);)"));
    QCOMPARE(Fleet::takeRequests(), Fleet::lines(R"(
        device/getEqualizer {"id":5}
        device/getMemoryStamp {"id":5}
        device/getAvailableMemory {"id":5}
        device/listMessages {"id":5}
        device/listScenarios {"id":5}
        device/getConfig {"id":5})"));
}

void DevicePushesTest::unchangedStateIsQuiet()
{
    SessionFixture session;
    Fleet::addDevice(5).setAvailableMemory(100);
    Fleet::push(state(5));
    Fleet::takeRequests();
    session.page.take();
    Fleet::push(state(5));
    for (const QString& call : session.page.calls()) {
        QVERIFY2(!call.contains("Battery") && !call.contains("Volume") && !call.contains("Power") &&
                     !call.contains("Hull") && !call.contains("Read"),
                 qPrintable(call));
    }
    QCOMPARE(Fleet::takeActions(), (QStringList{"getEqualizer", "getConfig"}));
}

void DevicePushesTest::stateOfAnUnknownUnit()
{
    SessionFixture session;
    Fleet::beZoneManager();
    Zone& root = Fleet::addZone(1, QStringLiteral("root"));
    session.page.take();
    Fleet::push(state(5));
    QCOMPARE(
        session.page.calls().filter(QRegularExpression("_add\\(5|linkOn|Volume|Level|zone|Read")),
        Fleet::lines(R"(
        wrapperInput_device_linkOn(5,2);
        wrapperInput_device_setVolume(5,40);
        wrapperInput_device_add(5,"",2,40,0,1);
        wrapperInput_device_setBatteryLevel(5,90);
        wrapperInput_deviceLine_add(5,1,"A",0,0,1);
        wrapperInput_device_setRead(5);
        wrapperInput_zone_includeDevice(1,5);)"));
    const Device* const device = Data::getDeviceById(5);
    QVERIFY(device);
    QCOMPARE(device->getZoneList(), QVector<int>{1});
    QCOMPARE(root.getDeviceList(), QVector<int>{5});
    QCOMPARE(
        Fleet::takeActions(),
        (QStringList{"getEqualizer", "getTitle", "getMemoryStamp", "getAvailableMemory",
                     "listMessages", "listScenarios", "getEqualizer", "getConfig", "getState"}));
}

void DevicePushesTest::unknownUnitWithoutRootZone()
{
    const SessionFixture session;
    Fleet::push(state(5, "link", "incoming"));
    QCOMPARE(Data::getDeviceById(5)->getZoneList(), QVector<int>());
    QCOMPARE(Fleet::takeActions(),
             (QStringList{"getEqualizer", "getTitle", "getConfig", "getState"}));
}

void DevicePushesTest::memoryIsReadOnce_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("link");
    QTest::addColumn<bool>("asks");
    QTest::newRow("comes online") << 0 << "bidirectional" << true;
    QTest::newRow("still connecting") << 0 << "incoming" << false;
    QTest::newRow("size known") << 5 << "bidirectional" << false;
}

void DevicePushesTest::memoryIsReadOnce()
{
    QFETCH(int, size);
    QFETCH(QString, link);
    const SessionFixture session;
    Fleet::addDevice(5).setAvailableMemory(size);
    Fleet::push(state(5, "link", link));
    QTEST(Fleet::takeActions().contains("getAvailableMemory"), "asks");
}

void DevicePushesTest::playbackWords_data()
{
    QTest::addColumn<int>("category");
    QTest::addColumn<int>("playback");
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("asks");
    const auto row = [](const char* word, int category, bool fromMemory = false) {
        QTest::newRow(word) << category << (category == 0 ? 0 : 9) << (fromMemory ? 3 : 0)
                            << fromMemory;
    };
    row("none", 0);
    row("radio", 1);
    row("playlist", 2);
    row("ad", 3);
    row("service_message", 4);
    row("record", 5);
    row("microphone", 5);
    row("alarm_message", 6);
    row("gong", 7);
    row("analog_input0", -1);
    row("analog_input1", -1);
    row("sine", -1);
    row("voice_high_repeating", -1);
    row("alarm", -4);
    row("message", -2, true);
    row("scenario", -3, true);
    QTest::newRow("Radio") << 8 << 9 << 3 << false;
    QTest::newRow("") << 8 << 9 << 3 << false;
}

void DevicePushesTest::playbackWords()
{
    const SessionFixture session;
    Device& device = Fleet::addDevice(5);
    device.setPlayback(9);
    device.setPlaybackCategory(8);
    device.setPlaybackGroupId(3);
    Fleet::push(state(5, "playback", QTest::currentDataTag()));
    QTEST(device.getPlaybackCategory(), "category");
    QTEST(device.getPlayback(), "playback");
    QTEST(device.getPlaybackGroupId(), "group");
    QTEST(Fleet::takeActions().contains("getPlays"), "asks");
}

void DevicePushesTest::words_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("result");
    const auto row = [](const char* field, const char* word, const char* result) {
        QTest::addRow("%s %s", field, word) << field << word << result;
    };
    // link, mains, battery, case; before it "1 1 2 1"
    row("link", "no", "0 1 2 1");
    row("link", "incoming", "1 1 2 1");
    row("link", "bidirectional", "2 1 2 1");
    row("link", "Bidirectional", "1 1 2 1");
    row("battery", "ok", "1 1 2 1");
    row("battery", "charge", "1 1 1 1");
    row("battery", "acPowerMissing", "1 0 1 1");
    row("battery", "missing", "1 1 0 1");
    row("battery", "error", "1 1 0 1");
    row("battery", "unknown", "1 0 0 1");
    row("battery", "flat", "1 1 2 1");
    row("case", "open", "1 1 2 0");
    row("case", "unknown", "1 1 2 0");
    row("case", "close", "1 1 2 1");
    row("case", "ajar", "1 1 2 1");
}

void DevicePushesTest::words()
{
    QFETCH(QString, field);
    QFETCH(QString, word);
    const SessionFixture session;
    const Device& device = Fleet::addDevice(5);
    Fleet::push(state(5, "link", "incoming"));
    QJsonObject message = state(5, "link", "incoming");
    message.insert(field, word);
    Fleet::push(message);
    QTEST(QStringLiteral("%1 %2 %3 %4")
              .arg(device.getStatus())
              .arg(device.getPower())
              .arg(device.getBatteryStatus())
              .arg(device.getHull()),
          "result");
}

void DevicePushesTest::reloadAsksForEverything_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<bool>("memory");
    QTest::newRow("online") << 2 << true;
    QTest::newRow("connecting") << 1 << true;
    QTest::newRow("offline") << 3 << false;
    QTest::newRow("unknown") << 4 << false;
}

void DevicePushesTest::reloadAsksForEverything()
{
    QFETCH(int, id);
    QFETCH(bool, memory);
    SessionFixture session;
    Fleet::addDevice(2, DeviceOnline);
    Fleet::addDevice(1, DeviceIncoming);
    Fleet::addDevice(3, DeviceOffline);
    session.page.take();
    Fleet::push(
        QJsonObject{{"request", "device"}, {"action", "reloadChanges"}, {"order", 1}, {"id", id}});
    QStringList expected{"getState", "getConfig", "getTitle", "getEqualizer"};
    QStringList calls{QStringLiteral("deviceInfo_cleanMessageListByDevice(%1);").arg(id),
                      QStringLiteral("deviceInfo_cleanScenarioListByDevice(%1);").arg(id)};
    if (memory) {
        expected += {"getMemoryStamp", "getAvailableMemory", "listMessages", "listScenarios"};
        calls += {"deviceInfo_cleanMessageList();", "deviceInfo_cleanScenarioList();"};
    }
    QCOMPARE(Fleet::takeActions(), expected);
    QCOMPARE(session.page.calls(), calls);
}

void DevicePushesTest::startOfTranslationAsksWhatPlays()
{
    const SessionFixture session;
    Fleet::push(
        R"({"request": "device", "action": "startTranslation", "order": 1, "deviceId": 8})");
    QCOMPARE(Fleet::takeRequests(), Fleet::lines(R"(device/getPlays {"id":8})"));
}

void DevicePushesTest::pushWithoutIdIsDropped()
{
    SessionFixture session;
    for (const char* action : {"setState", "reloadChanges", "startTranslation"}) {
        for (const QJsonValue& id : {QJsonValue(), QJsonValue("5"), QJsonValue(5.5)}) {
            QJsonObject message = state(0);
            message.insert("action", action);
            message.insert("deviceId", id);
            message.insert("id", id);
            Fleet::push(message);
        }
    }
    QCOMPARE(Fleet::takeRequests(), QStringList());
    QCOMPARE(session.page.calls(), QStringList());
    QCOMPARE(Data::deviceList.size(), 0);
}

QTEST_GUILESS_MAIN(DevicePushesTest)
#include "DevicePushesTest.moc"
