#include "playback/Sound.h"

#include "page/ScriptCall.h"

#include <QTest>

#include <functional>

/// What becomes of a running playback by the replies to the operator and by the pushes about what
/// others do.
class ControlTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void eventChangesThePlayback_data();
    void eventChangesThePlayback();
    void nextTrackIsShown();
    void answerLeavesTheCardOfAnotherAlone();
    void volumeGoesToTheCarriers_data();
    void volumeGoesToTheCarriers();
    void stoppedPlaybackLeaves_data();
    void stoppedPlaybackLeaves();
    void gongEnds_data();
    void gongEnds();
    void libraryIsFetchedAgain();
};

namespace
{

/// Playback 4 of "Birds" at second 10, on the units 5, 6 and, while the unit plays an input of its
/// own, 7.
Playback& addScene()
{
    Sound::addLibrary();
    Playback& playback = Sound::addPlayback(4, 20, 30);
    playback.setTimeShift(10);
    Sound::addCarrier(5, playback);
    Sound::addCarrier(6, playback).setPlaybackGroupId(17);
    Sound::addCarrier(7, playback).setPlaybackCategory(PlaybackCategory::CivilDefence);
    playback.setDeviceList({5, 6, 7});
    Fleet::addDevice(8);
    return playback;
}

const QStringList untouched{"5=4/2", "6=4/2", "7=4/-1", "8=0/0"};

using Event = std::function<void()>;

Event reply(PlaybackCommand command, const char* asked, const char* answer = "{}")
{
    return [=] { Fleet::answer(command, asked, answer); };
}

Event push(const char* text)
{
    return [=] {
        QJsonObject message = Fleet::json(text);
        message.insert("request", "playback");
        message.insert("order", 1);
        Fleet::push(message);
    };
}

} // namespace

Q_DECLARE_METATYPE(Event)

void ControlTest::eventChangesThePlayback_data()
{
    QTest::addColumn<Event>("event");
    QTest::addColumn<QString>("playback");
    const auto row = [](const char* name, const Event& event, const char* playback) {
        QTest::newRow(name) << event << playback;
    };
    const char* const as = "4=20/30 2 -10";
    const auto next = PlaybackCommand::PlayNext;
    const auto pause = PlaybackCommand::Pause;
    row("playNext", reply(next, R"({"playbackId": 4, "trackId": 31, "timeshift": 0})"),
        "4=20/31 2 +0");
    row("playNext, the server chooses",
        reply(next, R"({"playbackId": 4, "trackId": -1, "timeshift": 0})"), "4=20/30 2 +0");
    row("playNext refused",
        reply(next, R"({"playbackId": 4, "trackId": 31})", R"({"response": "x"})"), as);
    row("playNext of another", reply(next, R"({"playbackId": 9, "trackId": 31})"), as);
    row("resume", reply(pause, R"({"playbackId": 4, "pause": false})"), "4=20/30 2 +10");
    row("pause", reply(pause, R"({"playbackId": 4, "pause": true})"), as);
    row("resume refused",
        reply(pause, R"({"playbackId": 4, "pause": false})", R"({"response": "x"})"), as);
    row("resume of another", reply(pause, R"({"playbackId": 9, "pause": false})"), as);
    row("playNext push",
        push(R"({"action": "playNext", "playbackId": 4, "trackId": 31, "playlistId": 2,
                 "timeshift": 7, "playing": true})"),
        "4=2/31 2 +7");
    row("playNext push about another",
        push(R"({"action": "playNext", "playbackId": 9, "trackId": 31, "playlistId": 2,
                 "timeshift": 7, "playing": true})"),
        as);
    row("playNext push without a track",
        push(R"({"action": "playNext", "playbackId": 4, "trackId": -1, "playlistId": 20,
                 "timeshift": 10, "playing": false})"),
        as);
    row("pause push goes nowhere but to a pause",
        push(R"({"action": "pause", "id": 1, "playbackId": 4, "pause": false})"), as);
    row("stop push about another", push(R"({"action": "stop", "id": 9})"), as);
    row("stop of another", reply(PlaybackCommand::Stop, R"({"playbackId": 9})"), as);
    row("stop refused",
        reply(PlaybackCommand::Stop, R"({"playbackId": 4})", R"({"response": "forbidden"})"), as);
    row("getTrack", reply(PlaybackCommand::GetTrack, R"({"playbackId": 4})"), as);
}

/// The playback is paused at second 10 before.
void ControlTest::eventChangesThePlayback()
{
    QFETCH(Event, event);
    const SessionFixture session;
    addScene().setPlaying(false);
    event();
    QTEST(Sound::playbacks().value(0), "playback");
    QCOMPARE(Sound::devices(), untouched);
}

void ControlTest::nextTrackIsShown()
{
    SessionFixture session;
    addScene();
    session.page.take();
    Fleet::answer(PlaybackCommand::PlayNext, R"({"playbackId": 4, "trackId": 31, "timeshift": 0})",
                  "{}");
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_playback_setCurrentTrack(4,31,"Rain");
        wrapperInput_playback_setTimeshift(4,0,100);
        wrapperInput_playback_setPlaying(4,1,2);
        playlist_selectTrack(31);)"));
    push(R"({"action": "pause", "id": 1, "playbackId": 4})")();
    QVERIFY(!Data::getPlaybackById(4)->getPlaying());
    QVERIFY(session.log.contains(QStringLiteral("Pause playback: 1")));
}

void ControlTest::answerLeavesTheCardOfAnotherAlone()
{
    SessionFixture session;
    addScene();
    Sound::addPlayback(9, 20, 30);
    for (const int shown : {9, 4}) {
        Data::shownPlaybackId = shown;
        session.page.take();
        reply(PlaybackCommand::PlayNext, R"({"playbackId": 4, "trackId": 31})")();
        QCOMPARE(session.page.calls().contains("playlist_selectTrack(31);"), shown == 4);
        reply(PlaybackCommand::SetVolume, R"({"id": 4, "volume": 9})",
              R"({"response": "forbidden"})")();
        QCOMPARE(session.page.calls().contains("playback_setVolume(0);"), shown == 4);
        QVERIFY(session.page.calls().contains("modalForbiddenShow();"));
    }
}

void ControlTest::volumeGoesToTheCarriers_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("response");
    QTest::addColumn<QVector<int>>("volumes");
    const QVector<int> kept{0, 0, 0, 0};
    const auto row = [](const char* name, const char* asked, const char* response,
                        const QVector<int>& volumes) {
        QTest::newRow(name) << asked << response << volumes;
    };
    row("all carriers", R"({"id": 4, "volume": 40})", "success", {40, 40, 40, 0});
    row("refused", R"({"id": 4, "volume": 40})", "unknownId", kept);
    row("of another", R"({"id": 9, "volume": 40})", "success", kept);
    row("the microphone, not the idle", R"({"id": 0, "volume": 40})", "success", kept);
    row("too loud", R"({"id": 4, "volume": 101})", "success", kept);
}

void ControlTest::volumeGoesToTheCarriers()
{
    QFETCH(QString, asked);
    QFETCH(QString, response);
    const SessionFixture session;
    addScene();
    Fleet::answer(PlaybackCommand::SetVolume, Fleet::json(asked.toUtf8().constData()),
                  {{"response", response}});
    QVector<int> volumes;
    for (const Device& device : Data::deviceList) {
        volumes.append(device.getVolume());
    }
    QTEST(volumes, "volumes");
}

void ControlTest::stoppedPlaybackLeaves_data()
{
    QTest::addColumn<Event>("event");
    QTest::addColumn<QStringList>("devices");
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("clears");
    const QStringList all{"5=0/0", "6=0/0", "7=0/0", "8=0/0"};
    const QStringList butInput{"5=0/0", "6=0/0", "7=4/-1", "8=0/0"};
    QTest::newRow("reply") << reply(PlaybackCommand::Stop, R"({"playbackId": 4})") << all << 17
                           << true;
    QTest::newRow("reply of a server that has forgotten it")
        << reply(PlaybackCommand::Stop, R"({"playbackId": 4})", R"({"response": "unknownId"})")
        << all << 17 << true;
    QTest::newRow("push") << push(R"({"action": "stop", "id": 4})") << butInput << 0 << false;
}

void ControlTest::stoppedPlaybackLeaves()
{
    QFETCH(Event, event);
    QFETCH(bool, clears);
    SessionFixture session;
    addScene();
    session.page.take();
    event();
    QCOMPARE(Sound::playbacks(), QStringList());
    QTEST(Sound::devices(), "devices");
    QTEST(Data::getDeviceById(6)->getPlaybackGroupId(), "group");
    QCOMPARE(session.page.calls().contains("wrapperInput_playback_clearItems();"), clears);
    QCOMPARE(session.page.calls().last(), "wrapperInput_playback_stop(4);");
    QCOMPARE(session.page.calls().filter("gong"), QStringList());
}

void ControlTest::gongEnds_data()
{
    QTest::addColumn<Event>("event");
    QTest::addColumn<bool>("playing");
    const Event asked = reply(PlaybackCommand::Stop, R"({"playbackId": 4})");
    const Event pushed = push(R"({"action": "stop", "id": 4})");
    QTest::newRow("reply") << asked << true;
    QTest::newRow("reply while paused") << asked << false;
    QTest::newRow("push") << pushed << true;
    const Event swept = reply(PlaybackCommand::GetPlays, "{}", R"({"list": []})");
    QTest::newRow("sweep") << swept << true;
    QTest::newRow("sweep while paused") << swept << false;
    QTest::newRow("taken over") << reply(
                                       PlaybackCommand::Play,
                                       R"({"playlistId": 20, "trackId": 30})",
                                       R"({"playbackId": 9, "trackId": 30, "activeDevices": [5]})")
                                << true;
    QTest::newRow("push while paused") << pushed << false;
}

void ControlTest::gongEnds()
{
    QFETCH(Event, event);
    QFETCH(bool, playing);
    SessionFixture session;
    Sound::addLibrary();
    Playback& gong = Sound::addPlayback(4, 7, 40);
    gong.setPlaying(playing);
    Sound::addCarrier(5, gong);
    Data::gongPlaybackId = 4;
    event();
    QVERIFY(!Data::getPlaybackById(4));
    QCOMPARE(Data::gongPlaybackId, 0);
    QVERIFY(session.page.calls().contains("gongStop();"));
}

void ControlTest::libraryIsFetchedAgain()
{
    const SessionFixture session;
    for (const char* const action : {"addPlaylist", "addTrack", "setTitle", "play"}) {
        Fleet::push(QJsonObject{{"request", "playback"}, {"action", action}, {"order", 1}});
    }
    QCOMPARE(Fleet::takeRequests(),
             (QStringList{"playback/list", "playback/list", "playback/list", "playback/getPlays"}));
}

QTEST_GUILESS_MAIN(ControlTest)
#include "ControlTest.moc"
