#include "mirror/Mirror.h"
#include "media/PlaybackUpdater.h"
#include "mirror/Fleet.h"
#include "model/Library.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "protocol/ZoneList.h"

#include <QTest>

#include <limits>

/// What the mirror computes by itself: categories and paths of folders, positions, deep trees.
class MirrorTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void folders_data();
    void folders();
    void clockMovesWhatPlays_data();
    void clockMovesWhatPlays();
    void clockTicksByItself();
    void deepTreeEnds();
    void lineOfAnUnknownUnitTellsNobody();
};

namespace
{

void addFolder(int id, const char* title, int parent, int group)
{
    Mirror::add("playlist", {{"id", id}, {"title", title}, {"parent", parent}, {"group", group}});
}

/// Running playback 4 of a track.
const Playback& addPlayback(int length, bool playing, double position)
{
    Mirror::add("track", {{"id", 30}, {"playlist", 20}, {"duration", length}});
    Mirror::add(
        "playback",
        {{"id", 4}, {"playlist", 20}, {"track", 30}, {"playing", playing}, {"position", position}});
    return *Data::getPlaybackById(4);
}

} // namespace

void MirrorTest::folders_data()
{
    QTest::addColumn<int>("folder");
    QTest::addColumn<int>("category");
    QTest::addColumn<QString>("path");
    const auto row = [](const char* name, int folder, int category, const char* path) {
        QTest::newRow(name) << folder << category << QString::fromUtf8(path);
    };
    row("a root", 2, 2, "Плейлист");
    row("a root that isn't visible", 5, 5, "");
    row("below a root", 20, 2, "Плейлист / Morning");
    row("deep", 21, 2, ".. / Morning / Week");
    row("parent that isn't visible", 22, 3, "Реклама / Lost");
    row("a circle", 50, 0, ".. / b / a");
    row("a folder in itself", 52, 0, ".. / c / c");
    row("no parent", 53, 0, "Плейлист / d");
    row("a group that can't be", 54, 0, "Нет доступа / e");
    row("id 0", 0, 0, "zero");
    row("unknown", 99, 0, "");
    row("negative", -1, 0, "");
    row("lowest", std::numeric_limits<int>::min(), 0, "");
}

void MirrorTest::folders()
{
    QFETCH(int, folder);
    const SessionFixture session;
    addFolder(2, "Плейлист", 0, 2);
    addFolder(20, "Morning", 2, 2);
    addFolder(21, "Week", 20, 2);
    addFolder(22, "Lost", 77, 3);
    addFolder(50, "a", 51, 2);
    addFolder(51, "b", 50, 2);
    addFolder(52, "c", 52, 2);
    addFolder(53, "d", 0, 2);
    addFolder(54, "e", 77, -3);
    if (folder == 0) {
        addFolder(0, "zero", 2, 2);
    }
    QTEST(Library::getPlaybackType(folder), "category");
    int index = 0;
    while (index < Data::playlistList.size() && Data::playlistList.at(index)->getId() != folder) {
        ++index;
    }
    QTEST(Library::getPlaylistName(index), "path");
}

void MirrorTest::clockMovesWhatPlays_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("playing");
    QTest::addColumn<double>("position");
    QTest::addColumn<double>("after");
    QTest::addColumn<bool>("shown");
    QTest::newRow("a track") << 100 << true << 1.0 << 1.5 << true;
    QTest::newRow("past its end") << 100 << true << 100.0 << 100.5 << true;
    QTest::newRow("paused") << 100 << false << 1.0 << 1.0 << false;
    QTest::newRow("a stream") << -1 << true << 0.0 << 0.0 << false;
    QTest::newRow("a track without a length") << 0 << true << 0.0 << 0.5 << false;
    QTest::newRow("before the start") << 100 << true << -0.5 << -0.5 << false;
}

void MirrorTest::clockMovesWhatPlays()
{
    QFETCH(int, length);
    QFETCH(bool, playing);
    QFETCH(double, position);
    SessionFixture session;
    const Playback& playback = addPlayback(length, playing, position);
    PlaybackUpdater clock;
    session.page.take();
    clock.update();
    QTEST(playback.getTimeShift(), "after");
    QTEST(!session.page.calls().filter("setTimeshift(4,").isEmpty(), "shown");
}

void MirrorTest::clockTicksByItself()
{
    const SessionFixture session;
    const Playback& playback = addPlayback(100, true, 0.0);
    const PlaybackUpdater clock;
    QTRY_VERIFY(playback.getTimeShift() >= 1.0); // two ticks, so it goes on after the first
}

void MirrorTest::deepTreeEnds()
{
    const SessionFixture session;
    constexpr int depth = 20000;
    QJsonArray zones;
    for (int id = 1; id <= depth; ++id) {
        zones.append(
            QJsonObject{{"id", id}, {"title", "z"}, {"type", "logic"}, {"parentId", id - 1}});
    }
    Mirror::add("zone", {{"id", 1}, {"name", "z"}});
    zoneParseChilds(Data::getZoneById(1), {{"zones", zones}});
    QCOMPARE(Data::zoneList.size(), depth);
    QCOMPARE(Data::getZoneById(depth)->getParentZone(), depth - 1);
}

void MirrorTest::lineOfAnUnknownUnitTellsNobody()
{
    SessionFixture session;
    LineControl stray(99);
    stray.setState(LineControlState::InOrder);
    stray.setNew(true);
    QCOMPARE(session.page.calls(), QStringList());
}

QTEST_GUILESS_MAIN(MirrorTest)
#include "MirrorTest.moc"
