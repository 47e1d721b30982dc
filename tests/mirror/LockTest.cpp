#include "mirror/ViewSession.h"
#include "view/PasswordDigest.h"

#include <QTest>
#include <QTimer>
#include <QWebView>

/// The lock's timer and its settings.
class LockTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void passwordIsOverwritten();
    void settingsAreShown_data();
    void settingsAreShown();
    void settingsAreStored_data();
    void settingsAreStored();
    void movementRestartsTheTimer_data();
    void movementRestartsTheTimer();
    void keyRestartsTheTimerWithTheNewestTime();
    void lockComesAgain();

private:
    QTimer& timer() { return *rig->program.lock().findChild<QTimer*>(); }
    void setTime(int milliseconds) { rig->config.setValue("admin/block_time", milliseconds); }

    std::unique_ptr<ViewSession> rig;
};

void LockTest::init()
{
    rig = std::make_unique<ViewSession>();
}

void LockTest::cleanup()
{
    rig.reset();
}

void LockTest::passwordIsOverwritten()
{
    QString typed = QStringLiteral("пароль") + QString();
    typed.detach();
    QCOMPARE(passwordDigest(typed), QString("e242f36f4f95f12966da8fa2efd59992"));
    QCOMPARE(typed, QString(6, QChar()));
    const QString constant = QStringLiteral("пароль");
    QCOMPARE(passwordDigest(constant), QString("e242f36f4f95f12966da8fa2efd59992"));
    QCOMPARE(passwordDigest(constant), QString("e242f36f4f95f12966da8fa2efd59992"));
}

void LockTest::settingsAreShown_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("minutes");
    QTest::newRow("stored") << QVariant(180000) << 3;
    QTest::newRow("part of a minute") << QVariant(119999) << 1;
    QTest::newRow("nothing stored") << QVariant() << 10;
    QTest::newRow("no number") << QVariant("soon") << 10;
    QTest::newRow("below nothing") << QVariant(-60000) << 10;
}

void LockTest::settingsAreShown()
{
    QFETCH(QVariant, stored);
    QFETCH(int, minutes);
    if (stored.isValid()) {
        rig->config.setValue("admin/block_time", stored);
    }
    for (const bool status : {true, false}) {
        Data::blockStatus = status;
        rig->view.settings_block_init();
        QCOMPARE(rig->page.take(), (QStringList{QString("loadBlockTime(%1);").arg(minutes),
                                                QString("loadBlockStatus(%1);").arg(status)}));
    }
}

void LockTest::settingsAreStored_data()
{
    QTest::addColumn<int>("minutes");
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("minutes") << 5 << 300000 << QStringList();
    QTest::newRow("none") << 0 << 60000 << QStringList{"loadBlockTime(2);"};
    QTest::newRow("below none") << -3 << 60000 << QStringList{"loadBlockTime(2);"};
    QTest::newRow("more than fits") << 2000000000 << 2147460000 << QStringList();
}

void LockTest::settingsAreStored()
{
    QFETCH(int, minutes);
    QFETCH(int, milliseconds);
    QFETCH(QStringList, calls);
    setTime(120000);
    rig->view.settings_block_save(true, minutes);
    QCOMPARE(rig->config.value("admin/block_time").toInt(), milliseconds);
    QVERIFY(rig->config.value("admin/block_enable").toBool());
    QVERIFY(Data::blockStatus);
    QVERIFY(timer().isActive());
    QCOMPARE(timer().interval(), milliseconds);
    QCOMPARE(rig->page.calls(), calls);
    rig->view.settings_block_save(false, 5);
    QVERIFY(!rig->config.value("admin/block_enable", true).toBool());
    QVERIFY(!Data::blockStatus);
    QVERIFY(!timer().isActive());
    QCOMPARE(Fleet::takeRequests(), QStringList()); // they stay on this console
}

void LockTest::movementRestartsTheTimer_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("running");
    for (const bool enabled : {false, true}) {
        for (const bool running : {false, true}) {
            QTest::addRow("%s, %s", enabled ? "on" : "off", running ? "running" : "resting")
                << enabled << running;
        }
    }
}

void LockTest::movementRestartsTheTimer()
{
    QFETCH(bool, enabled);
    QFETCH(bool, running);
    setTime(90000);
    if (running) {
        timer().start(30000);
    }
    Data::blockStatus = enabled;
    QTest::mouseClick(rig->view.getView(), Qt::LeftButton); // alone it doesn't count
    QCOMPARE(timer().isActive(), running);
    QTest::mouseMove(rig->view.getView(), {20, 20});
    QMouseEvent move(QEvent::MouseMove, {20, 20}, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(rig->view.getView(), &move);
    QCOMPARE(timer().isActive(), enabled);
    if (enabled) {
        QCOMPARE(timer().interval(), 90000);
    }
}

void LockTest::keyRestartsTheTimerWithTheNewestTime()
{
    Data::blockStatus = true;
    setTime(90000);
    rig->view.resetBlockTimer();
    setTime(70000);
    QTest::keyClick(rig->view.getView(), Qt::Key_A);
    QCOMPARE(timer().interval(), 70000);
}

void LockTest::lockComesAgain()
{
    Data::blockStatus = true;
    setTime(5);
    rig->view.resetBlockTimer();
    QTRY_VERIFY(rig->page.calls().count("block();") >= 2);
}

QTEST_MAIN(LockTest)
#include "LockTest.moc"
