#include "fleet/ViewSession.h"

#include "model/DeviceMemory.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Role.h"
#include "model/Task.h"
#include "model/Track.h"
#include "view/WebView.h"

#include <QTest>

/// What the slots of the pages of units and zones replay, and what they send.
class SlotsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void homePageIsReplayed();
    void listToPickFromIsReplayed();
    void unitIsReplayed();
    void unitShowsWhatItPlays_data();
    void unitShowsWhatItPlays();
    void connectingUnitTellsTheRights();
    void memoryShowsWhatPlays();
    void unknownUnitShowsNothing();
    void requests_data();
    void requests();
    void zonesAreReplayedParentsFirst();
    void zonesInACycleEnd();
    void zonesOfTheUnitPage();
    void unitIsInTheRootOnlyWithoutAnotherZone_data();
    void unitIsInTheRootOnlyWithoutAnotherZone();
};

namespace
{

template <class Item> Item& make(ModelList<Item>& list, int id)
{
    auto item = std::make_unique<Item>();
    if constexpr (std::is_same_v<Item, Track>) {
        item->id = id;
    } else {
        item->setId(id);
    }
    return *list.append(std::move(item));
}

/// Playback 4 of task 3, with its titles.
void makePlayback()
{
    Playback& playback = make(Data::playbackList, 4);
    playback.setPlaylistId(20);
    playback.setTrackId(30);
    make(Data::playlistList, 20).setTitle("Morning");
    make(Data::trackList, 30).setTitle("Birds");
    Task& task = make(Data::tasks, 3);
    task.setTitle("Bell");
    task.setPlayback(4);
}

} // namespace

void SlotsTest::homePageIsReplayed()
{
    ViewSession session;
    Fleet::beZoneManager();
    makePlayback();
    Device& device = Fleet::addDevice(5);
    device.setName("Hall");
    device.setVolume(40);
    device.setBatteryLevel(70);
    device.setPlayback(4);
    device.setPlaybackCategory(2);
    device.setTaskId(3);
    device.getZoneList() = {1, 9};
    Fleet::addDevice(6, DeviceOffline).setTaskId(3);
    session.page.take();
    session.view.deviceList_listLoad();
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_device_add(5,"Hall",2,40,2,1);
        wrapperInput_device_setPlaybackCategory(5,2);
        wrapperInput_device_setHull(5,0);
        wrapperInput_device_setPower(5,0);
        wrapperInput_device_setBatteryLevel(5,70);
        wrapperInput_device_setBattery(5,0);
        wrapperInput_device_setLinesStatus(5,1);
        wrapperInput_device_setTask(5,3,"Bell");
        wrapperInput_zone_includeDevice(1,5);
        wrapperInput_zone_includeDevice(9,5);
        wrapperInput_device_add(6,"",0,0,0,1);
        wrapperInput_device_setPlaybackCategory(6,0);
        wrapperInput_device_setHull(6,0);
        wrapperInput_device_setPower(6,0);
        wrapperInput_device_setBatteryLevel(6,0);
        wrapperInput_device_setBattery(6,0);
        wrapperInput_device_setLinesStatus(6,0);)"));
    QVERIFY(session.log.contains(QStringLiteral("deviceList_listLoad()")));
    QVERIFY(session.log.contains(QStringLiteral("deviceList_listLoadEnd")));
}

void SlotsTest::listToPickFromIsReplayed()
{
    ViewSession session;
    makePlayback();
    Device& device = Fleet::addDevice(5);
    device.setPlayback(4);
    device.setTaskId(3);
    device.getZoneList() = {9};
    session.page.take();
    session.view.deviceList_listSelectLoad();
    QCOMPARE(session.page.take(), Fleet::lines(R"(
        wrapperInput_device_add(5,"",2,0,0,0,"playback_4");
        wrapperInput_device_setPlaybackCategory(5,0);
        wrapperInput_device_setTask(5,3,"Bell");
        wrapperInput_zone_includeDevice(9,5);)"));
    session.view.menu_loadDeviceInfoList();
    QCOMPARE(session.page.calls(), Fleet::lines("wrapperInput_device_add(5,\"\",2,0,0,0);"));
}

void SlotsTest::unitIsReplayed()
{
    ViewSession session;
    Device& device = Fleet::addDevice(5);
    device.setName("Hall");
    device.getZoneList() = {9};
    device.setVersionMain({}, "1.0");
    device.setEqualizer(9, -2.5);
    LineControl line(5);
    line.setId(200);
    line.setNew(true);
    device.getLines().emplace(200, line);
    Data::messageList = {{5, 0, "Gong", 100}};
    Data::scenarioList = {{5, 0, "Fire", 3, 0, 1, 30}};
    session.page.take();
    session.view.menu_loadDeviceInfo(5);
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_device_setId(5);
        wrapperInput_device_linkOn(5);
        wrapperInput_device_setName(5,"Hall");
        wrapperInput_device_setLineJoined(5,0);
        deviceInfo_clearZones();
        wrapperInput_zone_includeDevice(9,5);
        deviceInfo_changePlaying(5,0);
        deviceInfo_setAudioPlaylist("--");
        deviceInfo_setAudioTrack("--");
        wrapperInput_device_setTask(5,0,"--");
        wrapperInput_device_setVersion(5,3,"","","");
        deviceInfo_cleanLines();
        wrapperInput_deviceLine_add(5,200,"Линия 1",1,1,1);
        wrapperInput_device_setLinesStatus(5,1);
        wrapperInput_device_setBatteryLevel(5,0);
        wrapperInput_device_setHull(5,0);
        wrapperInput_device_setPower(5,0);
        wrapperInput_device_setVolume(5,0);
        wrapperInput_device_setEqualizerEnabled(5,0);
        wrapperInput_device_setEqualizer(5,0,0);
        wrapperInput_device_setEqualizer(5,1,0);
        wrapperInput_device_setEqualizer(5,2,0);
        wrapperInput_device_setEqualizer(5,3,0);
        wrapperInput_device_setEqualizer(5,4,0);
        wrapperInput_device_setEqualizer(5,5,0);
        wrapperInput_device_setEqualizer(5,6,0);
        wrapperInput_device_setEqualizer(5,7,0);
        wrapperInput_device_setEqualizer(5,8,0);
        wrapperInput_device_setEqualizer(5,9,-2.5);
        deviceInfo_cleanMessageList();
        wrapperInput_device_addMessage(5,0,"Gong",100,0);
        deviceInfo_cleanScenarioList();
        wrapperInput_device_addScenario(5,0,"Fire",3,1,2,30,0);)"));
    QVERIFY(session.log.contains(QStringLiteral("deviceList_loadDeviceInfo: 5")));
}

void SlotsTest::unitShowsWhatItPlays_data()
{
    QTest::addColumn<int>("category");
    QTest::addColumn<int>("playback");
    QTest::addColumn<QStringList>("calls");
    const QString task = "wrapperInput_device_setTask(5,3,\"Bell\");";
    QTest::newRow("a playlist") << 2 << 4
                                << QStringList{"deviceInfo_setAudioPlaylist(\"Morning\");",
                                               "deviceInfo_setAudioTrack(\"Birds\");", task};
    QTest::newRow("a playback that isn't known")
        << 2 << 0
        << QStringList{"deviceInfo_setAudioPlaylist(\"--\");", "deviceInfo_setAudioTrack(\"--\");",
                       "wrapperInput_device_setTask(5,0,\"--\");"};
    QTest::newRow("an input")
        << -1 << 4 << QStringList{"wrapperInput_device_setPlaybackInfo(5,\"ГОЧС\",\"--\");", task};
    QTest::newRow("a microphone")
        << 5 << 0
        << QStringList{"wrapperInput_device_setPlaybackInfo(5,\"Вещание с микрофона\",\"--\");",
                       "wrapperInput_device_setTask(5,0,\"--\");"};
}

void SlotsTest::unitShowsWhatItPlays()
{
    QFETCH(int, category);
    QFETCH(int, playback);
    ViewSession session;
    makePlayback();
    Device& device = Fleet::addDevice(5);
    device.setTaskId(3);
    device.setPlayback(playback);
    device.setPlaybackCategory(category);
    session.page.take();
    session.view.menu_loadDeviceInfo(5);
    QTEST(session.page.calls().filter(QRegularExpression("Audio|Info\\(|setTask")), "calls");
}

void SlotsTest::connectingUnitTellsTheRights()
{
    ViewSession session;
    Fleet::beZoneManager();
    Fleet::addDevice(5, DeviceIncoming);
    Fleet::addDevice(6, DeviceOffline);
    session.page.take();
    session.view.menu_loadDeviceInfo(5);
    session.view.menu_loadDeviceInfo(6);
    QCOMPARE(session.page.calls().filter(QRegularExpression("role|link")), Fleet::lines(R"(
        wrapperInput_device_linkIncoming(5);
        wrapperInput_roleGlobal_editDeviceManagement(0,"keeper",1);
        wrapperInput_device_linkOff(6);)"));
}

void SlotsTest::memoryShowsWhatPlays()
{
    ViewSession session;
    Device& device = Fleet::addDevice(5);
    device.setPlaybackGroupId(17);
    device.setMessagePlaying(1);
    Data::messageList = {{5, 0, "Gong", 100}, {5, 1, "Fire", 100}, {6, 1, "x", 1}};
    session.page.take();
    session.view.menu_loadDeviceInfo(5);
    QCOMPARE(session.page.calls().filter("addMessage"),
             Fleet::lines("wrapperInput_device_addMessage(5,0,\"Gong\",100,0);\n"
                          "wrapperInput_device_addMessage(5,1,\"Fire\",100,17);"));
}

void SlotsTest::unknownUnitShowsNothing()
{
    ViewSession session;
    session.view.menu_loadDeviceInfo(5);
    QCOMPARE(session.page.calls(), QStringList());
}

void SlotsTest::requests_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QStringList>("requests");
    const auto row = [](const char* script, const char* requests) {
        QTest::newRow(script) << QString::fromUtf8(script) << Fleet::lines(requests);
    };
    row("deviceList_setDeviceVolume(5, '40')", R"(device/setVolume {"id":5,"volume":40})");
    row("deviceList_playAudio(5, 2, 0)", R"(device/playMessage {"id":5,"position":2})");
    row("deviceList_playAudio(5, 2, 1)", R"(device/playScenario {"id":5,"position":2})");
    row("deviceList_playAudio(5, 2, 2)", "");
    row("deviceList_stopAudio(5)", R"(device/stop {"id":5,"playbackGroupId":17})");
    row("deviceList_stopAudio(99)", "");
    row("deviceInfo_setDeviceEqualizer(5, ['1', 2, -6])",
        R"(device/setEqualizer {"enabled":false,"id":5,"levels":[1,2,-6]})");
    row("deviceInfo_setDeviceEqualizer(6, [3, '-6.5'])",
        R"(device/setEqualizer {"enabled":true,"id":6,"levels":[3,-6.5]})");
    row("deviceInfo_setDeviceEqualizer(6, [3, 4])",
        R"(device/setEqualizer {"enabled":true,"id":6,"levels":[3,4]})");
    row("deviceInfo_setDeviceEqualizer(6, [3, 'x'])", "");
    row("deviceInfo_setDeviceEqualizer(99, [1])", "");
    row("zone_includeDevice(9, 5)", R"(zone/includeDevice {"deviceId":5,"zoneId":9})");
    row("zone_excludeDevice(9, 5)", R"(zone/excludeDevice {"deviceId":5,"zoneId":9})");
}

/// By script, as a page calls them: the bridge converts the arguments.
void SlotsTest::requests()
{
    QFETCH(QString, script);
    ViewSession session;
    Device& device = Fleet::addDevice(5);
    device.setVersionMain({}, "1.0");
    device.setPlaybackGroupId(17);
    Fleet::addDevice(6);
    session.page.take();
    session.runSlot(script);
    QTEST(Fleet::takeRequests(), "requests");
    QCOMPARE(session.page.calls(), QStringList()); // nothing is shown ahead of the answer
}

void SlotsTest::zonesAreReplayedParentsFirst()
{
    ViewSession session;
    Fleet::addEverything();
    Fleet::addZone(9, "hall", 3, 1);
    Fleet::addZone(3, "wing", 1);
    Fleet::addZone(1, "root", 0);
    Fleet::addZone(8, "orphan", 77);
    Fleet::addZone(10, "yard", 1);
    session.page.take();
    session.view.menu_zoneLoadList();
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_zone_add(1,0,"root","Все зоны",0);
        wrapperInput_zone_add(3,1,"wing","root",0);
        wrapperInput_zone_add(9,3,"hall","wing",1);
        wrapperInput_zone_add(10,1,"yard","root",0);
        wrapperInput_zone_add(8,0,"orphan","Все зоны",0);)"));
    QVERIFY(session.log.contains(QStringLiteral("Load zone: 9 - hall")));
}

void SlotsTest::zonesInACycleEnd()
{
    ViewSession session;
    Fleet::addEverything();
    Fleet::addZone(3, "a", 4);
    Fleet::addZone(4, "b", 3);
    session.page.take();
    session.view.menu_zoneLoadList();
    QCOMPARE(session.page.take(), QStringList());
    session.view.menu_subZoneLoad(3);
    QCOMPARE(session.page.calls().size(), 2);
}

void SlotsTest::zonesOfTheUnitPage()
{
    ViewSession session;
    Fleet::addEverything();
    Fleet::beZoneManager();
    Fleet::addZone(1, "root");
    Fleet::addZone(9, "hall", 1, 1);
    session.page.take();
    session.view.deviceInfo_loadZoneList();
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_zone_add(9,1,"hall","root",1);
        wrapperInput_roleGlobal_editZoneManagement(0,"keeper",1);)"));
}

void SlotsTest::unitIsInTheRootOnlyWithoutAnotherZone_data()
{
    QTest::addColumn<QVector<int>>("zones");
    QTest::addColumn<QStringList>("include");
    QTest::addColumn<QStringList>("exclude");
    const QString in = R"(zone/includeDevice {"deviceId":5,"zoneId":9})";
    const QString out = R"(zone/excludeDevice {"deviceId":5,"zoneId":9})";
    const QString toRoot = R"(zone/includeDevice {"deviceId":5,"zoneId":1})";
    const QString fromRoot = R"(zone/excludeDevice {"deviceId":5,"zoneId":1})";
    QTest::newRow("nowhere") << QVector<int>{} << QStringList{in} << QStringList{out};
    QTest::newRow("the root") << QVector<int>{1} << QStringList{in, fromRoot} << QStringList{out};
    QTest::newRow("a zone") << QVector<int>{9} << QStringList{in} << QStringList{toRoot, out};
    QTest::newRow("root and zone") << QVector<int>{1, 9} << QStringList{in} << QStringList{out};
    QTest::newRow("two zones") << QVector<int>{4, 9} << QStringList{in} << QStringList{out};
}

void SlotsTest::unitIsInTheRootOnlyWithoutAnotherZone()
{
    QFETCH(QVector<int>, zones);
    ViewSession session;
    for (const int id : {1, 4, 9}) {
        Zone& zone = Fleet::addZone(id, "z");
        if (zones.contains(id)) {
            zone.includeDevice(5);
        }
    }
    session.view.deviceInfo_includeToZone(5, 9);
    QTEST(Fleet::takeRequests(), "include");
    session.view.deviceInfo_excludeFromZone(5, 9);
    QTEST(Fleet::takeRequests(), "exclude");
    QVERIFY(session.log.contains(QStringLiteral("Device in zones %1").arg(zones.size())));
    QVERIFY(
        session.log.contains(QStringLiteral("Device inNewZone %1").arg(zones.contains(1) ? 1 : 0)));
}

QTEST_MAIN(SlotsTest)
#include "SlotsTest.moc"
