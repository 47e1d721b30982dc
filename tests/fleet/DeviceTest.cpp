#include "fleet/Fleet.h"

#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Task.h"
#include "model/Track.h"

#include <QTest>

#include <functional>

using Setter = std::function<void(Device&)>;
Q_DECLARE_METATYPE(Setter)

/// What the page hears of a unit's setters, and what the mirror makes of their values.
class DeviceTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void pageHearsOfChangesOnly_data();
    void pageHearsOfChangesOnly();
    void pageHearsEveryCall_data();
    void pageHearsEveryCall();
    void addressesOfTheOtherModeStayHidden_data();
    void addressesOfTheOtherModeStayHidden();
    void versionsAreCut_data();
    void versionsAreCut();
    void pssVersionTellsTheGeneration_data();
    void pssVersionTellsTheGeneration();
    void newLineIsNoFault();
    void lineTellsPageOnlyOfAKnownUnit();
    void runningPlaybackShowsItsTitles();
    void otherPlaybackEndsTheTask_data();
    void otherPlaybackEndsTheTask();
    void bandsThatDoNotExistAreLeftOut();
};

namespace
{

constexpr int deviceId = 12;

void row(const char* name, const Setter& set, const char* script)
{
    QTest::newRow(name) << set << QString::fromUtf8(script);
}

} // namespace

void DeviceTest::pageHearsOfChangesOnly_data()
{
    QTest::addColumn<Setter>("set");
    QTest::addColumn<QString>("script");
    row(
        "name", [](Device& d) { d.setName(QStringLiteral("A\"b")); },
        "wrapperInput_device_setName(12,\"A\\\"b\");");
    row(
        "battery", [](Device& d) { d.setBatteryStatus(2); },
        "wrapperInput_device_setBattery(12,2);");
    row(
        "battery level", [](Device& d) { d.setBatteryLevel(40); },
        "wrapperInput_device_setBatteryLevel(12,40);");
    row(
        "power", [](Device& d) { d.setPower(true); }, "wrapperInput_device_setPower(12,1);");
    row(
        "hull", [](Device& d) { d.setHull(true); }, "wrapperInput_device_setHull(12,1);");
    row(
        "volume", [](Device& d) { d.setVolume(33); }, "wrapperInput_device_setVolume(12,33);");
    row(
        "band", [](Device& d) { d.setEqualizer(1, -6.5); },
        "wrapperInput_device_setEqualizer(12,1,-6.5);");
    row(
        "equaliser", [](Device& d) { d.setEqualizerEnabled(true); },
        "wrapperInput_device_setEqualizerEnabled(12,1);");
    row(
        "mac", [](Device& d) { d.setMac(QStringLiteral("00:01")); },
        "wrapperInput_device_setMac(12,\"00:01\");");
    row(
        "multicast", [](Device& d) { d.setMulticastIp(QStringLiteral("1.1.1.1")); },
        "wrapperInput_device_setMulticastIp(12,\"1.1.1.1\");");
    row(
        "port", [](Device& d) { d.setCommandPort(1); },
        "wrapperInput_device_setCommandPort(12,1);");
    row(
        "allowed", [](Device& d) { d.setAllowedCommandIp(QStringLiteral("1.1.1.1")); },
        "wrapperInput_device_setAllowedCommandIp(12,\"1.1.1.1\");");
    row(
        "relay control", [](Device& d) { d.setTavrinRelayControl(false); },
        "wrapperInput_device_setTavrinRelayControl(12,0);");
    row(
        "line joined", [](Device& d) { d.setLineJoined(true); },
        "wrapperInput_device_setLineJoined(12,1);");
    row(
        "address", [](Device& d) { d.setTavrinAddress(1); },
        "wrapperInput_device_setTavrinAddress(12,1);");
    row(
        "relay event", [](Device& d) { d.setTavrinRelayEvent(false); },
        "wrapperInput_device_setTavrinRelayEvent(12,0);");
    row(
        "indication", [](Device& d) { d.setTavrinErrorIndication(true); },
        "wrapperInput_device_setTavrinErrorIndication(12,1);");
    row(
        "listen", [](Device& d) { d.setMulticastListen(true); },
        "wrapperInput_device_setMulticastListen(12,1);");
    row(
        "input 0", [](Device& d) { d.setMulticastAIN0(true); },
        "wrapperInput_device_setMulticastAIN0(12,1);");
    row(
        "input 1", [](Device& d) { d.setMulticastAIN1(true); },
        "wrapperInput_device_setMulticastAIN1(12,1);");
    row(
        "priority input 0", [](Device& d) { d.setPriorityAIN0(1); },
        "wrapperInput_device_setPriorityAIN0(12,1);");
    row(
        "priority input 1", [](Device& d) { d.setPriorityAIN1(1); },
        "wrapperInput_device_setPriorityAIN1(12,1);");
    row(
        "priority scenario", [](Device& d) { d.setPriorityScenario(1); },
        "wrapperInput_device_setPriorityScenario(12,1);");
    row(
        "priority listen", [](Device& d) { d.setPriorityListen(1); },
        "wrapperInput_device_setPriorityListen(12,1);");
    row(
        "priority stream", [](Device& d) { d.setPriorityStream(2); },
        "wrapperInput_device_setPriorityStream(12,2);");
}

void DeviceTest::pageHearsOfChangesOnly()
{
    QFETCH(Setter, set);
    QFETCH(QString, script);
    SessionFixture session;
    Device& device = Fleet::addDevice(deviceId);
    session.page.take();
    set(device);
    set(device);
    QCOMPARE(session.page.calls(), Fleet::lines(script.toUtf8().constData()));
}

void DeviceTest::pageHearsEveryCall_data()
{
    QTest::addColumn<Setter>("set");
    QTest::addColumn<QString>("script");
    row(
        "online", [](Device& d) { d.setStatus(DeviceOnline); },
        "wrapperInput_device_linkOn(12,2);");
    row(
        "connecting", [](Device& d) { d.setStatus(DeviceIncoming); },
        "wrapperInput_device_linkIncoming(12,1);\nwrapperInput_device_setAvailableMemory(12,0);");
    row(
        "offline", [](Device& d) { d.setStatus(DeviceOffline); },
        "wrapperInput_device_linkOff(12,0);");
    row(
        "memory", [](Device& d) { d.setAvailableMemory(9); },
        "wrapperInput_device_setAvailableMemory(12,9);");
    row(
        "no task", [](Device& d) { d.setTaskId(0); }, "wrapperInput_device_setTask(12,0,\"--\");");
    row(
        "dhcp", [](Device& d) { d.setDHCP(true); }, "wrapperInput_device_setDHCP(12,1,2);");
    row(
        "group", [](Device& d) { d.setPlaybackGroupId(4); }, "deviceInfo_changePlaying(12,4);");
    row(
        "no group", [](Device& d) { d.setPlaybackGroupId(-1); }, "deviceInfo_changePlaying(12,0);");
    row(
        "version", [](Device& d) { d.setVersionPss(QStringLiteral("2.1.0.7")); },
        "wrapperInput_device_setVersion(12,0,\"2.1.0\",\"\",\"\");");
    row(
        "alarm", [](Device& d) { d.setPlaybackCategory(-4); },
        "wrapperInput_device_setPlaybackCategory(12,-4);\n"
        "wrapperInput_device_setPlaybackInfo(12,\"Тревожное вещание\",\"--\");");
    row(
        "scenario", [](Device& d) { d.setPlaybackCategory(-3); },
        "wrapperInput_device_setPlaybackCategory(12,-3);\n"
        "wrapperInput_device_setPlaybackInfo(12,\"Внутренняя память\",\"Сообщение\");");
    row(
        "message", [](Device& d) { d.setPlaybackCategory(-2); },
        "wrapperInput_device_setPlaybackCategory(12,-2);\n"
        "wrapperInput_device_setPlaybackInfo(12,\"Внутренняя память\",\"Фрагмент\");");
    row(
        "civil defence", [](Device& d) { d.setPlaybackCategory(-1); },
        "wrapperInput_device_setPlaybackCategory(12,-1);\n"
        "wrapperInput_device_setPlaybackInfo(12,\"ГОЧС\",\"--\");");
    row(
        "nothing", [](Device& d) { d.setPlaybackCategory(0); },
        "wrapperInput_device_setPlaybackCategory(12,0);\n"
        "wrapperInput_device_setPlaybackInfo(12,\"--\",\"--\");");
    row(
        "radio", [](Device& d) { d.setPlaybackCategory(1); },
        "wrapperInput_device_setPlaybackCategory(12,1);");
    row(
        "microphone", [](Device& d) { d.setPlaybackCategory(5); },
        "wrapperInput_device_setPlaybackCategory(12,5);\n"
        "wrapperInput_device_setPlaybackInfo(12,\"Вещание с микрофона\",\"--\");");
}

void DeviceTest::pageHearsEveryCall()
{
    QFETCH(Setter, set);
    QFETCH(QString, script);
    SessionFixture session;
    Device& device = Fleet::addDevice(deviceId);
    session.page.take();
    set(device);
    set(device);
    const QStringList once = Fleet::lines(script.toUtf8().constData());
    QCOMPARE(session.page.calls(), once + once);
}

void DeviceTest::addressesOfTheOtherModeStayHidden_data()
{
    QTest::addColumn<bool>("dhcp");
    QTest::newRow("addresses by DHCP") << true;
    QTest::newRow("static addresses") << false;
}

void DeviceTest::addressesOfTheOtherModeStayHidden()
{
    QFETCH(bool, dhcp);
    SessionFixture session;
    Device& device = Fleet::addDevice(deviceId);
    device.setDHCP(dhcp);
    session.page.take();
    device.setIp(QStringLiteral("10.0.0.1"));
    device.setNetworkMask(QStringLiteral("10.0.0.2"));
    device.setGateway(QStringLiteral("10.0.0.3"));
    device.setStaticIp(QStringLiteral("11.0.0.1"));
    device.setStaticNetworkMask(QStringLiteral("11.0.0.2"));
    device.setStaticGateway(QStringLiteral("11.0.0.3"));
    const QString shown = QStringLiteral("wrapperInput_device_setIp(12,\"%1.0.0.1\");\n"
                                         "wrapperInput_device_setNetworkMask(12,\"%1.0.0.2\");\n"
                                         "wrapperInput_device_setGateway(12,\"%1.0.0.3\");")
                              .arg(dhcp ? 10 : 11);
    QCOMPARE(session.page.calls(), shown.split(QLatin1Char('\n')));
    QCOMPARE(device.getIp(), QStringLiteral("10.0.0.1"));
    QCOMPARE(device.getStaticIp(), QStringLiteral("11.0.0.1"));
}

void DeviceTest::versionsAreCut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("main");
    QTest::addColumn<QString>("pss");
    const auto versions = [](const char* text, const char* main, const char* pss) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(main)
                            << QString::fromUtf8(pss);
    };
    versions("", "", "");
    versions("2.1", "2.1", "2.1");
    versions("1.2.3.4", "1.2.3.4", "1.2.3");
    versions("fw 1.2.3.4 b7", "1.2.3", "fw 1.2.3");
    versions("fw 1.2 b7", "1.2", "fw 1.2 b7");
    versions("fw 1.2.3.4", "fw 1.2.3.4", "fw 1.2.3");
    versions("fw  b7", "", "fw  b7");
    versions("it's 1'2.3.4.5 x", "1,2.3.4", "it's 1'2.3.4");
}

void DeviceTest::versionsAreCut()
{
    QFETCH(QString, text);
    Device device;
    device.setVersionMainText(text);
    device.setVersionPss(text);
    device.setVersionLnCtrl(text);
    QTEST(device.getVersionMainText(), "main");
    QTEST(device.getVersionPss(), "pss");
    QTEST(device.getVersionLnCtrl(), "pss");
}

void DeviceTest::pssVersionTellsTheGeneration_data()
{
    QTest::addColumn<QString>("pss");
    QTest::addColumn<int>("generation");
    QTest::newRow("below one") << "0.5.1" << 0;
    QTest::newRow("one") << "1.0" << 3;
    QTest::newRow("two") << "2.7" << 3;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("no number") << "x.1" << 0;
}

void DeviceTest::pssVersionTellsTheGeneration()
{
    QFETCH(QString, pss);
    QFETCH(int, generation);
    Device device;
    device.setVersionMain(QStringLiteral("7"), pss);
    QCOMPARE(device.getVersionMain(), generation);
    QCOMPARE(device.isLinesEditable(), generation > 2);
    device.setVersionMain(QString(), QStringLiteral("-1.0"));
    QCOMPARE(device.getVersionMain(), generation);
}

void DeviceTest::newLineIsNoFault()
{
    const SessionFixture session;
    Device& device = Fleet::addDevice(deviceId);
    QVERIFY(device.getLinesStatus());
    LineControl& line = device.getLines().emplace(7, LineControl(deviceId)).first->second;
    QVERIFY(!device.getLinesStatus());
    line.setNew(true);
    QVERIFY(device.getLinesStatus());
    line.setNew(false);
    line.setState(LineControlState::InOrder);
    QVERIFY(device.getLinesStatus());
    device.setStatus(DeviceIncoming);
    QVERIFY(!device.getLinesStatus());
}

void DeviceTest::lineTellsPageOnlyOfAKnownUnit()
{
    SessionFixture session;
    LineControl stray(99);
    stray.setState(LineControlState::InOrder);
    stray.setNew(true);
    QCOMPARE(session.page.take(), QStringList());
    Device& device = Fleet::addDevice(deviceId);
    device.setVersionMain(QString(), QStringLiteral("1.0"));
    LineControl& line = device.getLines().emplace(7, LineControl(deviceId)).first->second;
    line.setId(7);
    session.page.take();
    line.setState(LineControlState::AtFault);
    line.setNew(true);
    line.setName(QStringLiteral("Hall"));
    QCOMPARE(session.page.calls(), Fleet::lines("wrapperInput_deviceLine_setState(12,7,1,0,1);\n"
                                                "wrapperInput_device_setLinesStatus(12,0);\n"
                                                "wrapperInput_deviceLine_setNew(12,7,1,1,1);\n"
                                                "wrapperInput_deviceLine_setName(12,7,\"Hall\");"));
}

void DeviceTest::runningPlaybackShowsItsTitles()
{
    SessionFixture session;
    Device& device = Fleet::addDevice(deviceId);
    auto playback = std::make_unique<Playback>();
    playback->setId(5);
    playback->setPlaylistId(20);
    playback->setTrackId(30);
    Data::playbackList.append(std::move(playback));
    auto playlist = std::make_unique<Playlist>();
    playlist->setId(20);
    playlist->setTitle(QStringLiteral("Morning"));
    Data::playlistList.append(std::move(playlist));
    session.page.take();
    device.setPlayback(5);
    QCOMPARE(session.page.take(), Fleet::lines("wrapperInput_device_setPlayback(12,0,5);"));
    auto track = std::make_unique<Track>();
    track->id = 30;
    track->setTitle(QStringLiteral("Birds"));
    Data::trackList.append(std::move(track));
    session.page.take();
    device.setPlayback(5);
    QCOMPARE(session.page.calls(),
             Fleet::lines("wrapperInput_device_setPlayback(12,5,5);\n"
                          "wrapperInput_device_setPlaybackInfo(12,\"Morning\",\"Birds\");"));
}

void DeviceTest::otherPlaybackEndsTheTask_data()
{
    QTest::addColumn<int>("task");
    QTest::addColumn<int>("playback");
    QTest::addColumn<int>("taskAfter");
    QTest::newRow("its own playback") << 3 << 5 << 3;
    QTest::newRow("another playback") << 3 << 6 << 0;
    QTest::newRow("no playback") << 3 << 0 << 0;
    QTest::newRow("task that has gone") << 4 << 5 << 0;
}

void DeviceTest::otherPlaybackEndsTheTask()
{
    QFETCH(int, task);
    QFETCH(int, playback);
    SessionFixture session;
    auto known = std::make_unique<Task>();
    known->setId(3);
    known->setPlayback(5);
    known->setTitle(QStringLiteral("Bell"));
    Data::tasks.append(std::move(known));
    Device& device = Fleet::addDevice(deviceId);
    session.page.take();
    device.setTaskId(task);
    QCOMPARE(session.page.take().value(0),
             QStringLiteral("wrapperInput_device_setTask(12,%1,\"%2\");")
                 .arg(QString::number(task), task == 3 ? "Bell" : "--"));
    device.setPlayback(playback);
    QTEST(device.getTaskId(), "taskAfter");
}

void DeviceTest::bandsThatDoNotExistAreLeftOut()
{
    SessionFixture session;
    Device& device = Fleet::addDevice(deviceId);
    session.page.take();
    device.setEqualizer(-1, 3);
    device.setEqualizer(Device::bandCount, 3);
    QCOMPARE(session.page.calls(), QStringList());
    QCOMPARE(device.getEqualizer(-1), 0.0);
    QCOMPARE(device.getEqualizer(Device::bandCount), 0.0);
}

QTEST_GUILESS_MAIN(DeviceTest)
#include "DeviceTest.moc"
