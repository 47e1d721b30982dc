#include "simulator/Client.h"
#include "simulator/Life.h"
#include "simulator/ServerFixture.h"

#include <QJsonArray>
#include <QtTest>

/// A playback occupies its units, and every console hears what becomes of it. When the server
/// starts, playback 1 is the radio on units 21 and 23, playback 2 music on units 2 and 8; unit 18
/// is not connected.
class TestPlayback : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void starts_data();
    void starts();
    void startIsSeenByTheOthers();
    void playbackEndsWithItsLastUnit();
    void stops();
    void gongSoundsOnceOverTheMusic_data();
    void gongSoundsOnceOverTheMusic();
    void pausesWhereItIs();
    void playsAnotherTrack_data();
    void playsAnotherTrack();
    void volumeGoesToTheUnits();
    void endsAfterItsRepeats_data();
    void endsAfterItsRepeats();
    void presets_data();
    void presets();
    void hiddenPlaybacksAreUnknown();
    void playsFromMemory_data();
    void playsFromMemory();
    void memoryGivesWay();

private:
    QJsonObject play(int playlist, int track, const QJsonArray& units,
                     const QString& strategy = "none", QJsonObject repetition = {});
    /// The entry of a playback in the list that the other console reads, empty when it has none.
    QJsonObject entryOf(int playback);
    QString word(const QJsonObject& reply) { return reply.value("response").toString(); }

    std::unique_ptr<ServerFixture> server;
    std::unique_ptr<Client> asking;
    std::unique_ptr<Client> other;
};

void TestPlayback::init()
{
    other.reset();
    asking.reset();
    server = std::make_unique<ServerFixture>();
    asking = std::make_unique<Client>((*server)->port());
    other = std::make_unique<Client>((*server)->port());
    QVERIFY(other->logIn("admin"));
    QVERIFY(asking->logIn("operator"));
    QCOMPARE(other->takePush().value("request"), QJsonValue("user"));
}

QJsonObject TestPlayback::play(int playlist, int track, const QJsonArray& units,
                               const QString& strategy, QJsonObject repetition)
{
    repetition.insert("playlistId", playlist);
    repetition.insert("trackId", track);
    repetition.insert("devices", units);
    repetition.insert("zones", QJsonArray());
    repetition.insert("strategy", strategy);
    return asking->ask("playback", "play", repetition);
}

QJsonObject TestPlayback::entryOf(int playback)
{
    for (const QJsonValue& entry : other->ask("playback", "getPlays").value("list").toArray()) {
        if (entry["playbackId"] == playback) {
            return entry.toObject();
        }
    }
    return {};
}

void TestPlayback::starts_data()
{
    QTest::addColumn<int>("playlist");
    QTest::addColumn<int>("track");
    QTest::addColumn<QJsonArray>("units");
    QTest::addColumn<QString>("strategy");
    QTest::addColumn<QString>("response");
    QTest::addColumn<QJsonArray>("active");
    const QJsonArray none;

    QTest::newRow("free units") << 22 << 113 << QJsonArray{3, 4} << "none"
                                << "success" << QJsonArray{3, 4};
    QTest::newRow("first track") << 22 << -1 << QJsonArray{3} << "none"
                                 << "success" << QJsonArray{3};
    QTest::newRow("one not connected") << 22 << 113 << QJsonArray{3, 18} << "none"
                                       << "success" << QJsonArray{3};
    QTest::newRow("none connected") << 22 << 113 << QJsonArray{18} << "none"
                                    << "noDevices" << none;
    QTest::newRow("no units") << 22 << 113 << none << "overlap"
                              << "noDevices" << none;
    QTest::newRow("unknown unit") << 22 << 113 << QJsonArray{99, "3"} << "none"
                                  << "noDevices" << none;
    QTest::newRow("one twice") << 22 << 113 << QJsonArray{3, 3} << "none"
                               << "success" << QJsonArray{3};
    QTest::newRow("busy") << 23 << 121 << QJsonArray{2, 3} << "none"
                          << "overlap" << none;
    QTest::newRow("busy, replace") << 23 << 121 << QJsonArray{2, 3} << "overlap"
                                   << "success" << QJsonArray{2, 3};
    QTest::newRow("busy, only the free") << 23 << 121 << QJsonArray{2, 3} << "partial"
                                         << "success" << QJsonArray{3};
    QTest::newRow("all busy, only the free") << 23 << 121 << QJsonArray{2, 8} << "partial"
                                             << "noDevices" << none;
    QTest::newRow("unknown track") << 22 << 999 << QJsonArray{3} << "none"
                                   << "playbackError" << none;
    QTest::newRow("empty folder") << 2 << -1 << QJsonArray{3} << "none"
                                  << "playbackError" << none;
    QTest::newRow("unknown folder") << 99 << 113 << QJsonArray{3} << "none"
                                    << "playbackError" << none;
}

void TestPlayback::starts()
{
    QFETCH(int, playlist);
    QFETCH(int, track);
    QFETCH(QJsonArray, units);
    QFETCH(QString, strategy);
    QFETCH(QString, response);
    QFETCH(QJsonArray, active);
    const QJsonObject reply = play(playlist, track, units, strategy);
    QCOMPARE(word(reply), response);
    QCOMPARE(reply.value("activeDevices").toArray(), active);
    const int id = reply.value("playbackId").toInt();
    QCOMPARE(id > 0, response == "success");
    QCOMPARE(entryOf(id).value("activeDevices").toArray(), active);
}

void TestPlayback::startIsSeenByTheOthers()
{
    const QJsonObject repetition{
        {"targetPlaying", "track"}, {"repeats", 3}, {"actionIfEnd", "pause"}};
    const int id = play(25, 141, {3}, "none", repetition).value("playbackId").toInt();
    QCOMPARE(other->takePush().value("action"), QJsonValue("play"));
    const QJsonObject entry = entryOf(id);
    for (const QString& key : repetition.keys()) {
        QCOMPARE(entry.value(key), repetition.value(key));
    }
    QCOMPARE(entry.value("trackId"), QJsonValue(141));
    QCOMPARE(entry.value("playing"), QJsonValue(true));
    for (const QJsonValue& unit : other->ask("device", "getDevices").value("devices").toArray()) {
        if (unit["id"] == 3) {
            QCOMPARE(unit["playback"], QJsonValue("ad"));
        }
    }
    const QJsonObject push = other->takePush("setState");
    QCOMPARE(push.value("deviceId"), QJsonValue(3));
    QCOMPARE(push.value("playback"), QJsonValue("ad"));
    QVERIFY(asking->pushes.isEmpty());
}

void TestPlayback::playbackEndsWithItsLastUnit()
{
    QCOMPARE(word(play(23, 121, {2}, "overlap")), QString("success"));
    QCOMPARE(entryOf(2).value("activeDevices"), QJsonValue(QJsonArray{8}));
    QCOMPARE(word(play(27, 161, {8}, "overlap")), QString("success"));
    QVERIFY(entryOf(2).isEmpty());
    QCOMPARE(other->takePush("stop").value("id"), QJsonValue(2));
    // Music doesn't take a unit from an alarm.
    QCOMPARE(word(play(23, 121, {8}, "overlap")), QString("lowPriority"));
    QCOMPARE(word(play(23, 121, {8}, "none")), QString("lowPriority"));
}

void TestPlayback::stops()
{
    QCOMPARE(word(asking->ask("playback", "stop", {{"playbackId", 2}})), QString("success"));
    QCOMPARE(other->takePush().value("action"), QJsonValue("stop"));
    QVERIFY(entryOf(2).isEmpty());
    QCOMPARE(word(asking->ask("playback", "stop", {{"playbackId", 2}})), QString("unknownId"));
    const QJsonObject next = play(22, 111, {2, 8});
    QCOMPARE(word(next), QString("success"));
    QCOMPARE(next.value("playbackId"), QJsonValue(3)); // ids are not given twice
}

void TestPlayback::gongSoundsOnceOverTheMusic_data()
{
    QTest::addColumn<bool>("stopped");
    QTest::newRow("to its end") << false;
    QTest::newRow("stopped by hand") << true;
}

void TestPlayback::gongSoundsOnceOverTheMusic()
{
    QFETCH(bool, stopped);
    const int gong = play(7, 171, {2, 3}, "overlap", {{"repeats", 5}}).value("playbackId").toInt();
    QCOMPARE(entryOf(gong).value("activeDevices"), QJsonValue(QJsonArray{2, 3}));
    QCOMPARE(entryOf(2).value("activeDevices"), QJsonValue(QJsonArray{8}));
    QCOMPARE(other->takePush("setState").value("playback"), QJsonValue("gong"));
    if (stopped) {
        QCOMPARE(word(asking->ask("playback", "stop", {{"playbackId", gong}})), QString("success"));
    } else {
        simulator::Playback* playback = (*server)->installation().playback(gong);
        playback->since = playback->since.addSecs(-4);
        simulator::Life(**server, 1).step();
    }
    QCOMPARE(other->takePush("stop").value("id"), QJsonValue(gong));
    QCOMPARE(other->takePush("setState").value("playback"), QJsonValue("playlist"));
    QCOMPARE(other->takePush("setState").value("playback"), QJsonValue("none"));
    QVERIFY(!asking->takePush("play").isEmpty());
    QCOMPARE(entryOf(2).value("activeDevices"), QJsonValue(QJsonArray{2, 8}));
}

void TestPlayback::pausesWhereItIs()
{
    simulator::Playback& music = *(*server)->installation().playback(2);
    music.since = music.since.addSecs(-50);
    const auto pause = [this](bool value) {
        return word(asking->ask("playback", "pause", {{"playbackId", 2}, {"pause", value}}));
    };
    QCOMPARE(pause(true), QString("success"));
    QCOMPARE(other->takePush().value("playbackId"), QJsonValue(2));
    music.since = music.since.addSecs(-60);
    const QJsonObject entry = entryOf(2);
    QCOMPARE(entry.value("playing"), QJsonValue(false));
    QVERIFY(entry.value("timeshift").toInt() >= 50 && entry.value("timeshift").toInt() < 60);

    QCOMPARE(pause(false), QString("success"));
    const QJsonObject push = other->takePush("playNext");
    QCOMPARE(push.value("playing"), QJsonValue(true));
    QVERIFY(push.value("timeshift").toInt() >= 50 && push.value("timeshift").toInt() < 60);
}

void TestPlayback::playsAnotherTrack_data()
{
    QTest::addColumn<int>("wanted");
    QTest::addColumn<QString>("response");
    QTest::addColumn<int>("track");
    QTest::newRow("named") << 114 << "success" << 114;
    QTest::newRow("the server's choice") << -1 << "success" << 111;
    QTest::newRow("of another folder") << 121 << "error" << 112;
    QTest::newRow("unknown") << 999 << "error" << 112;
}

void TestPlayback::playsAnotherTrack()
{
    QFETCH(int, wanted);
    QFETCH(int, track);
    const QJsonObject reply = asking->ask(
        "playback", "playNext", {{"playbackId", 2}, {"trackId", wanted}, {"timeshift", 0}});
    QTEST(word(reply), "response");
    QCOMPARE(entryOf(2).value("trackId"), QJsonValue(track));
    if (word(reply) == "success") {
        QCOMPARE(asking->takePush().value("trackId"), QJsonValue(track));
        QCOMPARE(other->takePush().value("trackId"), QJsonValue(track));
    }
}

void TestPlayback::volumeGoesToTheUnits()
{
    const auto setVolume = [this](int volume) {
        return word(asking->ask("playback", "setVolume",
                                {{"target", "playback"}, {"id", 2}, {"volume", volume}}));
    };
    QCOMPARE(setVolume(101), QString("error"));
    QCOMPARE(setVolume(13), QString("success"));
    for (int id : {2, 8}) {
        const QJsonObject push = other->takePush();
        QCOMPARE(push.value("deviceId"), QJsonValue(id));
        QCOMPARE(push.value("volume"), QJsonValue(13));
    }
}

void TestPlayback::endsAfterItsRepeats_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<int>("repeats");
    QTest::addColumn<QString>("atEnd");
    QTest::addColumn<QVector<int>>("tracks");
    QTest::newRow("folder once") << "list" << 0 << "stop" << QVector<int>{142};
    QTest::newRow("folder twice") << "list" << 1 << "stop" << QVector<int>{142, 141, 142};
    QTest::newRow("track once") << "track" << 0 << "stop" << QVector<int>{};
    QTest::newRow("track three times") << "track" << 2 << "stop" << QVector<int>{141, 141};
    QTest::newRow("folder once, then pause") << "list" << 0 << "pause" << QVector<int>{142, 141};
}

/// Folder 25 has the tracks 141 and 142.
void TestPlayback::endsAfterItsRepeats()
{
    QFETCH(QString, target);
    QFETCH(int, repeats);
    QFETCH(QString, atEnd);
    QFETCH(QVector<int>, tracks);
    const QJsonObject repetition{
        {"targetPlaying", target}, {"repeats", repeats}, {"actionIfEnd", atEnd}};
    const int id = play(25, 141, {3}, "none", repetition).value("playbackId").toInt();
    simulator::Life life(**server, 1);
    simulator::Playback* playback = (*server)->installation().playback(id);
    for (int steps = 0; playback && playback->playing && steps < 10; ++steps) {
        playback->since = playback->since.addSecs(-100);
        life.step();
        playback = (*server)->installation().playback(id);
    }
    QVector<int> told;
    bool stopped = false;
    other->ask("user", "getInfo");
    for (const QJsonObject& push : other->pushes) {
        if (push.value("action") == "playNext" && push.value("playbackId") == id) {
            told.append(push.value("trackId").toInt());
        }
        stopped = stopped || (push.value("action") == "stop" && push.value("id") == id);
    }
    QCOMPARE(told, tracks);
    QCOMPARE(stopped, atEnd == "stop");
    QCOMPARE(playback == nullptr, atEnd == "stop");
}

void TestPlayback::presets_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("preset");
    QTest::addColumn<QString>("strategy");
    QTest::addColumn<QString>("response");
    QTest::newRow("units and a busy one") << "operator" << 3 << "none"
                                          << "overlap";
    QTest::newRow("taken over") << "operator" << 3 << "overlap"
                                << "success";
    QTest::newRow("zone") << "operator" << 1 << "overlap"
                          << "success";
    QTest::newRow("unknown") << "operator" << 9 << "none"
                             << "error";
    QTest::newRow("not the role's") << "guard" << 2 << "overlap"
                                    << "error";
    QTest::newRow("no right") << "viewer" << 1 << "overlap"
                              << "forbidden";
}

void TestPlayback::presets()
{
    QFETCH(QString, name);
    QFETCH(int, preset);
    QFETCH(QString, strategy);
    Client client((*server)->port());
    QVERIFY(client.logIn(name));
    const QJsonObject reply =
        client.ask("preset", "play", {{"id", preset}, {"strategy", strategy}});
    QTEST(word(reply), "response");
    if (word(reply) == "success") {
        QCOMPARE(other->takePush("start").value("request"), QJsonValue("preset"));
        const QJsonObject entry = entryOf(reply.value("result").toInt());
        QVERIFY(entry.value("activeDevices").toArray().contains(1));
    }
}

void TestPlayback::hiddenPlaybacksAreUnknown()
{
    Client guard((*server)->port());
    QVERIFY(guard.logIn("guard"));
    // The radio's folder is the guards', its units are not.
    QCOMPARE(word(guard.ask("playback", "stop", {{"playbackId", 1}})), QString("unknownId"));
    QVERIFY(!entryOf(1).isEmpty());
    QCOMPARE(word(guard.ask("playback", "play",
                            {{"playlistId", 22}, {"trackId", 111}, {"devices", QJsonArray{3}}})),
             QString("playbackError"));
}

void TestPlayback::playsFromMemory_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("type");
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("ends");
    QTest::newRow("message") << "playMessage"
                             << "message" << 2 << true;
    QTest::newRow("announcement") << "playScenario"
                                  << "scenario" << 1 << false;
}

/// A message sounds once, an announcement until it is stopped.
void TestPlayback::playsFromMemory()
{
    QFETCH(QString, action);
    QFETCH(QString, type);
    QFETCH(int, position);
    QFETCH(bool, ends);
    const auto groups = [this] {
        return other->ask("device", "getPlays", {{"id", 8}})["playbackGroups"].toArray();
    };
    QCOMPARE(word(asking->ask("device", action, {{"id", 8}, {"position", 3}})), QString("error"));
    QCOMPARE(word(asking->ask("device", action, {{"id", 18}, {"position", 0}})), QString("error"));
    const int group =
        asking->ask("device", action, {{"id", 8}, {"position", position}})["playbackGroupId"]
            .toInt();
    QVERIFY(group > 0);
    QCOMPARE(other->takePush("setState").value("playback"), QJsonValue(type));
    QCOMPARE(other->takePush("startTranslation").value("deviceId"), QJsonValue(8));
    QCOMPARE(
        groups(),
        (QJsonArray{QJsonObject{
            {"id", group}, {"type", type}, {"position", position}, {"devices", QJsonArray{8}}}}));
    QCOMPARE(entryOf(2).value("activeDevices"), QJsonValue(QJsonArray{2}));

    simulator::Unit& unit = *(*server)->installation().unit(8);
    unit.memoryRun->since = unit.memoryRun->since.addSecs(-100);
    simulator::Life(**server, 1).step();
    QCOMPARE(groups().isEmpty(), ends);
    const QJsonObject stop{{"id", 8}, {"playbackGroupId", group}};
    QCOMPARE(word(asking->ask("device", "stop", stop)), QString(ends ? "error" : "success"));
    QVERIFY(groups().isEmpty());
    QCOMPARE(other->takePush("setState").value("playback"), QJsonValue("none"));
}

void TestPlayback::memoryGivesWay()
{
    const QJsonObject message{{"id", 3}, {"position", 0}};
    QCOMPARE(word(asking->ask("device", "playMessage", message)), QString("success"));
    QCOMPARE(word(play(22, 111, {3}, "overlap")), QString("lowPriority"));
    QCOMPARE(word(play(27, 161, {3}, "overlap")), QString("success"));
    QVERIFY(!(*server)->installation().unit(3)->memoryRun);
    QCOMPARE(word(asking->ask("device", "playMessage", message)), QString("playing"));
}

QTEST_GUILESS_MAIN(TestPlayback)
#include "tst_playback.moc"
