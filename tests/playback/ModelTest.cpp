#include "playback/Sound.h"

#include "media/PlaybackUpdater.h"
#include "model/Library.h"

#include <QTest>

#include <limits>

/// What the classes of the library and the playbacks compute, and what they tell the page.
class PlaybackModelTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void categoryOfAFolder_data();
    void categoryOfAFolder();
    void pathOfAFolder_data();
    void pathOfAFolder();
    void folderHangsUnderWhatTheOperatorSees();
    void libraryTellsThePage();
    void playbackTellsThePage();
    void pausedPlaybackHasNoType();
    void clockMovesWhatPlays_data();
    void clockMovesWhatPlays();
    void clockTicksByItself();
};

namespace
{

/// 20 below 2, 21 below 20, 22 below a folder that isn't visible; 50 and 51 in a circle, 52 in
/// itself; 53 below nothing.
void addTree()
{
    Sound::addLibrary();
    Sound::addPlaylist(21, "Week", 20);
    Sound::addPlaylist(22, "Lost", 77, 3);
    Sound::addPlaylist(50, "a", 51);
    Sound::addPlaylist(51, "b", 50);
    Sound::addPlaylist(52, "c", 52);
    Sound::addPlaylist(53, "d", 0);
    Sound::addPlaylist(54, "e", 77, -3);
}

} // namespace

void PlaybackModelTest::categoryOfAFolder_data()
{
    QTest::addColumn<int>("playlist");
    QTest::addColumn<int>("category");
    const auto row = [](const char* name, int playlist, int category) {
        QTest::newRow(name) << playlist << category;
    };
    row("a root", 2, 2);
    row("a root that isn't visible", 5, 5);
    row("a folder", 20, 2);
    row("a deep folder", 21, 2);
    row("parent that isn't visible", 22, 3);
    row("a circle", 50, 0);
    row("a folder in itself", 52, 0);
    row("no parent", 53, 0);
    row("a group that can't be", 54, 0);
    row("id 0", 0, 0);
    row("unknown", 99, 0);
    row("negative", -1, 0);
    row("lowest", std::numeric_limits<int>::min(), 0);
}

void PlaybackModelTest::categoryOfAFolder()
{
    QFETCH(int, playlist);
    const SessionFixture session;
    addTree();
    Sound::addPlaylist(0, "zero", 2);
    QTEST(Library::getPlaybackType(playlist), "category");
}

void PlaybackModelTest::pathOfAFolder_data()
{
    QTest::addColumn<int>("playlist");
    QTest::addColumn<QString>("path");
    QTest::newRow("a root") << 2 << "Плейлист";
    QTest::newRow("below a root") << 20 << "Плейлист / Morning";
    QTest::newRow("deep") << 21 << ".. / Morning / Week";
    QTest::newRow("parent that isn't visible") << 22 << "Реклама / Lost";
    QTest::newRow("a circle") << 50 << ".. / b / a";
    QTest::newRow("no parent") << 53 << "Плейлист / d";
    QTest::newRow("a group that can't be") << 54 << "Нет доступа / e";
}

void PlaybackModelTest::pathOfAFolder()
{
    QFETCH(int, playlist);
    const SessionFixture session;
    addTree();
    QTEST(Library::getPlaylistName(Sound::playlists().indexOf(playlist)), "path");
    QCOMPARE(Library::getPlaylistName(-1), QString());
    QCOMPARE(Library::getPlaylistName(Data::playlistList.size()), QString());
}

void PlaybackModelTest::folderHangsUnderWhatTheOperatorSees()
{
    const SessionFixture session;
    addTree();
    QCOMPARE(Data::getPlaylistById(21)->getParent(), 20);
    QCOMPARE(Data::getPlaylistById(22)->getParent(), 3);
    QCOMPARE(Data::getPlaylistById(53)->getParent(), 0);
    Sound::addPlaylist(77, "Found", 2);
    QCOMPARE(Data::getPlaylistById(22)->getParent(), 77);
}

void PlaybackModelTest::libraryTellsThePage()
{
    SessionFixture session;
    Playlist playlist;
    playlist.setId(20);
    playlist.setTitle({});
    playlist.setTitle("Morning");
    playlist.setTitle("Morning");
    playlist.setDuration(0);
    playlist.setId(6);
    Track track;
    track.id = 30;
    track.setTitle("Birds");
    track.setTitle("Birds");
    track.setDuration(-1);
    track.setDuration(std::numeric_limits<int>::max());
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_playback_setPlaylistName(20,"Morning");
        wrapperInput_playback_setPlaylistDuration(20,0);
        wrapperInput_playbackGlobal_editAlarm(1);
        wrapperInput_playback_setTrackName(30,"Birds");
        wrapperInput_playback_setTrackDuration(30,-1);
        wrapperInput_playback_setTrackDuration(30,2147483647);)"));
}

void PlaybackModelTest::playbackTellsThePage()
{
    SessionFixture session;
    Sound::addLibrary();
    Sound::addTrack(32, 20, "Unmeasured", 0);
    Fleet::addDevice(5);
    session.page.take();
    Playback playback;
    playback.setId(4);
    playback.setPlaybackType(2);
    playback.getDeviceList() = {5, 99};
    playback.setTrackId(99);
    playback.setTimeShift(3);
    playback.setTrackId(32);
    playback.setTimeShift(4);
    playback.setTrackId(30);
    playback.setTimeShift(1234567.5);
    playback.setPlaying(true);
    playback.setTaskId(3);
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_playback_setCurrentTrack(4,32,"Unmeasured");
        wrapperInput_playback_setCurrentTrack(4,30,"Birds");
        wrapperInput_playback_setTimeshift(4,1.23457e+06,100);
        wrapperInput_playback_setPlaying(4,1,2);
        wrapperInput_device_setTask(5,3,"--");)"));
    QVERIFY(session.log.contains(QStringLiteral("Playback set type: 2")));
}

void PlaybackModelTest::pausedPlaybackHasNoType()
{
    const SessionFixture session;
    Sound::addLibrary();
    Playback& gong = Sound::addPlayback(4, 7, 40);
    QCOMPARE(gong.getPlaybackType(), 7);
    gong.setPlaying(false);
    QCOMPARE(gong.getPlaybackType(), 0);
    QCOMPARE(gong.getCategory(), 7);
}

void PlaybackModelTest::clockMovesWhatPlays_data()
{
    QTest::addColumn<int>("track");
    QTest::addColumn<bool>("playing");
    QTest::addColumn<double>("position");
    QTest::addColumn<double>("positionAfter");
    QTest::addColumn<QStringList>("calls");
    const QStringList none;
    const auto shown = [](const char* position) {
        return QStringList(
            QStringLiteral("wrapperInput_playback_setTimeshift(4,%1,100);").arg(position));
    };
    QTest::newRow("a track") << 30 << true << 1.0 << 1.5 << shown("1.5");
    QTest::newRow("past its end") << 30 << true << 100.0 << 100.5 << shown("100.5");
    QTest::newRow("paused") << 30 << false << 1.0 << 1.0 << none;
    QTest::newRow("a stream") << 32 << true << 0.0 << 0.0 << none;
    QTest::newRow("a track without a length") << 33 << true << 0.0 << 0.5 << none;
    QTest::newRow("an unknown track") << 99 << true << 1.0 << 1.0 << none;
    QTest::newRow("before the start") << 30 << true << -0.5 << -0.5 << none;
}

void PlaybackModelTest::clockMovesWhatPlays()
{
    QFETCH(int, track);
    QFETCH(bool, playing);
    QFETCH(double, position);
    SessionFixture session;
    Sound::addLibrary();
    Sound::addTrack(32, 20, "Stream", -1);
    Sound::addTrack(33, 20, "Unmeasured", 0);
    Playback& playback = Sound::addPlayback(4, 20, track);
    playback.setPlaying(playing);
    playback.setTimeShift(position);
    PlaybackUpdater clock;
    session.page.take();
    clock.update();
    QTEST(playback.getTimeShift(), "positionAfter");
    QTEST(session.page.calls(), "calls");
}

void PlaybackModelTest::clockTicksByItself()
{
    const SessionFixture session;
    Sound::addLibrary();
    const Playback& playback = Sound::addPlayback(4, 20, 30);
    const PlaybackUpdater clock;
    QTRY_VERIFY(playback.getTimeShift() >= 1.0); // two ticks, so it goes on after the first
}

QTEST_GUILESS_MAIN(PlaybackModelTest)
#include "ModelTest.moc"
