#include "playback/Sound.h"

#include "fleet/ViewSession.h"
#include "view/WebView.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

/// What the slots of the playback pages replay, and what they send.
class PlaybackSlotsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void listIsReplayed();
    void emptyListIsReplayed();
    void volumeIsTheMeanOfTheKnownUnits();
    void folderIsReplayed_data();
    void folderIsReplayed();
    void gongsAreReplayed();
    void zonesAreReplayed();
    void requests_data();
    void requests();
    void neighbours_data();
    void neighbours();
    void microphoneVolumeIsRemembered_data();
    void microphoneVolumeIsRemembered();
    void unitShowsWhatTheServerTold();
};

namespace
{

/// Playback 4 of "Rain", repeated twice more.
Playback& addScene()
{
    Sound::addLibrary();
    Playback& playback = Sound::addPlayback(4, 20, 31);
    playback.setTargetPlaying("list");
    playback.setRepeats(2);
    playback.setActionIfEnd("stop");
    playback.setTimeShift(2.5);
    return playback;
}

} // namespace

void PlaybackSlotsTest::listIsReplayed()
{
    ViewSession session;
    addScene();
    Playback& paused = Sound::addPlayback(3, 99, 98);
    paused.setPlaying(false);
    session.page.take();
    session.view.playback_loadList();
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_playback_add(4,2,"Morning","Rain",0,2.5,100);
        wrapperInput_playback_setTimeshift(4,2.5,100);
        wrapperInput_playback_add(3,0,"","",0,0,0);
        playback_selectDevice(4);
        playback_selectPlaylist(20);
        wrapperInput_playback_addItem(30,20,"Birds",0,100);
        wrapperInput_playback_addItem(31,20,"Rain",0,100);
        playlist_selectTrack(31);)"));
}

void PlaybackSlotsTest::emptyListIsReplayed()
{
    ViewSession session;
    Sound::addLibrary();
    session.page.take();
    session.view.playback_loadList();
    session.view.playback_loadPlayback(4);
    QCOMPARE(session.page.calls(), QStringList());
    QVERIFY(session.log.contains(QStringLiteral("playback_loadPlayback: 4")));
}

void PlaybackSlotsTest::volumeIsTheMeanOfTheKnownUnits()
{
    ViewSession session;
    Playback& playback = addScene();
    playback.getDeviceList() = {98, 99};
    session.view.playback_loadPlayback(4);
    QCOMPARE(session.page.take().filter("setVolume"), QStringList());
    Fleet::addDevice(5).setVolume(41);
    Fleet::addDevice(6).setVolume(20);
    playback.getDeviceList() = {5, 99, 6};
    session.page.take();
    session.view.playback_loadPlayback(4);
    QCOMPARE(session.page.calls().last(), "playback_setVolume(30);");
}

void PlaybackSlotsTest::folderIsReplayed_data()
{
    QTest::addColumn<int>("folder");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("a root") << 2 << Fleet::lines(R"(
        wrapperInput_playback_addItem(20,2,"Morning",1,200);
        wrapperInput_playback_addItem(22,2,"Lost",1,200);)");
    QTest::newRow("a root that isn't visible")
        << 3 << Fleet::lines("wrapperInput_playback_addItem(23,3,\"Ad\",1,200);");
    QTest::newRow("a folder") << 20 << Fleet::lines(R"(
        wrapperInput_playback_addItem(2,20,"..",1,0);
        wrapperInput_playback_addItem(30,20,"Birds",0,100);
        wrapperInput_playback_addItem(31,20,"Rain",0,100);)");
    QTest::newRow("parent that isn't visible")
        << 22 << Fleet::lines("wrapperInput_playback_addItem(2,22,\"..\",1,0);");
    QTest::newRow("unknown") << 99 << QStringList();
}

void PlaybackSlotsTest::folderIsReplayed()
{
    QFETCH(int, folder);
    ViewSession session;
    addScene();
    Sound::addPlaylist(22, "Lost", 77, 2);
    Sound::addPlaylist(23, "Ad", 3, 3);
    session.page.take();
    session.view.playback_loadPlaybackWithPlaylist(folder);
    QTEST(session.page.calls(), "calls");
}

void PlaybackSlotsTest::gongsAreReplayed()
{
    ViewSession session;
    addScene();
    Sound::addPlaylist(70, "Deep", 7, 7);
    Sound::addTrack(41, 70, "Chime");
    Sound::addTrack(42, 99, "Stray");
    session.page.take();
    session.view.playback_loadPlaybackType(7);
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_playback_addItem(40,7,"Bell",0,100);
        wrapperInput_playback_addItem(41,70,"Chime",0,100);)"));
}

void PlaybackSlotsTest::zonesAreReplayed()
{
    ViewSession session;
    Fleet::addEverything();
    Fleet::addZone(1, "root");
    Fleet::addZone(9, "hall", 1, 1);
    session.page.take();
    session.view.playback_loadZoneList();
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_zone_add(1,0,"root","Все зоны",0);
        wrapperInput_zone_add(9,1,"hall","root",1);)"));
}

void PlaybackSlotsTest::requests_data()
{
    QTest::addColumn<QStringList>("requests");
    const auto row = [](const char* script, const QString& requests) {
        QTest::newRow(script) << Fleet::lines(requests.toUtf8().constData());
    };
    const auto play = [](const char* devices, int playlist, int track, int repeats) {
        return QStringLiteral(R"(playback/play {"actionIfEnd":"stop","devices":[%1],)"
                              R"("playlistId":%2,"repeats":%3,"strategy":"none",)"
                              R"("targetPlaying":"track","trackId":%4,"zones":[]})")
            .arg(QLatin1String(devices))
            .arg(playlist)
            .arg(repeats)
            .arg(track);
    };
    row("playback_play(20, '31', '5,6', 'none', 'track', '1', 'stop')", play("5,6", 20, 31, 0));
    row("playback_play(20, 31, '5', 'none', 'track', 255, 'stop')", play("5", 20, 31, 254));
    row("playback_play(20, 31, '5', 'none', 'track', '', 'stop')", play("5", 20, 31, 0));
    row("playback_play(20, 31, '5,,x, 6,7.5', 'none', 'track', 1, 'stop')", play("5,6", 20, 31, 0));
    // A start without targets would go to all units.
    row("playback_play(20, 31, '', 'none', 'track', 1, 'stop')", "");
    row("playback_play(20, 31, 'x', 'none', 'track', 1, 'stop')", "");
    // The gong page names the category.
    row("playback_play(7, 41, '5', 'none', 'track', 1, 'stop')", play("5", 70, 41, 0));
    row("playback_play(7, 99, '5', 'none', 'track', 1, 'stop')", play("5", 7, 99, 0));
    row("playback_stop(4)", R"(playback/stop {"playbackId":4})");
    row("playback_pause(4, true)", R"(playback/pause {"pause":true,"playbackId":4})");
    row("playback_pause(4, false)", R"(playback/pause {"pause":false,"playbackId":4})");
    row("playback_nextById(4, '30')",
        R"(playback/playNext {"actionIfEnd":"stop","playbackId":4,"playlistId":20,"repeats":2,)"
        R"("targetPlaying":"list","timeshift":0,"trackId":30})");
    row("playback_nextById(9, 30)", "");
    row("playback_next(9)", "");
    row("playback_prev(9)", "");
    row("playback_setVolume(4, '40', 'playback')",
        R"(playback/setVolume {"id":4,"target":"playback","volume":40})");
    row("playback_setVolume(4, 40)",
        R"(playback/setVolume {"id":4,"target":"playback","volume":40})");
    row("playback_setVolume(-1, 40, 'playback')", "");
    row("playback_startRedirection('5,6', 'alarm')",
        R"(playback/startRedirection {"devices":[5,6],"strategy":"none","type":"alarm","volume":50,"zones":[]})");
    row("playback_startRedirection('x', 'alarm')", "");
}

void PlaybackSlotsTest::requests()
{
    ViewSession session;
    addScene();
    Sound::addPlaylist(70, "Deep", 7, 7);
    Sound::addTrack(41, 70, "Chime");
    session.page.take();
    session.runSlot(QString::fromLatin1(QTest::currentDataTag()));
    QTEST(Fleet::takeRequests(), "requests");
    QCOMPARE(session.page.calls(), QStringList()); // nothing is shown ahead of the answer
}

void PlaybackSlotsTest::neighbours_data()
{
    QTest::addColumn<int>("track");
    QTest::addColumn<int>("next");
    QTest::addColumn<int>("previous");
    QTest::newRow("first") << 30 << 31 << 30;
    QTest::newRow("middle, with another folder's between") << 31 << 32 << 30;
    QTest::newRow("last") << 32 << -1 << 31;
    QTest::newRow("not in the library") << 99 << -1 << 32;
}

void PlaybackSlotsTest::neighbours()
{
    QFETCH(int, track);
    ViewSession session;
    addScene().setTrackId(track);
    Sound::addTrack(41, 7, "Chime");
    Sound::addTrack(32, 20, "Hail");
    const auto sent = [] {
        const QString request = Fleet::takeRequests().value(0);
        return request.section("\"trackId\":", 1).section('}', 0, 0).toInt();
    };
    session.view.playback_next(4);
    QTEST(sent(), "next");
    session.view.playback_prev(4);
    QTEST(sent(), "previous");
}

void PlaybackSlotsTest::microphoneVolumeIsRemembered_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("target");
    QTest::addColumn<int>("stored");
    QTest::newRow("the microphone") << 0 << "redirection" << 40;
    QTest::newRow("a playback") << 4 << "playback" << 50;
    QTest::newRow("no playback") << -1 << "redirection" << 50;
}

void PlaybackSlotsTest::microphoneVolumeIsRemembered()
{
    QFETCH(int, id);
    QFETCH(QString, target);
    ViewSession session;
    const QTemporaryDir folder;
    QSettings settings(folder.filePath("config.ini"), QSettings::IniFormat);
    settings.setValue("volume/microphone", 50);
    Data::settings = &settings;
    session.view.playback_setVolume(id, 40, target);
    Data::settings = nullptr;
    QTEST(settings.value("volume/microphone").toInt(), "stored");
}

/// From the server's lists to the labels of a unit's page.
void PlaybackSlotsTest::unitShowsWhatTheServerTold()
{
    ViewSession session;
    Fleet::addDevice(5);
    Fleet::answer(PlaybackCommand::List, "{}", R"({"playlists": [{"id": 20, "title": "Morning",
        "parentId": 2, "groupId": 2}], "tracks": [{"id": 30, "parentId": 20, "title": "Birds"},
        {"id": 31, "parentId": 20, "title": "Rain"}]})");
    Fleet::answer(PlaybackCommand::GetPlays, "{}", R"({"list": [{"playbackId": 4, "trackId": 30,
        "playlistId": 20, "playing": true, "devices": [5], "activeDevices": [5]}]})");
    Fleet::push(R"({"request": "playback", "action": "playNext", "order": 1, "playbackId": 4,
        "trackId": 31, "playlistId": 20, "timeshift": 0, "playing": true})");
    session.page.take();
    session.view.menu_loadDeviceInfo(5);
    QCOMPARE(session.page.calls().filter("Audio"), Fleet::lines(R"(
        deviceInfo_setAudioPlaylist("Morning");
        deviceInfo_setAudioTrack("Rain");)"));
}

QTEST_MAIN(PlaybackSlotsTest)
#include "PlaybackSlotsTest.moc"
