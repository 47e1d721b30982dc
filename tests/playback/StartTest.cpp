#include "playback/Sound.h"

#include <QJsonDocument>
#include <QTest>

/// What the reply to a start does to the mirror and to the page.
class StartTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void refusalOpensItsDialog_data();
    void refusalOpensItsDialog();
    void startedPlaybackIsTakenIn();
    void unitsChangeTheirPlayback_data();
    void unitsChangeTheirPlayback();
    void positionAtTheStart_data();
    void positionAtTheStart();
    void gongStaysOnItsPage();
    void knownPlaybackHasNoTwin();
    void startWithoutAPlaybackIsDropped();
};

namespace
{

const QJsonObject asked = Fleet::json(R"({"playlistId": 20, "trackId": 30,
    "targetPlaying": "track", "repeats": 2, "actionIfEnd": "stop"})");

void start(int playbackId, const QJsonArray& devices, QJsonObject request = asked)
{
    Fleet::answer(PlaybackCommand::Play, request,
                  {{"playbackId", playbackId},
                   {"trackId", request.value("trackId")},
                   {"activeDevices", devices}});
}

const QStringList openedPages = Fleet::lines(R"(
    loadTopMenu("device_list");
    loadSideMenu("playback");
    loadBotMenu("playback_list");
    loadMainBody("playback_list");
    changeMenu("playlist");)");

} // namespace

void StartTest::refusalOpensItsDialog_data()
{
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("lowPriority") << QStringList{"modalLowPriorityShow();"};
    QTest::newRow("noDevices") << QStringList{"modalNoDevicesShow();"};
    QTest::newRow("required") << QStringList{"modalRequiredUpdateShow();"};
    QTest::newRow("busyPorts") << QStringList{"modalBusyPortsShow();"};
    QTest::newRow("overlap") << QStringList{"modalOverlapShow();"};
    QTest::newRow("playbackError") << QStringList{"modalPlayError();"};
    QTest::newRow("whatever") << QStringList{};
}

void StartTest::refusalOpensItsDialog()
{
    SessionFixture session;
    Fleet::addDevice(5);
    session.page.take();
    Fleet::answer(PlaybackCommand::Play, asked,
                  {{"response", QTest::currentDataTag()},
                   {"playbackId", 4},
                   {"activeDevices", QJsonArray{5}}});
    QTEST(session.page.calls(), "calls");
    QCOMPARE(Sound::playbacks(), QStringList());
    QCOMPARE(Sound::devices(), QStringList{"5=0/0"});
}

void StartTest::startedPlaybackIsTakenIn()
{
    SessionFixture session;
    Sound::addLibrary();
    Fleet::addDevice(5);
    session.page.take();
    start(4, {5});
    const Playback& playback = *Data::getPlaybackById(4);
    QCOMPARE(playback.getTargetPlaying(), "track");
    QCOMPARE(playback.getRepeats(), 2);
    QCOMPARE(playback.getActionIfEnd(), "stop");
    QCOMPARE(playback.getDeviceList(), QVector<int>{5});
    const QStringList calls = session.page.calls();
    QVERIFY(calls.contains("wrapperInput_device_setPlaybackInfo(5,\"Morning\",\"Birds\");"));
    QCOMPARE(calls.mid(calls.size() - openedPages.size()), openedPages);
}

void StartTest::unitsChangeTheirPlayback_data()
{
    QTest::addColumn<QString>("started");
    QTest::addColumn<QStringList>("playbacks");
    QTest::addColumn<QStringList>("devices");
    const auto row = [](const char* started, const QStringList& playbacks,
                        const QStringList& devices) {
        QTest::newRow(started) << started << playbacks << devices;
    };
    const QString old = "3=20/31 2 +0";
    const QString started = "4=20/30 2 +1";
    row("[]", {old, started}, {"5=3/2", "6=3/2", "7=0/0"});
    row("[7]", {old, started}, {"5=3/2", "6=3/2", "7=4/2"});
    row("[6]", {old, started}, {"5=3/2", "6=4/2", "7=0/0"});
    row("[5, 6]", {started}, {"5=4/2", "6=4/2", "7=0/0"});
    row("[5, 5, 6, 7]", {started}, {"5=4/2", "6=4/2", "7=4/2"});
    row("[99, \"6\", null, 6.5, {}, 7]", {old, started}, {"5=3/2", "6=3/2", "7=4/2"});
}

void StartTest::unitsChangeTheirPlayback()
{
    QFETCH(QString, started);
    const SessionFixture session;
    Sound::addLibrary();
    const Playback& old = Sound::addPlayback(3, 20, 31);
    Sound::addCarrier(5, old);
    Sound::addCarrier(6, old);
    Fleet::addDevice(7);
    start(4, QJsonDocument::fromJson(started.toUtf8()).array());
    QTEST(Sound::playbacks(), "playbacks");
    QTEST(Sound::devices(), "devices");
    QCOMPARE(session.log.contains(QStringLiteral("Playback destroed")),
             Data::playbackList.size() == 1);
    QCOMPARE(session.log.hasLineWith("Dropped unit"), started.contains("null"));
}

void StartTest::positionAtTheStart_data()
{
    QTest::addColumn<int>("track");
    QTest::addColumn<double>("position");
    QTest::newRow("a track") << 30 << 1.0;
    QTest::newRow("a stream") << 32 << 1.0;
    QTest::newRow("no length") << 33 << 0.0;
    QTest::newRow("a track that has gone") << 99 << 0.0;
}

void StartTest::positionAtTheStart()
{
    QFETCH(int, track);
    const SessionFixture session;
    Sound::addLibrary();
    Sound::addTrack(32, 20, "Stream", -1);
    Sound::addTrack(33, 20, "Unmeasured", 0);
    QJsonObject request = asked;
    request.insert("trackId", track);
    start(4, {}, request);
    QTEST(Data::getPlaybackById(4)->getTimeShift(), "position");
    QCOMPARE(Data::gongPlaybackId, 0);
}

void StartTest::gongStaysOnItsPage()
{
    SessionFixture session;
    Sound::addLibrary();
    Sound::addTrack(41, 7, "Chime", 0);
    Fleet::addDevice(5);
    session.page.take();
    start(4, {5}, Fleet::json(R"({"playlistId": 7, "trackId": 41})"));
    QCOMPARE(Sound::playbacks(), QStringList{"4=7/40 7 +1"}); // shown by the first gong
    QCOMPARE(Sound::devices(), QStringList{"5=4/7"});
    QCOMPARE(Data::gongPlaybackId, 4);
    QCOMPARE(session.page.calls().last(), "gongStart(4);");
    QCOMPARE(session.page.calls().filter("load"), QStringList());
}

void StartTest::knownPlaybackHasNoTwin()
{
    const SessionFixture session;
    Sound::addLibrary();
    Fleet::addDevice(5);
    start(4, {5});
    QJsonObject request = asked;
    request.insert("trackId", 31);
    start(4, {5}, request);
    QCOMPARE(Sound::playbacks(), QStringList{"4=20/31 2 +1"});
    QCOMPARE(Data::getPlaybackById(4)->getDeviceList(), QVector<int>{5});
}

void StartTest::startWithoutAPlaybackIsDropped()
{
    SessionFixture session;
    Fleet::answer(PlaybackCommand::Play, asked, {{"playbackId", "4"}, {"trackId", 30}});
    QCOMPARE(Sound::playbacks(), QStringList());
    QCOMPARE(session.page.calls(), QStringList());
    QVERIFY(session.log.contains(QStringLiteral("Ignored start: no playback")));
}

QTEST_GUILESS_MAIN(StartTest)
#include "StartTest.moc"
