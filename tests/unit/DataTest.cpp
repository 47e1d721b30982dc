#include "app/Data.h"
#include "model/Device.h"
#include "model/DeviceMemory.h"
#include "model/Firmware.h"
#include "model/Library.h"
#include "model/MemoryEntries.h"
#include "model/ModelList.h"
#include "model/Playlist.h"
#include "model/Role.h"
#include "model/Task.h"
#include "model/TaskTargets.h"
#include "model/Track.h"
#include "model/User.h"
#include "model/Zone.h"
#include "support/SessionFixture.h"

#include <QTest>

namespace
{

/// What a task plays on.
struct Target {
    bool enabled;
    QVector<int> devices;
    QVector<int> zones;
};

template <class T> T* append(ModelList<T>& list, int id)
{
    auto item = std::make_unique<T>();
    item->setId(id);
    return list.append(std::move(item));
}

void appendPlaylist(int id, int parent, int position)
{
    Playlist* const playlist = append(Data::playlistList, id);
    playlist->setParent(parent);
    playlist->setPosition(position);
}

void appendTrack(int id, int playlistId, int position)
{
    auto track = std::make_unique<Track>();
    track->id = id;
    track->parentId = playlistId;
    track->position = position;
    Data::trackList.append(std::move(track));
}

void appendTask(const Target& target)
{
    Task* const task = append(Data::tasks, Data::tasks.size());
    task->setState(target.enabled);
    task->getDeviceList() = target.devices;
    task->getZoneList() = target.zones;
}

template <class Entry> Entry memoryEntry(int deviceId, int position)
{
    Entry entry;
    entry.deviceId = deviceId;
    entry.position = position;
    entry.title = QString::number(position);
    return entry;
}

/// Device 4 has `count` entries, with one of device 5 between each two.
template <class Entry> QVector<Entry> memoryOf(int count)
{
    QVector<Entry> list;
    for (int position = 0; position < count; ++position) {
        list.append(memoryEntry<Entry>(4, position));
        list.append(memoryEntry<Entry>(5, position));
    }
    return list;
}

/// Positions with the titles they had at first: "0=0 1=1 2=3".
template <class Entry> QString shown(const QVector<Entry>& list)
{
    QStringList words;
    for (const Entry& entry : list) {
        words.append(QString::number(entry.position) + QLatin1Char('=') + entry.title);
    }
    return words.join(QLatin1Char(' '));
}

} // namespace

Q_DECLARE_METATYPE(Target)

class DataTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void lookupsGiveTheFirstMatchOrNull();
    void newPositionIsBehindTheLastSibling();
    void deletedMemoryEntryMovesTheLaterOnesUp();
    void deletedMemoryIsTakenOffThePageEntryByEntry();
    void taskDevices_data();
    void taskDevices();
    void endOfSessionForgetsIt();
};

void DataTest::lookupsGiveTheFirstMatchOrNull()
{
    const SessionFixture session;
    QCOMPARE(Data::getCurrentUser(), nullptr);
    QCOMPARE(Data::getCurrentRole(), nullptr);
    for (const char* const name : {"anna", "boris", "boris"}) {
        append(Data::userList, Data::userList.size())->setName(QLatin1String(name));
        append(Data::roleList, Data::roleList.size())->setName(QLatin1String(name));
    }
    QCOMPARE(Data::getUserByName(QStringLiteral("boris")), Data::userList.at(1));
    QCOMPARE(Data::getUserByName(QStringLiteral("Boris")), nullptr);
    QCOMPARE(Data::getRoleByName(QStringLiteral("boris")), Data::roleList.at(1));
    Data::userList.at(2)->setCurrent(true);
    QCOMPARE(Data::getCurrentUser(), Data::userList.at(2));
    appendTrack(11, 3, 1);
    appendTrack(12, 3, 0);
    QCOMPARE(Data::getFirstTrackInPlaylist(3)->id, 11);
    QCOMPARE(Data::getFirstTrackInPlaylist(4), nullptr);
}

void DataTest::newPositionIsBehindTheLastSibling()
{
    const SessionFixture session;
    appendPlaylist(1, 0, 0);
    appendPlaylist(2, 0, 0);
    QCOMPARE(Library::getPlaylistNewPositionId(1), 0);
    appendPlaylist(10, 1, 9);
    appendPlaylist(11, 1, 2);
    appendPlaylist(12, 2, 5);
    QCOMPARE(Library::getPlaylistNewPositionId(1), 3); // the last in the list, not the highest
    appendTrack(10, 1, 9);
    appendTrack(11, 1, 2);
    QCOMPARE(Library::getTrackNewPositionId(1), 3);
    QCOMPARE(Library::getTrackNewPositionId(2), 0);
}

void DataTest::deletedMemoryEntryMovesTheLaterOnesUp()
{
    SessionFixture session;
    Data::messageList = memoryOf<Message>(5);
    Data::scenarioList = memoryOf<Scenario>(3);
    MemoryEntries::deleteDeviceMessage(4, 2);
    QCOMPARE(session.page.take(),
             (QStringList{QStringLiteral("wrapperInput_device_setMessageId(4,3,2);"),
                          QStringLiteral("wrapperInput_device_setMessageId(4,4,3);")}));
    QCOMPARE(shown(MemoryEntries::getDeviceMessages(4)), QStringLiteral("0=0 1=1 2=3 3=4"));
    QCOMPARE(shown(MemoryEntries::getDeviceMessages(5)), QStringLiteral("0=0 1=1 2=2 3=3 4=4"));
    MemoryEntries::deleteDeviceScenario(4, 1);
    QCOMPARE(session.page.take(),
             QStringList{QStringLiteral("wrapperInput_device_setScenarioId(4,2,1);")});
    QCOMPARE(shown(MemoryEntries::getDeviceScenarios(4)), QStringLiteral("0=0 1=2"));
}

void DataTest::deletedMemoryIsTakenOffThePageEntryByEntry()
{
    SessionFixture session;
    Data::messageList = memoryOf<Message>(2);
    Data::scenarioList = memoryOf<Scenario>(1);
    MemoryEntries::deleteDeviceMessages(4);
    QCOMPARE(session.page.take(),
             (QStringList{QStringLiteral("wrapperInput_device_deleteMessage(4,0);"),
                          QStringLiteral("wrapperInput_device_setMessageId(4,1,0);"),
                          QStringLiteral("wrapperInput_device_deleteMessage(4,0);")}));
    QVERIFY(MemoryEntries::getDeviceMessages(4).isEmpty());
    QCOMPARE(MemoryEntries::getDeviceMessages(5).size(), 2);
    MemoryEntries::deleteDeviceScenarios(4);
    QCOMPARE(session.page.take(),
             QStringList{QStringLiteral("wrapperInput_device_deleteScenario(4,0);")});
    QCOMPARE(Data::scenarioList.size(), 1);
}

void DataTest::taskDevices_data()
{
    using Ids = QVector<int>;
    QTest::addColumn<Ids>("expected");
    QTest::addColumn<QVector<Target>>("targets");
    const auto row = [](const char* name, const Ids& expected, const QVector<Target>& targets) {
        QTest::newRow(name) << expected << targets;
    };
    row("no tasks", {}, {});
    row("switched off", {}, {{false, {1}, {9}}, {false, {}, {}}});
    row("zones before units, each once", {3, 2, 1}, {{true, {1, 2}, {9}}, {true, {3}, {}}});
    row("unknown zone", {1}, {{true, {1}, {8}}});
    row("no targets stand for all and end the walk", {2, 1, 2, 3},
        {{true, {2}, {}}, {true, {}, {}}, {true, {7}, {}}});
}

void DataTest::taskDevices()
{
    QFETCH(QVector<int>, expected);
    QFETCH(QVector<Target>, targets);
    const SessionFixture session;
    for (const int id : {1, 2, 3}) {
        append(Data::deviceList, id);
    }
    append(Data::zoneList, 9)->getDeviceList() = {3, 2};
    for (const Target& target : targets) {
        appendTask(target);
    }
    QCOMPARE(getDeviceListFromTasks(), expected);
}

void DataTest::endOfSessionForgetsIt()
{
    const SessionFixture session;
    append(Data::userList, 1);
    append(Data::deviceList, 1);
    Data::messageList = memoryOf<Message>(1);
    Data::scenarioList = memoryOf<Scenario>(1);
    Data::firmwareList.append(Firmware());
    Data::serverLogDates.append(QStringLiteral("18-11-2026"));
    Data::ip = QStringLiteral("10.0.0.1");
    Data::port = Data::localPort = Data::waitForAlarm = 5;
    Data::gongPlaybackId = Data::playbackForLoad = 5;
    Data::serverLogLevel = 5;
    Data::waitForExit = Data::blockStatus = Data::userRoleChanged = true;
    QString* const paths[] = {&Data::currentMessagePath,  &Data::currentFirmwarePath,
                              &Data::currentLogPath,      &Data::currentTrackPath,
                              &Data::currentMessageDrive, &Data::currentFirmwareDrive,
                              &Data::currentLogDrive,     &Data::currentTrackDrive};
    for (QString* const path : paths) {
        *path = QStringLiteral("/");
    }
    Data::clearSession();
    QVERIFY(Data::userList.isEmpty() && Data::deviceList.isEmpty() && Data::messageList.isEmpty());
    QVERIFY(Data::scenarioList.isEmpty() && Data::firmwareList.isEmpty());
    QVERIFY(Data::serverLogDates.isEmpty() && Data::ip.isEmpty());
    QCOMPARE(Data::port + Data::localPort + Data::waitForAlarm + Data::gongPlaybackId +
                 Data::playbackForLoad + Data::serverLogLevel,
             0);
    QVERIFY(!Data::waitForExit && !Data::blockStatus);
    QVERIFY(Data::userRoleChanged); // the login page has yet to say so
    for (const QString* const path : paths) {
        QVERIFY(path->isEmpty());
    }
}

QTEST_GUILESS_MAIN(DataTest)
#include "DataTest.moc"
