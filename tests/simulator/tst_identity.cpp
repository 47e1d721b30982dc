#include "simulator/Identity.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using simulator::loadOrMakeIdentity;

class TestIdentity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isKeptAndPrivate();
    void isMadeAnewWhenBroken_data();
    void isMadeAnewWhenBroken();
    void tellsWhenItCannotBeMade_data();
    void tellsWhenItCannotBeMade();
};

namespace
{

QString fileIn(const QTemporaryDir& folder)
{
    return folder.filePath("identity.pem");
}

} // namespace

void TestIdentity::isKeptAndPrivate()
{
    const QTemporaryDir folder;
    const QString deeper = folder.filePath("made/by/itself");
    QString problem;
    const auto first = loadOrMakeIdentity(deeper, &problem);
    QVERIFY2(first, qPrintable(problem));
    QCOMPARE(first->key.length(), 2048);
    const auto second = loadOrMakeIdentity(deeper, &problem);
    QVERIFY(second);
    QCOMPARE(second->certificate, first->certificate);
    const auto others = QFileDevice::ReadGroup | QFileDevice::ReadOther;
    QVERIFY(!(QFileInfo(deeper + "/identity.pem").permissions() & others));
}

void TestIdentity::isMadeAnewWhenBroken_data()
{
    QTest::addColumn<int>("keptPercent");
    QTest::newRow("empty") << 0;
    QTest::newRow("certificate cut") << 20;
    QTest::newRow("key cut") << 80;
}

void TestIdentity::isMadeAnewWhenBroken()
{
    QFETCH(int, keptPercent);
    const QTemporaryDir folder;
    QString problem;
    const auto first = loadOrMakeIdentity(folder.path(), &problem);
    QVERIFY(first);
    QFile file(fileIn(folder));
    QVERIFY(file.resize(file.size() * keptPercent / 100));

    const auto second = loadOrMakeIdentity(folder.path(), &problem);
    QVERIFY2(second, qPrintable(problem));
    QVERIFY(!second->key.isNull());
    QVERIFY(second->certificate != first->certificate);
}

void TestIdentity::tellsWhenItCannotBeMade_data()
{
    QTest::addColumn<bool>("toolThere");
    QTest::addColumn<QString>("said");
    QTest::newRow("no tool") << false << "openssl";
    QTest::newRow("no folder") << true << "identity.pem";
}

void TestIdentity::tellsWhenItCannotBeMade()
{
    QFETCH(bool, toolThere);
    QFETCH(QString, said);
    const QTemporaryDir folder;
    QFile file(folder.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray path = qgetenv("PATH");
    if (!toolThere) {
        qputenv("PATH", "/nowhere");
    }
    QString problem;
    const auto identity = loadOrMakeIdentity(file.fileName(), &problem);
    qputenv("PATH", path);
    QVERIFY(!identity);
    QVERIFY2(problem.contains(said), qPrintable(problem));
}

QTEST_GUILESS_MAIN(TestIdentity)
#include "tst_identity.moc"
