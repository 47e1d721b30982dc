#include "simulator/Scenario.h"

#include <QDir>
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
    QTest::addColumn<QStringList>("lines");
    const QDir folder(QFINDTESTDATA("rules"));
    for (const QString& name : folder.entryList({"*.txt"})) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = '\n' + QString::fromUtf8(file.readAll());
        for (const QString& scenario : text.split("\n= ").mid(1)) {
            QStringList lines;
            for (const QString& line : scenario.split('\n').mid(1)) {
                const QString bare = line.trimmed();
                if (!bare.isEmpty() && !bare.startsWith('#')) {
                    lines.append(bare);
                }
            }
            QTest::addRow("%s: %s", qPrintable(name.section('.', 0, 0)),
                          qPrintable(scenario.section('\n', 0, 0)))
                << lines;
        }
    }
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
