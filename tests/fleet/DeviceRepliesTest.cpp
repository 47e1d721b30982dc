#include "fleet/Fleet.h"

#include <QTest>

/// Lists, states, titles and settings of units, as the server answers them.
class DeviceRepliesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void newUnitIsShownAndAskedFor();
    void offlineUnitIsAskedForItsStateOnly();
    void knownUnitIsRefreshedQuietly();
    void playbackOfListedUnits_data();
    void playbackOfListedUnits();
    void refusedOrBrokenListChangesNothing();
    void stateFillsTheMirror();
    void stateDoesNotReadAnUnknownCase();
    void linesAreMerged();
    void lastLineGoes();
    void newFaultyLineOfAnUnitIsToldOnce();
    void titleIsTakenOver();
    void refusedTitleStopsTheSaving();
    void configurationFillsTheMirror();
    void savedConfigurationIsTakenOver_data();
    void savedConfigurationIsTakenOver();
    void volumeAndEqualizer();
    void refusedStateLeavesNobodyWaiting();
    void refusalsChangeNothing_data();
    void refusalsChangeNothing();
};

namespace
{

constexpr char getConfig[] = R"({"dhcp": true, "ip": "10.0.0.5", "mask": "255.0.0.0",
    "gateway": "10.0.0.1", "staticIp": "11.0.0.5", "staticMask": "255.255.0.0",
    "staticGateway": "11.0.0.1", "multicastIp": "224.0.224.9", "commandPort": 12000,
    "allowedCommandIp": "1.2.3.4", "tavrinRelayControl": false, "lineJoined": true,
    "tavrinAddress": 3, "tavrinRelayEvent": false, "tavrinErrorIndication": true,
    "multicastListen": true, "multicastAIN0": true, "multicastAIN1": true, "priorityAIN0": 4,
    "priorityAIN1": 3, "priorityScenario": 1, "priorityListen": 2, "priorityStream": 0})";

} // namespace

void DeviceRepliesTest::newUnitIsShownAndAskedFor()
{
    SessionFixture session;
    Fleet::beZoneManager();
    session.page.take();
    Fleet::answer(DeviceCommand::GetDevices, "{}", R"({"devices": [{"id": 5, "title": "Hall",
        "volume": 40, "link": "bidirectional", "playback": "message"}]})");
    QCOMPARE(session.page.calls().filter(QStringLiteral("_add(")),
             Fleet::lines(R"(wrapperInput_device_add(5,"",2,40,0,1);)"));
    QVERIFY(
        session.page.calls().indexOf(QStringLiteral("wrapperInput_device_setName(5,\"Hall\");")) >
        session.page.calls().indexOf(QStringLiteral("wrapperInput_device_add(5,\"\",2,40,0,1);")));
    QCOMPARE(Fleet::takeRequests(), Fleet::lines(R"(
        device/getPlays {"id":5}
        device/getState {"id":5}
        device/getMemoryStamp {"id":5}
        device/getAvailableMemory {"id":5}
        device/listMessages {"id":5}
        device/listScenarios {"id":5}
        device/getEqualizer {"id":5}
        device/getConfig {"id":5}
        device/getPlays {"id":5})"));
    QVERIFY(session.log.contains(QStringLiteral("Founded new device: 5")));
}

void DeviceRepliesTest::offlineUnitIsAskedForItsStateOnly()
{
    const SessionFixture session;
    Fleet::answer(DeviceCommand::GetDevices, "{}", R"({"devices": [{"id": 5, "title": "Hall",
        "volume": 40, "link": "incoming", "playback": "none"}]})");
    QCOMPARE(Fleet::takeRequests(), Fleet::lines(R"(device/getState {"id":5})"));
    QCOMPARE(Data::getDeviceById(5)->getStatus(), DeviceIncoming);
}

void DeviceRepliesTest::knownUnitIsRefreshedQuietly()
{
    SessionFixture session;
    Fleet::addDevice(5, DeviceOffline);
    session.page.take();
    Fleet::answer(DeviceCommand::GetDevices, "{}", R"({"devices": [{"id": 5, "title": "Hall",
        "volume": 40, "link": "bidirectional", "playback": "none"}]})");
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_device_setName(5,"Hall");
        wrapperInput_device_setVolume(5,40);
        wrapperInput_device_linkOn(5,2);
        wrapperInput_device_setLinesStatus(5,1);
        wrapperInput_device_setPlayback(5,0,0);
        wrapperInput_device_setPlaybackCategory(5,0);
        wrapperInput_device_setPlaybackInfo(5,"--","--");)"));
    QCOMPARE(Fleet::takeRequests(), QStringList());
    QCOMPARE(Data::deviceList.size(), 1);
}

void DeviceRepliesTest::playbackOfListedUnits_data()
{
    QTest::addColumn<int>("known");
    QTest::addColumn<int>("added");
    QTest::addColumn<bool>("asks");
    const int same = 7;
    QTest::newRow("none") << 0 << 0 << false;
    QTest::newRow("radio") << 1 << 1 << false;
    QTest::newRow("playlist") << 2 << 2 << false;
    QTest::newRow("ad") << 3 << 3 << false;
    QTest::newRow("service_message") << 4 << 4 << false;
    QTest::newRow("record") << 5 << 5 << false;
    QTest::newRow("microphone") << 5 << 5 << false;
    QTest::newRow("alarm_message") << 6 << 6 << false;
    QTest::newRow("gong") << 7 << 7 << false;
    QTest::newRow("message") << -2 << -2 << true;
    QTest::newRow("scenario") << -3 << -3 << true;
    QTest::newRow("alarm") << -4 << -4 << false;
    for (const char* word : {"analog_input0", "analog_input1", "sine", "voice_high_repeating"}) {
        QTest::newRow(word) << same << -1 << false;
    }
    QTest::newRow("hum") << same << 0 << false;
}

void DeviceRepliesTest::playbackOfListedUnits()
{
    QFETCH(bool, asks);
    const SessionFixture session;
    Device& device = Fleet::addDevice(1);
    device.setPlayback(9);
    device.setPlaybackCategory(7);
    QJsonArray units;
    for (const int id : {1, 2}) {
        units.append(QJsonObject{{"id", id}, {"playback", QTest::currentDataTag()}});
    }
    Fleet::answer(DeviceCommand::GetDevices, {}, QJsonObject{{"devices", units}});
    QTEST(device.getPlaybackCategory(), "known");
    QTEST(Data::getDeviceById(2)->getPlaybackCategory(), "added");
    QCOMPARE(device.getPlayback(), QLatin1String(QTest::currentDataTag()) == "none" ? 0 : 9);
    QCOMPARE(Fleet::takeActions().contains(QStringLiteral("getPlays")), asks);
}

void DeviceRepliesTest::refusedOrBrokenListChangesNothing()
{
    SessionFixture session;
    for (const char* reply :
         {R"({"response": "forbidden", "devices": [{"id": 5}]})", R"({"devices": "many"})",
          R"({"devices": [5, null, {"id": "5"}, {"id": 5.5}, {"id": 1e300}, {"title": "x"}]})"}) {
        Fleet::answer(DeviceCommand::GetDevices, "{}", reply);
    }
    QCOMPARE(Data::deviceList.size(), 0);
    QVERIFY(session.page.calls().isEmpty());
}

void DeviceRepliesTest::stateFillsTheMirror()
{
    const SessionFixture session;
    const Device& device = Fleet::addDevice(5);
    Fleet::answer(DeviceCommand::GetState, R"({"id": 5})", R"({"id": 5,
        "versionMainText": "fw 1.2.3.4 x", "versionPSS": "2.1.0.7", "versionMain": "0",
        "versionLC": "3.0.0.1", "battery": "acPowerMissing", "batteryLevel": 75, "case": "close",
        "lines": [], "ip": "10.0.0.5", "mac": "00:11"})");
    QCOMPARE(device.getVersionMainText(), QStringLiteral("1.2.3"));
    QCOMPARE(device.getVersionMain(), 3);
    QCOMPARE(device.getVersionPss(), QStringLiteral("2.1.0"));
    QCOMPARE(device.getVersionLnCtrl(), QStringLiteral("3.0.0"));
    QCOMPARE(device.getPower(), false);
    QCOMPARE(device.getBatteryStatus(), 1);
    QCOMPARE(device.getBatteryLevel(), 75);
    QCOMPARE(device.getHull(), true);
    QCOMPARE(device.getIp(), QStringLiteral("10.0.0.5"));
    QCOMPARE(device.getMac(), QStringLiteral("00:11"));
    QVERIFY(session.log.contains(QStringLiteral("Get device 5 status")));
}

void DeviceRepliesTest::stateDoesNotReadAnUnknownCase()
{
    const SessionFixture session;
    Device& device = Fleet::addDevice(5);
    device.setHull(true);
    Fleet::answer(DeviceCommand::GetState, R"({"id": 5})", R"({"id": 5, "case": "unknown"})");
    QVERIFY(device.getHull());
    Fleet::answer(DeviceCommand::GetState, R"({"id": 5})", R"({"id": 5, "case": "open"})");
    QVERIFY(!device.getHull());
}

void DeviceRepliesTest::linesAreMerged()
{
    SessionFixture session;
    Device& device = Fleet::addDevice(5);
    Fleet::answer(DeviceCommand::GetState, "{}", R"({"id": 5, "lines": [
        {"tipId": 1, "title": "A", "state": "ok", "new": false},
        {"tipId": 2, "title": "B", "state": "ok", "new": false}]})");
    session.page.take();
    Fleet::answer(DeviceCommand::GetState, "{}", R"({"id": 5, "lines": [
        {"tipId": 255, "title": "C", "state": "ok", "new": true},
        {"tipId": 2, "title": "B2", "state": "short", "new": false},
        {"tipId": 256, "title": "D", "state": "ok", "new": false},
        {"tipId": -1, "title": "E", "state": "ok", "new": false}]})");
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_deviceLine_delete(5,1);
        wrapperInput_deviceLine_setName(5,255,"C");
        wrapperInput_deviceLine_setState(5,255,0,0,0);
        wrapperInput_device_setLinesStatus(5,1);
        wrapperInput_deviceLine_setNew(5,255,0,1,0);
        wrapperInput_deviceLine_add(5,255,"C",0,1,0);
        wrapperInput_deviceLine_setName(5,2,"B2");
        wrapperInput_deviceLine_setState(5,2,1,0,0);
        wrapperInput_device_setLinesStatus(5,0);
        wrapperInput_deviceLine_setNew(5,2,1,0,0);
        wrapperInput_device_setLinesStatus(5,0);)"));
    QCOMPARE(device.getLines().size(), std::size_t{2});
}

void DeviceRepliesTest::lastLineGoes()
{
    const SessionFixture session;
    Device& device = Fleet::addDevice(5);
    device.getLines().emplace(1, LineControl(5));
    Fleet::answer(DeviceCommand::GetState, "{}", R"({"id": 5, "lines": 3})");
    QCOMPARE(device.getLines().size(), std::size_t{1});
    Fleet::answer(DeviceCommand::GetState, "{}", R"({"id": 5, "lines": []})");
    QVERIFY(device.getLines().empty());
}

void DeviceRepliesTest::newFaultyLineOfAnUnitIsToldOnce()
{
    SessionFixture session;
    Fleet::addDevice(5);
    Fleet::answer(DeviceCommand::GetState, "{}", R"({"id": 5, "lines": [
        {"tipId": 1, "title": "A", "state": "short", "new": false}]})");
    QCOMPARE(session.page.calls().last(),
             QStringLiteral("wrapperInput_device_setLinesStatus(5,0);"));
    Fleet::answer(DeviceCommand::GetState, "{}", R"({"id": 5, "lines": [
        {"tipId": 2, "title": "B", "state": "short", "new": true}]})");
    QCOMPARE(session.page.calls().last(),
             QStringLiteral("wrapperInput_device_setLinesStatus(5,1);"));
}

void DeviceRepliesTest::titleIsTakenOver()
{
    SessionFixture session;
    const Device& device = Fleet::addDevice(5);
    Fleet::answer(DeviceCommand::GetTitle, R"({"id": 5})", R"({"title": "Hall"})");
    QCOMPARE(device.getName(), QStringLiteral("Hall"));
    session.page.take();
    Fleet::answer(DeviceCommand::SetTitle, R"({"id": 5, "title": "x"})", R"({"title": "Yard"})");
    QCOMPARE(session.page.calls(),
             Fleet::lines("wrapperInput_device_setName(5,\"Yard\");\nsaveDeviceConfig();"));
}

void DeviceRepliesTest::refusedTitleStopsTheSaving()
{
    SessionFixture session;
    Data::deviceSave = true;
    Fleet::answer(DeviceCommand::SetTitle, R"({"id": 5, "title": "x"})",
                  R"({"response": "titleExists"})");
    QCOMPARE(session.page.calls(), Fleet::lines("modalAdminTitleExists();"));
    QCOMPARE(Data::deviceSave, false);
}

void DeviceRepliesTest::configurationFillsTheMirror()
{
    SessionFixture session;
    const Device& device = Fleet::addDevice(5);
    session.page.take();
    Fleet::answer(DeviceCommand::GetConfig, R"({"id": 5})", getConfig);
    // The addresses that DHCP hides are stored and not shown.
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_device_setDHCP(5,1,2);
        wrapperInput_device_setIp(5,"10.0.0.5");
        wrapperInput_device_setNetworkMask(5,"255.0.0.0");
        wrapperInput_device_setGateway(5,"10.0.0.1");
        wrapperInput_device_setMulticastIp(5,"224.0.224.9");
        wrapperInput_device_setCommandPort(5,12000);
        wrapperInput_device_setAllowedCommandIp(5,"1.2.3.4");
        wrapperInput_device_setTavrinRelayControl(5,0);
        wrapperInput_device_setLineJoined(5,1);
        wrapperInput_device_setTavrinAddress(5,3);
        wrapperInput_device_setTavrinRelayEvent(5,0);
        wrapperInput_device_setTavrinErrorIndication(5,1);
        wrapperInput_device_setMulticastListen(5,1);
        wrapperInput_device_setMulticastAIN0(5,1);
        wrapperInput_device_setMulticastAIN1(5,1);
        wrapperInput_device_setPriorityAIN0(5,4);
        wrapperInput_device_setPriorityAIN1(5,3);
        wrapperInput_device_setPriorityScenario(5,1);
        wrapperInput_device_setPriorityListen(5,2);
        wrapperInput_device_setPriorityStream(5,0);)"));
    QCOMPARE(device.getStaticIp(), QStringLiteral("11.0.0.5"));
    QCOMPARE(device.getStaticNetworkMask(), QStringLiteral("255.255.0.0"));
    QCOMPARE(device.getStaticGateway(), QStringLiteral("11.0.0.1"));
}

void DeviceRepliesTest::savedConfigurationIsTakenOver_data()
{
    QTest::addColumn<QString>("response");
    QTest::addColumn<bool>("titleSaved");
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("ip");
    QTest::newRow("saved") << "success" << true << "modalAdminDeviceSaveShow();"
                           << "11.0.0.5";
    QTest::newRow("title refused") << "success" << false << "modalAdminTitleExists();"
                                   << "11.0.0.5";
    QTest::newRow("refused") << "error" << true << "modalAdminDeviceSaveErrorShow();"
                             << "0.0.0.0";
}

void DeviceRepliesTest::savedConfigurationIsTakenOver()
{
    QFETCH(QString, response);
    QFETCH(bool, titleSaved);
    SessionFixture session;
    const Device& device = Fleet::addDevice(5);
    Data::deviceSave = titleSaved;
    QJsonObject asked = Fleet::json(getConfig);
    asked.insert("id", 5);
    Fleet::answer(DeviceCommand::SetConfig, asked, {{"response", response}, {"lineJoined", false}});
    Data::deviceSave = true;
    QTEST(session.page.calls().last(), "dialog");
    QTEST(device.getStaticIp(), "ip");
    QCOMPARE(device.getIp(), QStringLiteral("0.0.0.0"));
    QCOMPARE(device.getLineJoined(), response == "success");
}

void DeviceRepliesTest::volumeAndEqualizer()
{
    SessionFixture session;
    const Device& device = Fleet::addDevice(5);
    Fleet::answer(DeviceCommand::GetVolume, R"({"id": 5})", R"({"volume": 30})");
    QCOMPARE(device.getVolume(), 30);
    Fleet::answer(DeviceCommand::SetVolume, R"({"id": 5, "volume": 31})", R"({"volume": 9})");
    QCOMPARE(device.getVolume(), 31);
    session.page.take();
    Fleet::answer(DeviceCommand::GetEqualizer, R"({"id": 5})",
                  R"({"enabled": true, "levels": [1, -2.5, "3", 0, 0, 0, 0, 0, 0, 6, 7]})");
    QCOMPARE(session.page.take(), Fleet::lines(R"(
        wrapperInput_device_setEqualizerEnabled(5,1);
        wrapperInput_device_setEqualizer(5,0,1);
        wrapperInput_device_setEqualizer(5,1,-2.5);
        wrapperInput_device_setEqualizer(5,9,6);)"));
    Fleet::answer(DeviceCommand::SetEqualizer, R"({"id": 5, "enabled": false, "levels": [1, 7]})",
                  R"({"enabled": true, "levels": [3, 3]})");
    QCOMPARE(session.page.calls(), Fleet::lines("wrapperInput_device_setEqualizerEnabled(5,0);\n"
                                                "wrapperInput_device_setEqualizer(5,1,7);"));
}

void DeviceRepliesTest::refusedStateLeavesNobodyWaiting()
{
    SessionFixture session;
    Fleet::addDevice(5);
    session.page.take();
    Fleet::answer(DeviceCommand::GetState, R"({"id": 5})", R"({"response": "forbidden"})");
    QCOMPARE(session.page.calls(), Fleet::lines("wrapperInput_device_setRead(5);"));
}

void DeviceRepliesTest::refusalsChangeNothing_data()
{
    QTest::addColumn<int>("command");
    const auto row = [](const char* name, DeviceCommand command) {
        QTest::newRow(name) << static_cast<int>(command);
    };
    row("getState", DeviceCommand::GetState);
    row("getTitle", DeviceCommand::GetTitle);
    row("setTitle", DeviceCommand::SetTitle);
    row("getVolume", DeviceCommand::GetVolume);
    row("setVolume", DeviceCommand::SetVolume);
    row("getEqualizer", DeviceCommand::GetEqualizer);
    row("setEqualizer", DeviceCommand::SetEqualizer);
    row("getConfig", DeviceCommand::GetConfig);
    row("setConfig", DeviceCommand::SetConfig);
    row("getMemoryStamp", DeviceCommand::GetMemoryStamp);
    row("getAvailableMemory", DeviceCommand::GetAvailableMemory);
    row("getPlays", DeviceCommand::GetPlays);
    row("playMessage", DeviceCommand::PlayMessage);
    row("playScenario", DeviceCommand::PlayScenario);
    row("stop", DeviceCommand::Stop);
}

/// A refusal, and a success about a unit that has gone, with every value that any reply reads.
void DeviceRepliesTest::refusalsChangeNothing()
{
    QFETCH(int, command);
    SessionFixture session;
    Device& device = Fleet::addDevice(5);
    device.setPlaybackGroupId(7);
    device.setRead();
    QJsonObject values = Fleet::json(getConfig);
    const QJsonObject more = Fleet::json(R"({"title": "x", "volume": 9, "enabled": true,
        "levels": [1, 2], "size": 8, "memoryStamp": "s", "position": 1, "playbackGroupId": 7,
        "batteryLevel": 9, "playbackGroups": [{"id": 3, "type": "message", "position": 1,
        "devices": [5]}]})");
    for (auto field = more.begin(); field != more.end(); ++field) {
        values.insert(field.key(), field.value());
    }
    session.page.take();
    for (const int id : {5, 6}) {
        const bool known = id == 5;
        values.insert("id", id);
        values.insert("response", known ? "refused" : "success");
        values.insert("playbackGroups", known ? values.value("playbackGroups") : QJsonArray());
        values.insert("playbackGroupId", known ? 7 : 8);
        Fleet::answer(static_cast<DeviceCommand>(command), values, values);
    }
    QCOMPARE(session.page.calls(), QStringList());
    QCOMPARE(Fleet::takeRequests(), QStringList());
    QCOMPARE(device.getMemoryStamp(), QString());
}

QTEST_GUILESS_MAIN(DeviceRepliesTest)
#include "DeviceRepliesTest.moc"
