#include "playback/Sound.h"

#include "model/Task.h"

#include <QRegularExpression>
#include <QTest>

/// The running playbacks as the server lists them.
class PlaysTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void newPlaybackIsTakenIn();
    void knownPlaybackIsOverwritten();
    void pausedPlaybackKeepsItsUnits();
    void playbackOfATaskMarksItsUnits();
    void unitsOfThePlayback_data();
    void unitsOfThePlayback();
    void whatIsNotListedGoes();
    void endedGongIsShown_data();
    void endedGongIsShown();
    void noListChangesNothing();
};

namespace
{

const char* const birds = R"({"playbackId": 4, "playlistId": 20, "trackId": 30, "volume": 60,
    "playing": true, "targetPlaying": "list", "repeats": 1, "actionIfEnd": "pause",
    "timeshift": 12, "devices": [5], "zones": [], "activeDevices": [5, 99]})";

void list(const QJsonArray& elements)
{
    Fleet::answer(PlaybackCommand::GetPlays, {}, {{"list", elements}});
}

QJsonObject birdsWith(const QJsonObject& changes)
{
    QJsonObject element = Fleet::json(birds);
    for (auto field = changes.begin(); field != changes.end(); ++field) {
        element.insert(field.key(), field.value());
    }
    return element;
}

void addTask(int id, int playbackId)
{
    auto task = std::make_unique<Task>();
    task->setId(id);
    task->setTitle("Bell");
    task->setPlayback(playbackId);
    Data::tasks.append(std::move(task));
}

} // namespace

void PlaysTest::newPlaybackIsTakenIn()
{
    SessionFixture session;
    Sound::addLibrary();
    Fleet::addDevice(5);
    session.page.take();
    list({Fleet::json(birds)});
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_playback_setCurrentTrack(4,30,"Birds");
        wrapperInput_playback_setPlaying(4,1,2);
        wrapperInput_playback_setTimeshift(4,12,100);
        wrapperInput_playback_add(4,2,"Morning","Birds",60,12,100);
        wrapperInput_device_setPlayback(5,0,4);
        wrapperInput_device_setPlaybackInfo(5,"Morning","Birds");
        wrapperInput_device_setPlaybackCategory(5,2);)"));
    const Playback& playback = *Data::getPlaybackById(4);
    QCOMPARE(playback.getVolume(), 60);
    QCOMPARE(playback.getTargetPlaying(), "list");
    QCOMPARE(playback.getRepeats(), 1);
    QCOMPARE(playback.getActionIfEnd(), "pause");
    QCOMPARE(playback.getTaskId(), 0);
}

void PlaysTest::knownPlaybackIsOverwritten()
{
    SessionFixture session;
    Sound::addLibrary();
    Fleet::addDevice(5);
    Fleet::addDevice(6);
    list({Fleet::json(birds)});
    session.page.take();
    list({birdsWith({{"playlistId", 7},
                     {"trackId", 40},
                     {"timeshift", 3},
                     {"playing", false},
                     {"activeDevices", QJsonArray{6}}}),
          birdsWith({{"playbackId", 3}})});
    QCOMPARE(Sound::playbacks(), (QStringList{"4=7/40 7 -3", "3=20/30 2 +12"}));
    QCOMPARE(session.page.calls().filter("playback_add(").size(), 1); // the known one has a card
    QCOMPARE(Data::getPlaybackById(4)->getDeviceList(), QVector<int>{6});
}

void PlaysTest::pausedPlaybackKeepsItsUnits()
{
    SessionFixture session;
    Sound::addLibrary();
    Fleet::addDevice(5);
    session.page.take();
    list({birdsWith({{"playing", false}})});
    QCOMPARE(Sound::devices(), QStringList{"5=4/2"});
    QCOMPARE(session.page.calls().filter("playback_add("),
             QStringList{"wrapperInput_playback_add(4,0,\"Morning\",\"Birds\",60,12,100);"});
}

void PlaysTest::playbackOfATaskMarksItsUnits()
{
    const SessionFixture session;
    Sound::addLibrary();
    const Device& device = Fleet::addDevice(5);
    addTask(8, 77);
    addTask(9, 4);
    list({Fleet::json(birds)});
    QCOMPARE(Data::getPlaybackById(4)->getTaskId(), 9);
    QCOMPARE(device.getTaskId(), 9); // still there when the unit has taken the playback
}

void PlaysTest::unitsOfThePlayback_data()
{
    QTest::addColumn<QJsonObject>("targets");
    QTest::addColumn<QStringList>("devices");
    const QJsonArray none;
    const QJsonArray all{5, 6, 7};
    const QStringList online{"5=4/2", "6=0/0", "7=0/0"};
    const QStringList everywhere{"5=4/2", "6=4/2", "7=4/2"};
    const auto row = [](const char* name, const QJsonObject& targets, const QStringList& devices) {
        QTest::newRow(name) << targets << devices;
    };
    row("all units", {{"devices", none}, {"zones", none}, {"activeDevices", all}}, online);
    row("units", {{"devices", all}, {"zones", none}, {"activeDevices", all}}, everywhere);
    row("a zone", {{"devices", none}, {"zones", QJsonArray{3}}, {"activeDevices", all}},
        everywhere);
    row("none took it", {{"devices", all}, {"zones", none}, {"activeDevices", none}},
        {"5=0/0", "6=0/0", "7=0/0"});
    row("no ids", {{"activeDevices", QJsonArray{"5", 6.5, QJsonObject(), 7}}},
        {"5=0/0", "6=0/0", "7=4/2"});
}

void PlaysTest::unitsOfThePlayback()
{
    QFETCH(QJsonObject, targets);
    QFETCH(QStringList, devices);
    const SessionFixture session;
    Sound::addLibrary();
    Fleet::addDevice(5);
    Fleet::addDevice(6, DeviceOffline);
    Fleet::addDevice(7, DeviceIncoming);
    Fleet::addDevice(8).setPlaybackCategory(PlaybackCategory::Alarm); // it goes on
    list({birdsWith(targets)});
    QCOMPARE(Sound::devices(), devices + QStringList{"8=0/-4"});
}

void PlaysTest::whatIsNotListedGoes()
{
    SessionFixture session;
    Sound::addLibrary();
    const Playback& gone = Sound::addPlayback(3, 20, 31);
    Sound::addCarrier(5, gone);
    Sound::addCarrier(6, gone).setPlaybackCategory(PlaybackCategory::Alarm);
    Sound::addPlayback(2, 20, 31);
    session.page.take();
    list({birdsWith({{"activeDevices", QJsonArray()}}), "text", birdsWith({{"playbackId", "2"}})});
    QCOMPARE(Sound::playbacks(), QStringList{"4=20/30 2 +12"});
    QCOMPARE(Sound::devices(), (QStringList{"5=0/0", "6=0/0"}));
    QCOMPARE(session.page.calls().filter(QRegularExpression("clear|stop|gong")), Fleet::lines(R"(
        wrapperInput_playback_clearItems();
        wrapperInput_playback_stop(3);
        wrapperInput_playback_clearItems();
        wrapperInput_playback_stop(2);)"));
}

void PlaysTest::endedGongIsShown_data()
{
    QTest::addColumn<bool>("playing");
    QTest::newRow("running") << true;
    QTest::newRow("paused") << false;
}

void PlaysTest::endedGongIsShown()
{
    QFETCH(bool, playing);
    SessionFixture session;
    Sound::addLibrary();
    Sound::addPlayback(4, 7, 40).setPlaying(playing);
    Data::gongPlaybackId = 4;
    list({});
    QCOMPARE(Data::gongPlaybackId, 0);
    QVERIFY(session.page.calls().contains("gongStop();"));
}

void PlaysTest::noListChangesNothing()
{
    const SessionFixture session;
    Sound::addLibrary();
    Sound::addPlayback(4, 20, 30);
    Fleet::answer(PlaybackCommand::GetPlays, "{}", R"({"list": {"playbackId": 5}})");
    Fleet::answer(PlaybackCommand::GetPlays, "{}", R"({"response": "forbidden", "list": []})");
    QCOMPARE(Sound::playbacks(), QStringList{"4=20/30 2 +0"});
}

QTEST_GUILESS_MAIN(PlaysTest)
#include "PlaysTest.moc"
