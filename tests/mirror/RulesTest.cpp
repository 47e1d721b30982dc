#include "support/Rules.h"
#include "log/Log.h"
#include "mirror/RulePlayer.h"
#include "page/ScriptCall.h"
#include "protocol/SessionHooks.h"
#include "support/SessionFixture.h"

#include <QTest>

/// What becomes of the replies and pushes of the server: the scenarios of the files below rules/,
/// and the same with every message spoilt in every way.
class RulesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void scenarios_data();
    void scenarios();
    void spoiltMessages_data();
    void spoiltMessages();
};

namespace
{

/// The console below its window. What a reply causes above it stands among the calls of the page.
class Core : public Rig
{
public:
    Core()
    {
        for (int level = LogLevel::Connect; level < LogLevel::End; ++level) {
            switches.set(level, true);
        }
        Log::logger().setSettings(&switches);
        sessionHooks().loginSucceeded = [] { Page::call("hook_loginSucceeded"); };
        sessionHooks().loginRefused = [] { Page::call("hook_loginRefused"); };
        sessionHooks().lockOpened = [] { Page::call("hook_lockOpened"); };
        sessionHooks().closeProgram = [] { Page::call("hook_closeProgram"); };
    }

    ~Core() override { Log::logger().setSettings(nullptr); }

    PageRecorder& page() override { return session.page; }
    LogRecorder& log() override { return session.log; }
    int endCount() const override { return session.endCount(); }
    void runSlot(const QString& call) override { qFatal("No slots here: %s", qPrintable(call)); }

private:
    LogSettings switches;
    SessionFixture session;
};

RulePlayer player()
{
    return RulePlayer([] { return std::make_unique<Core>(); });
}

} // namespace

void RulesTest::scenarios_data()
{
    Rules::addRows(QFINDTESTDATA("rules"));
}

void RulesTest::scenarios()
{
    QFETCH(QStringList, lines);
    const QString problem = player().play(lines);
    report(problem);
    QVERIFY(problem.isEmpty());
}

void RulesTest::spoiltMessages_data()
{
    Rules::addRows(QFINDTESTDATA("rules"));
}

void RulesTest::spoiltMessages()
{
    QFETCH(QStringList, lines);
    const QString problem = player().spoil(lines);
    report(problem);
    QVERIFY(problem.isEmpty());
}

QTEST_GUILESS_MAIN(RulesTest)
#include "RulesTest.moc"
