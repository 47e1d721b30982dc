#include "mirror/RulePlayer.h"
#include "mirror/ViewSession.h"
#include "support/Rules.h"

#include <QTest>

/// What the slots replay and send: the scenarios of the files below slots/.
class SlotRulesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void scenarios_data();
    void scenarios();
};

namespace
{

class Window : public Rig
{
public:
    PageRecorder& page() override { return session.page; }
    LogRecorder& log() override { return session.log; }
    int endCount() const override { return 0; }
    void runSlot(const QString& call) override { session.runSlot(call); }

private:
    ViewSession session;
};

} // namespace

void SlotRulesTest::scenarios_data()
{
    Rules::addRows(QFINDTESTDATA("slots"));
}

void SlotRulesTest::scenarios()
{
    QFETCH(QStringList, lines);
    const QString problem = RulePlayer([] { return std::make_unique<Window>(); }).play(lines);
    report(problem);
    QVERIFY(problem.isEmpty());
}

QTEST_MAIN(SlotRulesTest)
#include "SlotRulesTest.moc"
