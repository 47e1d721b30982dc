#include "simulator/Scenario.h"
#include "support/Rules.h"

#include <QtTest>

/// The rules of the demo server as a console meets them; each file below rules/ is a list of
/// scenarios, a title behind "=" and its lines.
class TestRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scenarios_data();
    void scenarios();
};

void TestRules::scenarios_data()
{
    Rules::addRows(QFINDTESTDATA("rules"));
}

void TestRules::scenarios()
{
    QFETCH(QStringList, lines);
    QVERIFY(!lines.isEmpty());
    const QString problem = Scenario().play(lines);
    QVERIFY2(problem.isEmpty(), qPrintable('\n' + problem));
}

QTEST_GUILESS_MAIN(TestRules)
#include "tst_rules.moc"
