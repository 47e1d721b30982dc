#include "rights/Rights.h"

#include "view/WebView.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWebView>

/// The lock's timer, its settings, and what the three password dialogs send.
class LockTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void passwordIsSentAsADigest_data();
    void passwordIsSentAsADigest();
    void settingsAreShown_data();
    void settingsAreShown();
    void settingsAreStored_data();
    void settingsAreStored();
    void movementRestartsTheTimer_data();
    void movementRestartsTheTimer();
    void keyRestartsTheTimerWithTheNewestTime();
    void lockComesAgain();

private:
    QTimer& timer() { return *view->findChild<QTimer*>(); }
    void setTime(int milliseconds) { config->setValue("admin/block_time", milliseconds); }

    QTemporaryDir folder;
    std::unique_ptr<SessionFixture> session;
    std::unique_ptr<QSettings> config;
    std::unique_ptr<WebView> view;
};

void LockTest::init()
{
    session = std::make_unique<SessionFixture>();
    config = std::make_unique<QSettings>(folder.filePath("config.ini"), QSettings::IniFormat);
    config->clear();
    Data::settings = config.get();
    view = std::make_unique<WebView>();
    session->page.take();
    Fleet::takeRequests();
}

void LockTest::cleanup()
{
    view.reset();
    Data::settings = nullptr;
    config.reset();
    session.reset();
}

void LockTest::passwordIsSentAsADigest_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<int>("waiting");
    QTest::newRow("access_tryUnblock") << "login" << 0;
    QTest::newRow("access_tryUnblockAlarm") << "alarm" << 1;
    QTest::newRow("access_tryUnblockTranslation") << "alarm" << 2;
}

void LockTest::passwordIsSentAsADigest()
{
    QFETCH(QString, target);
    QFETCH(int, waiting);
    const QString name = QTest::currentDataTag();
    const QString slot = name.mid(name.indexOf('_') + 1).prepend("modal_");
    QVERIFY(QMetaObject::invokeMethod(view.get(), qPrintable(slot),
                                      Q_ARG(QString, QString::fromUtf8("пароль"))));
    QCOMPARE(Fleet::takeRequests(),
             QStringList{QString(R"(user/checkAccess {"password":"%1","target":"%2"})")
                             .arg("e242f36f4f95f12966da8fa2efd59992", target)});
    QCOMPARE(Data::waitForAlarm, waiting);
    QVERIFY(session->log.contains(name));
    QCOMPARE(session->page.calls(), QStringList());
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
        config->setValue("admin/block_time", stored);
    }
    for (const bool status : {true, false}) {
        Data::blockStatus = status;
        view->settings_block_init();
        QCOMPARE(session->page.take(), (QStringList{QString("loadBlockTime(%1);").arg(minutes),
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
    view->settings_block_save(true, minutes);
    QCOMPARE(config->value("admin/block_time").toInt(), milliseconds);
    QVERIFY(config->value("admin/block_enable").toBool());
    QVERIFY(Data::blockStatus);
    QVERIFY(timer().isActive());
    QCOMPARE(timer().interval(), milliseconds);
    QCOMPARE(session->page.calls(), calls);
    view->settings_block_save(false, 5);
    QVERIFY(!config->value("admin/block_enable", true).toBool());
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
    QTest::mouseClick(view->getView(), Qt::LeftButton); // alone it doesn't count
    QCOMPARE(timer().isActive(), running);
    QTest::mouseMove(view->getView(), {20, 20});
    QMouseEvent move(QEvent::MouseMove, {20, 20}, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view->getView(), &move);
    QCOMPARE(timer().isActive(), enabled);
    if (enabled) {
        QCOMPARE(timer().interval(), 90000);
    }
}

void LockTest::keyRestartsTheTimerWithTheNewestTime()
{
    Data::blockStatus = true;
    setTime(90000);
    view->resetBlockTimer();
    setTime(70000);
    QTest::keyClick(view->getView(), Qt::Key_A);
    QCOMPARE(timer().interval(), 70000);
}

void LockTest::lockComesAgain()
{
    Data::blockStatus = true;
    setTime(5);
    view->resetBlockTimer();
    QTRY_VERIFY(session->page.calls().count("block();") >= 2);
}

QTEST_MAIN(LockTest)
#include "LockTest.moc"
