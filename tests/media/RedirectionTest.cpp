#include "mirror/Fleet.h"

#include "protocol/Redirection.h"

#include <QTest>

/// Which units a broadcast marks, and what its messages cause at the microphone.
class RedirectionTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void repliesMarkTheUnits_data();
    void repliesMarkTheUnits();
    void refusalsAreShown_data();
    void refusalsAreShown();
    void endTakesTheMarksAway_data();
    void endTakesTheMarksAway();

private:
    QString marks();

    std::unique_ptr<SessionFixture> session;
    QString marksAtStart;
    QJsonObject startReply;
    int starts = 0;
    int stops = 0;
    bool speaking = false;
};

/// Unit 1 rests, 2 plays playback 8, 3 and 4 are still marked by broadcasts before.
void RedirectionTest::init()
{
    session = std::make_unique<SessionFixture>();
    for (int id = 1; id <= 4; ++id) {
        Fleet::addDevice(id);
    }
    Data::getDeviceById(2)->setPlayback(8);
    Data::getDeviceById(2)->setPlaybackCategory(PlaybackCategory::Playlist);
    Data::getDeviceById(3)->setPlaybackCategory(PlaybackCategory::Microphone);
    Data::getDeviceById(4)->setPlaybackCategory(PlaybackCategory::Alarm);
    starts = stops = 0;
    speaking = false;
    redirectionHooks().started = [this](const QJsonObject& reply) {
        ++starts;
        marksAtStart = marks();
        startReply = reply;
    };
    redirectionHooks().stopped = [this] { ++stops; };
    redirectionHooks().endedElsewhere = [this] { return std::exchange(speaking, false); };
    session->page.take();
    Fleet::takeRequests();
}

void RedirectionTest::cleanup()
{
    redirectionHooks() = {};
    session.reset();
}

/// The units' playbacks and categories, as `0/5 8/2`.
QString RedirectionTest::marks()
{
    QStringList result;
    for (const Device& device : Data::deviceList) {
        result.append(QString("%1/%2").arg(device.getPlayback()).arg(device.getPlaybackCategory()));
    }
    return result.join(' ');
}

void RedirectionTest::repliesMarkTheUnits_data()
{
    QTest::addColumn<QByteArray>("redirection");
    QTest::addColumn<QString>("marked");
    const auto row = [](const char* name, const char* redirection, const char* marked) {
        QTest::newRow(name) << QByteArray(redirection) << QString(marked);
    };
    row("microphone", R"({"type": "microphone", "devices": [1, 2]})", "0/5 0/5 0/0 0/0");
    row("alarm", R"({"type": "alarm", "devices": [2, 3]})", "0/0 0/-4 0/-4 0/0");
    row("nobody", R"({"type": "alarm", "devices": []})", "0/0 8/2 0/0 0/0");
    row("another kind", R"({"type": "gong", "devices": [1]})", "0/0 8/2 0/0 0/0");
    row("unknown units and no ids",
        R"({"type": "alarm", "devices": [99, "1", 1.5, null, {"id": 1}, 3]})", "0/0 8/2 0/-4 0/0");
    row("nothing", "{}", "0/0 8/2 0/0 0/0");
}

void RedirectionTest::repliesMarkTheUnits()
{
    QFETCH(QByteArray, redirection);
    QFETCH(QString, marked);
    Fleet::answer(PlaybackCommand::GetRedirection, "{}", redirection);
    QCOMPARE(marks(), marked);
    QCOMPARE(starts, 0);
    cleanup();
    init();
    Fleet::answer(PlaybackCommand::StartRedirection, redirection, R"({"port": 5004})");
    QCOMPARE(marks(), marked);
    QCOMPARE(starts, 1);
    QCOMPARE(marksAtStart, marked); // the microphone opens behind the marks
    QCOMPARE(startReply.value("port").toInt(), 5004);
}

void RedirectionTest::refusalsAreShown_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("low priority") << "lowPriority"
                                  << QStringList{"modalAudioTranslationHide();",
                                                 "modalLowPriorityShow();"};
    QTest::newRow("unknown word") << "busy" << QStringList();
    QTest::newRow("forbidden") << "forbidden" << QStringList{"modalForbiddenShow();"};
}

void RedirectionTest::refusalsAreShown()
{
    QFETCH(QString, word);
    QFETCH(QStringList, calls);
    const QString before = marks();
    Fleet::answer(PlaybackCommand::StartRedirection,
                  QJsonObject{{"type", "alarm"}, {"devices", QJsonArray{1}}},
                  QJsonObject{{"response", word}});
    QCOMPARE(session->page.calls(), calls);
    Fleet::answer(PlaybackCommand::GetRedirection, QJsonObject(), QJsonObject{{"response", word}});
    QCOMPARE(starts + stops, 0);
    session->page.take();
    // Whoever wants to end is off the air, whatever the server says.
    Fleet::answer(PlaybackCommand::StopRedirection, QJsonObject(), QJsonObject{{"response", word}});
    QCOMPARE(stops, 1);
    QCOMPARE(session->page.calls(), QStringList{"modalAudioTranslationStopError();"});
    QCOMPARE(marks(), before);
}

void RedirectionTest::endTakesTheMarksAway_data()
{
    QTest::addColumn<bool>("isPush");
    QTest::addColumn<bool>("wasSpeaking");
    QTest::newRow("our own wish") << false << true;
    QTest::newRow("ended elsewhere while we speak") << true << true;
    QTest::newRow("another console's end") << true << false;
}

void RedirectionTest::endTakesTheMarksAway()
{
    QFETCH(bool, isPush);
    QFETCH(bool, wasSpeaking);
    speaking = wasSpeaking;
    if (isPush) {
        Fleet::push(R"({"request": "playback", "action": "stopRedirection"})");
    } else {
        Fleet::answer(PlaybackCommand::StopRedirection, "{}", "{}");
    }
    QCOMPARE(marks(), QString("0/0 8/2 0/0 0/0"));
    QCOMPARE(stops, isPush ? 0 : 1);
    const QStringList dialogs{"modalAudioTranslationHide();",
                              "modalAudioTranslationEndedByAnotherUser();"};
    QCOMPARE(session->page.calls().filter("modal"),
             isPush && wasSpeaking ? dialogs : QStringList());
}

QTEST_GUILESS_MAIN(RedirectionTest)
#include "RedirectionTest.moc"
