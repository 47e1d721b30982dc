#include "playback/Sound.h"

#include "model/Library.h"
#include <QTest>

/// The library as the server lists it, and what is taken out of it.
class LibraryTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void newLibraryIsTakenIn();
    void folderBehindItsChildIsItsParent();
    void knownEntriesAreOverwritten();
    void whatIsNotListedGoesWithItsTracks();
    void alarmEntryFollowsItsRoot();
    void malformedListsChangeNothing_data();
    void malformedListsChangeNothing();
    void pushTakesAnEntryAway_data();
    void pushTakesAnEntryAway();
};

namespace
{

void list(const char* reply)
{
    Fleet::answer(PlaybackCommand::List, "{}", reply);
}

} // namespace

void LibraryTest::newLibraryIsTakenIn()
{
    SessionFixture session;
    list(R"({"playlists": [
        {"id": 2, "title": "Music", "parentId": 0, "position": 1, "duration": 300, "volume": 50,
         "groupId": 2},
        {"id": 5, "title": "Records", "parentId": 0, "position": 1, "duration": 300, "volume": 50,
         "groupId": 5},
        {"id": 20, "title": "\"/><b>", "parentId": 77, "position": 3, "duration": 0, "volume": 50,
         "groupId": 2}],
        "tracks": [{"id": 30, "parentId": 20, "title": "Birds", "position": 4, "duration": -1}]})");
    QCOMPARE(session.page.calls().filter("addItem"), Fleet::lines(R"(
        wrapperInput_playback_addItem(2,0,"Music",1,300);
        wrapperInput_playback_addItem(20,2,"\"/><b>",1,0);
        wrapperInput_playback_addItem(30,20,"Birds",0,-1);)"));
    QCOMPARE(Sound::playlists(), (QVector<int>{2, 20}));
    const Playlist& folder = *Data::getPlaylistById(20);
    QCOMPARE(folder.getPosition(), 3);
    QCOMPARE(folder.getVolume(), 50);
    QCOMPARE(folder.getGroup(), 2);
    QCOMPARE(Data::getTrackById(30)->position, 4);
    QCOMPARE(Library::getPlaybackType(20), 2);
}

void LibraryTest::folderBehindItsChildIsItsParent()
{
    SessionFixture session;
    list(R"({"playlists": [
        {"id": 21, "title": "Week", "parentId": 20, "position": 0, "duration": 0, "volume": 0,
         "groupId": 2},
        {"id": 20, "title": "Morning", "parentId": 2, "position": 0, "duration": 0, "volume": 0,
         "groupId": 2}], "tracks": []})");
    QCOMPARE(session.page.calls().filter("addItem"), Fleet::lines(R"(
        wrapperInput_playback_addItem(21,20,"Week",1,0);
        wrapperInput_playback_addItem(20,2,"Morning",1,0);)"));
}

void LibraryTest::knownEntriesAreOverwritten()
{
    SessionFixture session;
    Sound::addLibrary();
    session.page.take();
    list(R"({"playlists": [
        {"id": 2, "title": "Плейлист", "parentId": 0, "position": 0, "duration": 200, "volume": 0,
         "groupId": 2},
        {"id": 20, "title": "Noon", "parentId": 0, "position": 8, "duration": 9, "volume": 7,
         "groupId": 6},
        {"id": 7, "duration": 1}],
        "tracks": [{"id": 31, "parentId": 2, "title": "Hail", "position": 5, "duration": 6}]})");
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_playback_setPlaylistDuration(2,200);
        wrapperInput_playback_setPlaylistName(20,"Noon");
        wrapperInput_playback_setPlaylistDuration(20,9);
        wrapperInput_playback_setPlaylistDuration(7,1);
        wrapperInput_playback_setTrackName(31,"Hail");
        wrapperInput_playback_setTrackDuration(31,6);)"));
    const Playlist& folder = *Data::getPlaylistById(20);
    QCOMPARE(folder.getParent(), 0);
    QCOMPARE(folder.getGroup(), 6);
    QCOMPARE(Data::getTrackById(31)->parentId, 2);
    QCOMPARE(Data::getPlaylistById(7)->getTitle(), "Гонг"); // a missing field changes nothing
    QCOMPARE(Sound::tracks(), (QVector<int>{30, 40, 31}));  // tracks that aren't named stay
}

void LibraryTest::whatIsNotListedGoesWithItsTracks()
{
    SessionFixture session;
    Sound::addLibrary();
    session.page.take();
    list(R"({"playlists": [{"id": 2}], "tracks": [{"id": 30, "parentId": 2, "title": "Birds",
        "position": 0, "duration": 100}]})");
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_playback_deletePlaylist(20);
        wrapperInput_playback_deleteTrack(30);
        wrapperInput_playback_deleteTrack(31);
        wrapperInput_playback_deletePlaylist(7);
        wrapperInput_playback_deleteTrack(40);
        wrapperInput_playback_setTrackName(30,"Birds");
        wrapperInput_playback_setTrackDuration(30,100);
        wrapperInput_playback_addItem(30,2,"Birds",0,100);)"));
    QCOMPARE(Sound::playlists(), QVector<int>{2});
    QCOMPARE(Sound::tracks(), QVector<int>{30});
    QCOMPARE(Data::getTrackById(31), nullptr);
    QCOMPARE(Data::getPlaylistById(20), nullptr);
}

void LibraryTest::alarmEntryFollowsItsRoot()
{
    SessionFixture session;
    for (const char* const name : {"new", "known"}) {
        list(R"({"playlists": [{"id": 6}], "tracks": []})");
        QVERIFY2(session.page.take().contains("wrapperInput_playbackGlobal_editAlarm(1);"), name);
    }
    list(R"({"playlists": [], "tracks": []})");
    QVERIFY(session.page.take().contains("wrapperInput_playbackGlobal_editAlarm(0);"));
    list(R"({"playlists": [{"id": 6}, {"id": 2}], "tracks": []})");
    session.page.take();
    Fleet::push(R"({"request": "playback", "action": "remove", "order": 1, "id": 6})");
    QVERIFY(session.page.take().contains("wrapperInput_playbackGlobal_editAlarm(0);"));
    Fleet::push(R"({"request": "playback", "action": "remove", "order": 2, "id": 2})");
    QCOMPARE(session.page.calls(), QStringList{"wrapperInput_playback_deletePlaylist(2);"});
}

void LibraryTest::malformedListsChangeNothing_data()
{
    QTest::addColumn<QString>("reply");
    QTest::newRow("refused") << R"({"response": "forbidden", "playlists": [], "tracks": []})";
    QTest::newRow("nothing") << "{}";
    QTest::newRow("no lists") << R"({"playlists": {"id": 9}, "tracks": "30"})";
    QTest::newRow("no ids") << R"({"playlists": [{"id": 2}, {"id": 20}, {"id": 7}, {"id": "9"},
        {"id": 9.5}, {}, null, "x", []], "tracks": [{"id": "30"}, {"id": 1e300}, 30]})";
}

void LibraryTest::malformedListsChangeNothing()
{
    QFETCH(QString, reply);
    SessionFixture session;
    Sound::addLibrary();
    session.page.take();
    list(reply.toUtf8().constData());
    QCOMPARE(Sound::playlists(), (QVector<int>{2, 20, 7}));
    QCOMPARE(Sound::tracks(), (QVector<int>{30, 40, 31}));
    QCOMPARE(session.page.calls(), QStringList());
}

void LibraryTest::pushTakesAnEntryAway_data()
{
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QVector<int>>("playlists");
    QTest::addColumn<QVector<int>>("tracks");
    QTest::addColumn<QStringList>("calls");
    const QVector<int> playlists{2, 20, 7};
    const QVector<int> tracks{30, 40, 31};
    const auto row = [](const char* name, const char* fields, const QVector<int>& left,
                        const QVector<int>& leftTracks, const QStringList& calls) {
        QTest::newRow(name) << fields << left << leftTracks << calls;
    };
    row("a track", R"("action": "excludeTrack", "id": 30)", playlists, {40, 31},
        {"wrapperInput_playback_deleteTrack(30);"});
    row("a playlist without its tracks", R"("action": "remove", "id": 20)", {2, 7}, tracks,
        {"wrapperInput_playback_deletePlaylist(20);"});
    row("unknown track", R"("action": "excludeTrack", "id": 20)", playlists, tracks, {});
    row("unknown playlist", R"("action": "remove", "id": 30)", playlists, tracks, {});
    row("no id of a track", R"("action": "excludeTrack", "id": "30")", playlists, tracks, {});
    row("no id of a playlist", R"("action": "remove")", playlists, tracks, {});
}

void LibraryTest::pushTakesAnEntryAway()
{
    QFETCH(QString, fields);
    SessionFixture session;
    Sound::addLibrary();
    session.page.take();
    Fleet::push(QStringLiteral(R"({"request": "playback", "order": 1, %1})").arg(fields).toUtf8());
    QTEST(Sound::playlists(), "playlists");
    QTEST(Sound::tracks(), "tracks");
    QTEST(session.page.calls(), "calls");
    QCOMPARE(session.log.hasLineWith("Ignored removal"), session.page.calls().isEmpty());
}

QTEST_GUILESS_MAIN(LibraryTest)
#include "LibraryTest.moc"
