#include "fleet/Fleet.h"

#include "model/DeviceMemory.h"
#include "model/MemoryEntries.h"

#include <QTest>

/// A unit's own memory: what it holds, and what plays from it.
class DeviceMemoryTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void stampAndSize();
    void listsReplaceThoseOfTheirUnit();
    void listOfAUnitThatHasGoneIsIgnored();
    void startShowsWhatPlays_data();
    void startShowsWhatPlays();
    void refusedStartShowsItsDialogs_data();
    void refusedStartShowsItsDialogs();
    void stopEndsTheWholeGroup();
    void stopOfNoGroupStopsNothing();
    void playsAreTakenOver();
};

void DeviceMemoryTest::stampAndSize()
{
    const SessionFixture session;
    const Device& device = Fleet::addDevice(5);
    Fleet::answer(DeviceCommand::GetMemoryStamp, R"({"id": 5})", R"({"memoryStamp": "a7"})");
    Fleet::answer(DeviceCommand::GetAvailableMemory, R"({"id": 5})", R"({"size": 2048})");
    Fleet::answer(DeviceCommand::GetAvailableMemory, R"({"id": 5})", R"({"size": -1})");
    QCOMPARE(device.getMemoryStamp(), QStringLiteral("a7"));
    QCOMPARE(device.getAvailableMemory(), 2048);
}

void DeviceMemoryTest::listsReplaceThoseOfTheirUnit()
{
    SessionFixture session;
    Fleet::addDevice(5);
    Data::messageList = {{5, 0, "old", 1}, {6, 0, "other", 1}};
    Data::scenarioList = {{5, 0, "old", 1, 0, 0, 0}, {6, 0, "other", 1, 0, 0, 0}};
    session.page.take();
    Fleet::answer(DeviceCommand::ListMessages, R"({"id": 5})", R"({"list": [
        {"position": 0, "title": "Gong", "size": 100}, {"position": "1", "title": "x", "size": 1},
        {"position": 1, "title": "Fire", "size": 200}]})");
    Fleet::answer(DeviceCommand::ListScenarios, R"({"id": 5})", R"({"list": [{"position": 0,
        "title": "Alarm", "priority": 3, "positionGong": 0, "positionMessage": 1, "repeat": 30}]})");
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_device_deleteMessage(5,0);
        wrapperInput_device_addMessage(5,0,"Gong",100,0);
        wrapperInput_device_addMessage(5,1,"Fire",200,0);
        wrapperInput_device_deleteScenario(5,0);
        wrapperInput_device_addScenario(5,0,"Alarm",3,1,2,30,0);)"));
    QCOMPARE(MemoryEntries::getDeviceMessages(5).size(), 2);
    QCOMPARE(MemoryEntries::getDeviceScenarios(5).value(0).positionMessage, 1);
    QCOMPARE(MemoryEntries::getDeviceMessages(6).size(), 1);
    QCOMPARE(MemoryEntries::getDeviceScenarios(6).size(), 1);
}

void DeviceMemoryTest::listOfAUnitThatHasGoneIsIgnored()
{
    const SessionFixture session;
    Fleet::answer(DeviceCommand::ListMessages, R"({"id": 5})",
                  R"({"list": [{"position": 0, "title": "Gong", "size": 100}]})");
    QCOMPARE(Data::messageList.size(), 0);
}

void DeviceMemoryTest::startShowsWhatPlays_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("message");
    QTest::addColumn<int>("scenario");
    QTest::addColumn<int>("category");
    QTest::newRow("message") << static_cast<int>(DeviceCommand::PlayMessage) << 4 << -1 << -2;
    QTest::newRow("scenario") << static_cast<int>(DeviceCommand::PlayScenario) << -1 << 4 << -3;
}

void DeviceMemoryTest::startShowsWhatPlays()
{
    QFETCH(int, command);
    SessionFixture session;
    Device& device = Fleet::addDevice(5);
    device.setPlayback(9);
    device.setMessagePlaying(1);
    device.setScenarioPlaying(1);
    session.page.take();
    Fleet::answer(static_cast<DeviceCommand>(command), R"({"id": 5, "position": 4})",
                  R"({"playbackGroupId": 17})");
    QTEST(device.getMessagePlaying(), "message");
    QTEST(device.getScenarioPlaying(), "scenario");
    QTEST(device.getPlaybackCategory(), "category");
    QCOMPARE(device.getPlayback(), 0);
    QCOMPARE(device.getPlaybackGroupId(), 17);
    QCOMPARE(session.page.calls().mid(session.page.calls().size() - 2),
             Fleet::lines("deviceInfo_hideMessages();\ndeviceInfo_changePlaying(5,17);"));
    QVERIFY(session.log.contains(QStringLiteral("Start play message")));
}

void DeviceMemoryTest::refusedStartShowsItsDialogs_data()
{
    QTest::addColumn<QStringList>("dialogs");
    QTest::newRow("changes") << QStringList{"modalDeviceMemoryChangeError();"};
    QTest::newRow("busy") << QStringList{"modalDeviceMemoryBusy();"};
    QTest::newRow("playing") << QStringList{"modalDevicePlayingError();",
                                            "modalAdminDevicePlayingError();"};
    QTest::newRow("wait") << QStringList{"modalDeviceWait();"};
    QTest::newRow("error") << QStringList();
}

void DeviceMemoryTest::refusedStartShowsItsDialogs()
{
    for (const DeviceCommand command : {DeviceCommand::PlayMessage, DeviceCommand::PlayScenario}) {
        SessionFixture session;
        const Device& device = Fleet::addDevice(5);
        session.page.take();
        Fleet::answer(command, {{"id", 5}, {"position", 4}},
                      {{"response", QTest::currentDataTag()}, {"playbackGroupId", 17}});
        QTEST(session.page.calls(), "dialogs");
        QCOMPARE(device.getPlaybackGroupId(), 0);
    }
}

void DeviceMemoryTest::stopEndsTheWholeGroup()
{
    const SessionFixture session;
    for (const int id : {5, 6, 7}) {
        Device& device = Fleet::addDevice(id);
        device.setPlaybackGroupId(id == 7 ? 18 : 17);
        device.setPlaybackCategory(-2);
        device.setMessagePlaying(3);
    }
    Fleet::answer(DeviceCommand::Stop, R"({"id": 5, "playbackGroupId": 17})", "{}");
    for (const int id : {5, 6}) {
        const Device* const device = Data::getDeviceById(id);
        QCOMPARE(device->getPlaybackGroupId(), 0);
        QCOMPARE(device->getPlaybackCategory(), 0);
        QCOMPARE(device->getMessagePlaying(), -1);
    }
    QCOMPARE(Data::getDeviceById(7)->getPlaybackGroupId(), 18);
    QCOMPARE(Data::getDeviceById(7)->getPlaybackCategory(), -2);
}

/// All units that play audio of the server have group 0.
void DeviceMemoryTest::stopOfNoGroupStopsNothing()
{
    const SessionFixture session;
    Device& device = Fleet::addDevice(5);
    device.setPlayback(9);
    device.setPlaybackCategory(1);
    Fleet::answer(DeviceCommand::Stop, R"({"id": 5, "playbackGroupId": 0})", "{}");
    QCOMPARE(device.getPlayback(), 9);
    QCOMPARE(device.getPlaybackCategory(), 1);
}

void DeviceMemoryTest::playsAreTakenOver()
{
    const SessionFixture session;
    for (const int id : {5, 6, 7}) {
        Fleet::addDevice(id).setMessagePlaying(8);
    }
    Fleet::answer(DeviceCommand::GetPlays, R"({"id": 5})", R"({"playbackGroups": [
        {"id": 17, "type": "scenario", "position": 2, "devices": [5, 99, "6", 7]},
        {"id": 18, "type": "message", "position": -1, "devices": [6]},
        {"id": 19, "type": "song", "position": 3, "devices": [7]}, 4,
        {"id": 20, "type": "message", "position": 3, "devices": 7}]})");
    const auto plays = [](int id) {
        const Device* const device = Data::getDeviceById(id);
        return QStringLiteral("%1 %2 %3")
            .arg(device->getPlaybackGroupId())
            .arg(device->getMessagePlaying())
            .arg(device->getScenarioPlaying());
    };
    QCOMPARE(plays(5), QStringLiteral("17 -1 2"));
    QCOMPARE(plays(6), QStringLiteral("18 0 -1"));
    QCOMPARE(plays(7), QStringLiteral("17 -1 2"));
}

QTEST_GUILESS_MAIN(DeviceMemoryTest)
#include "DeviceMemoryTest.moc"
