#include "app/Data.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Track.h"
#include "page/PageFixture.h"
#include "page/ScriptCall.h"

#include <QElapsedTimer>
#include <QTimer>

namespace
{

/// Takes as long as a tile.
void dawdle()
{
    constexpr qint64 nanoseconds = 400000;
    QElapsedTimer spent;
    spent.start();
    while (spent.nsecsElapsed() < nanoseconds) {
    }
}

} // namespace

/// The road of the calls into the page: what goes together, in which order, and what a page that
/// asks back sees.
class ScriptPipeTest : public PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void failingCallTakesNoOtherAlong();
    void hostileTextArrivesAsItIs();
    void ownCallGoesBehindWhatIsGathered();
    void burstGoesInPortionsAndInOrder();
    void answerComesBehindTheBatchThatAsked();
    void pagesThatAskOnAndOnAreServed();
    void cheapReplayIsThereAtOnce();
    void replayShowsAPortionAtOnce();
    void replayEndsWithAnotherOrItsSession();
    void positionsOfOneTickGoTogether();

private:
    ScriptPipe& scripts() const { return console().program().scripts(); }
    QString seen() const { return text("seen.join()"); }
};

void ScriptPipeTest::initTestCase()
{
    QVERIFY(console().showLogin());
    console().servers().addServer({"10.0.0.1", 1, true});
}

void ScriptPipeTest::init()
{
    run("window.seen = []; window.note = function (what) { seen.push(what); };"
        "window.addServerOption = function () { seen.push('answer'); };"
        "window.ask = function (what) { seen.push(what); wrapper.login_serverList(); };"
        "window.batches = []; window.takeCallsOnce = window.takeCallsOnce || window.takeCalls;"
        "window.takeCalls = function () { var before = seen.length; takeCallsOnce();"
        "batches.push(seen.length - before); }");
}

void ScriptPipeTest::failingCallTakesNoOtherAlong()
{
    run("window.fail = function () { throw new Error('on purpose'); }");
    {
        const ScriptPipe::Gathering gathering(scripts());
        Page::call("fail");
        Page::call("nobodyHasThis");
        Page::call("note", 7);
        QCOMPARE(seen(), QString());
    }
    QVERIFY(console().waitFor("seen.join() === '7'"));
    QVERIFY(!console().scriptErrors().filter("on purpose").isEmpty());
}

void ScriptPipeTest::hostileTextArrivesAsItIs()
{
    const QString hostile = hostileText + QChar(0x2028) + QChar(0x1) + "\t</script>";
    Page::call("note", hostile);
    QCOMPARE(text("seen[0]"), hostile);
    Page::call("note", 2.5);
    Page::call("note", true);
    QCOMPARE(text("seen.slice(1).join()"), QString("2.5,1"));
}

void ScriptPipeTest::ownCallGoesBehindWhatIsGathered()
{
    {
        const ScriptPipe::Gathering gathering(scripts());
        Page::call("note", 1);
        Page::call("note", 2);
    }
    Page::call("note", 3);
    QCOMPARE(seen(), QString("1,2,3"));
    console().view().runJavascript("note(4)");
    QCOMPARE(seen(), QString("1,2,3,4"));
}

void ScriptPipeTest::burstGoesInPortionsAndInOrder()
{
    const int count = 3 * ScriptPipe::batchCalls + 1;
    {
        const ScriptPipe::Gathering gathering(scripts());
        for (int call = 0; call < count; ++call) {
            Page::call("note", call);
        }
        Page::call("note", QString(2 * ScriptPipe::batchCharacters, QLatin1Char('x')));
        Page::call("note", "behind");
    }
    QVERIFY(console().waitFor("seen[seen.length - 1] === 'behind'"));
    QCOMPARE(text("batches.join()"), QStringLiteral("%1,%1,%1,2,1").arg(ScriptPipe::batchCalls));
    QVERIFY(is(QStringLiteral("seen.slice(0, %1).every(function (call, index) { "
                              "return call === index; })")
                   .arg(count)));
}

void ScriptPipeTest::answerComesBehindTheBatchThatAsked()
{
    {
        const ScriptPipe::Gathering gathering(scripts());
        Page::call("ask", 1);
        Page::call("note", 2);
        Page::call("note", 3);
    }
    QVERIFY(console().waitFor("seen.length === 4"));
    QCOMPARE(seen(), QString("1,2,3,answer"));
    run("wrapper.login_serverList(); note('returned')");
    QCOMPARE(seen(), QString("1,2,3,answer,answer,returned"));
}

void ScriptPipeTest::pagesThatAskOnAndOnAreServed()
{
    constexpr int count = 1500;
    {
        const ScriptPipe::Gathering gathering(scripts());
        for (int call = 0; call < count; ++call) {
            Page::call("ask", call);
        }
    }
    QVERIFY(console().waitFor(QStringLiteral("seen.length === %1").arg(2 * count)));
    QVERIFY(is("seen.filter(function (call) { return call !== 'answer'; })"
               ".every(function (call, index) { return call === index; })"));
}

/// Entries that don't cost as much as tiles would come many portions at once.
void ScriptPipeTest::cheapReplayIsThereAtOnce()
{
    int shown = 0;
    const QVector<int> ids(10 * ScriptPipe::replayPortion, 1);
    scripts().replay("list", ids, [&shown](int) { ++shown; });
    QVERIFY(shown > 2 * ScriptPipe::replayPortion);
}

void ScriptPipeTest::replayShowsAPortionAtOnce()
{
    QVector<int> ids;
    for (int id = 0; id < 2 * ScriptPipe::replayPortion + 1; ++id) {
        ids.append(id);
    }
    const auto note = [](int id) {
        dawdle();
        Page::call("note", id);
    };
    scripts().replay("one", ids, note);
    scripts().replay("two", {1000}, note);
    QCOMPARE(text("seen.length"), QString::number(ScriptPipe::replayPortion + 1));
    QVERIFY(console().waitFor(QStringLiteral("seen.length === %1").arg(ids.size() + 1)));
    QCOMPARE(text("seen[seen.length - 1]"), QString::number(ids.last()));
    QVERIFY(is("batches.length === 4"));
}

void ScriptPipeTest::replayEndsWithAnotherOrItsSession()
{
    const QVector<int> ids(3 * ScriptPipe::replayPortion, 1);
    int shown = 0;
    const auto count = [&shown](int) {
        dawdle();
        ++shown;
    };
    // What the event loop does next is behind the turns that the ended replays would have taken.
    const auto turn = [] {
        QEventLoop loop;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
    };
    scripts().replay("list", ids, count);
    scripts().replay("list", {1}, count);
    turn();
    QCOMPARE(shown, ScriptPipe::replayPortion + 1);
    scripts().replay("list", ids, count);
    console().view().stopTimers();
    turn();
    QCOMPARE(shown, 2 * ScriptPipe::replayPortion + 1);
}

void ScriptPipeTest::positionsOfOneTickGoTogether()
{
    Data::trackList.append(std::make_unique<Track>(1, 2, "Track", 0, 180));
    for (int id = 1; id <= 3; ++id) {
        auto playback = std::make_unique<Playback>();
        playback->setId(id);
        playback->setTrackId(1);
        playback->setPlaying(true);
        Data::playbackList.append(std::move(playback));
    }
    run("window.wrapperInput_playback_setTimeshift = note; batches = []");
    QVERIFY(console().waitFor("batches.length > 0"));
    QCOMPARE(text("batches[0]"), QString("3"));
    Data::clearSession();
}

VANTORDESK_PAGE_TEST(ScriptPipeTest)
#include "script_pipe_test.moc"
