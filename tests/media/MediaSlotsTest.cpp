#include "mirror/ViewSession.h"
#include "media/SoundServer.h"

#include "log/Log.h"
#include "media/AudioManager.h"

#include <QTest>

#include <functional>

/// The slots of the broadcast and of the sound settings.
class MediaSlotsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void startIsAskedFor_data();
    void startIsAskedFor();
    void stopIsAskedFor();
    void volumesAreShown_data();
    void volumesAreShown();
    void settingsAreStored();
    void slotsLogBeginAndEnd_data();
    void slotsLogBeginAndEnd();
    void inputsAreOfferedAndTested();

private:
    SoundServer sounds;
    QString missingSound;
    std::unique_ptr<ViewSession> rig;
};

using Slot = std::function<void(WebView&)>;
Q_DECLARE_METATYPE(Slot)

void MediaSlotsTest::initTestCase()
{
    missingSound = sounds.start(); // a process looks for its sound server once
}

void MediaSlotsTest::init()
{
    rig = std::make_unique<ViewSession>();
}

void MediaSlotsTest::cleanup()
{
    rig.reset();
}

void MediaSlotsTest::startIsAskedFor_data()
{
    QTest::addColumn<QString>("devices");
    QTest::addColumn<QVariant>("volume");
    QTest::addColumn<QString>("sent");
    QTest::newRow("two units") << "3,5" << QVariant(70) << R"([3,5],%1"volume":70)";
    QTest::newRow("no numbers") << "3,x,,7" << QVariant(70.0) << R"([3,7],%1"volume":70)";
    QTest::newRow("no volume stored") << "3" << QVariant() << R"([3],%1"volume":50)";
    QTest::newRow("nobody") << QString() << QVariant(70) << QString();
}

void MediaSlotsTest::startIsAskedFor()
{
    QFETCH(QString, devices);
    QFETCH(QVariant, volume);
    QFETCH(QString, sent);
    if (volume.isValid()) {
        rig->config.setValue("volume/microphone", volume);
    }
    rig->config.sync();
    for (const QString type : {"microphone", "alarm"}) {
        rig->view.playback_startRedirection(devices, type, "overlap");
        const QString middle = QString(R"("strategy":"overlap","type":"%1",)").arg(type);
        const QString request = QString(R"(playback/startRedirection {"devices":%1,"zones":[]})");
        QCOMPARE(Fleet::takeRequests().join(' '),
                 sent.isEmpty() ? sent : request.arg(sent.arg(middle)));
    }
    QCOMPARE(rig->page.calls(), QStringList());
}

void MediaSlotsTest::stopIsAskedFor()
{
    rig->view.playback_stopRedirection();
    QCOMPARE(Fleet::takeRequests(), QStringList{"playback/stopRedirection"});
}

void MediaSlotsTest::volumesAreShown_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<QString>("shown");
    QTest::newRow("stored") << QVariant(35) << "35";
    QTest::newRow("first start") << QVariant(50.0) << "50";
    QTest::newRow("nothing stored") << QVariant() << "50";
}

void MediaSlotsTest::volumesAreShown()
{
    QFETCH(QVariant, stored);
    QFETCH(QString, shown);
    if (stored.isValid()) {
        rig->config.setValue("volume/warning", stored);
        rig->config.setValue("volume/microphone", stored);
    }
    rig->view.settings_volume_init();
    QCOMPARE(rig->page.calls(), (QStringList{"loadVolumeWarning(" + shown + ");",
                                             "loadVolumeMicrophone(" + shown + ");"}));
}

void MediaSlotsTest::settingsAreStored()
{
    rig->view.settings_volume_save(40, 60);
    rig->view.settings_media_save(QString::fromUtf8("Микрофон \"1\""));
    QCOMPARE(rig->config.value("volume/microphone"), QVariant(40));
    QCOMPARE(rig->config.value("volume/warning"), QVariant(60));
    QCOMPARE(rig->config.value("audio/input").toString(), QString::fromUtf8("Микрофон \"1\""));
    QCOMPARE(Fleet::takeRequests(), QStringList());
}

void MediaSlotsTest::slotsLogBeginAndEnd_data()
{
    QTest::addColumn<Slot>("run");
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("begin");
    QTest::addColumn<QString>("end");
    const auto row = [](const Slot& run, int level, const char* begin, const char* end) {
        QTest::newRow(begin) << run << level << QString(begin) << QString(end);
    };
    const int settings = LogLevel::ClientSettings;
    row([](WebView& v) { v.settings_media_save("a"); }, settings, "settings_media_save_input a",
        "settings_media_saveEnd");
    row([](WebView& v) { v.settings_volume_save(4, 6); }, settings, "settings_volume_save 4 6",
        "settings_volume_saveEnd");
    row([](WebView& v) { v.settings_volume_init(); }, settings, "settings_volume_init",
        "settings_volume_initEnd");
    row([](WebView& v) { v.settings_block_init(); }, settings, "settings_block_init",
        "settings_block_initEnd");
    row([](WebView& v) { v.settings_block_save(false, 5); }, settings, "settings_block_save: 5",
        "settings_block_saveEnd");
    row([](WebView& v) { v.admin_selectRole(7); }, LogLevel::RoleSettings, "admin_selectRole: 7",
        "admin_selectRoleEnd");
    row([](WebView& v) { v.playback_startRedirection("1", "alarm"); }, LogLevel::AlarmBroadcasting,
        "playback_startRedirectionType: alarm", "playback_startRedirectionEnd");
    row([](WebView& v) { v.modal_tryUnblock({}); }, LogLevel::Always, "access_tryUnblock",
        "access_tryUnblockEnd");
}

void MediaSlotsTest::slotsLogBeginAndEnd()
{
    QFETCH(Slot, run);
    QFETCH(int, level);
    QFETCH(QString, begin);
    QFETCH(QString, end);
    LogSettings switches;
    Log::logger().setSettings(&switches);
    const LogRecorder off;
    run(rig->view);
    QCOMPARE(off.contains(begin), level == LogLevel::Always);
    if (level != LogLevel::Always) {
        switches.set(level, true);
    }
    const LogRecorder on;
    run(rig->view);
    Log::logger().setSettings(nullptr);
    const QStringList lines = on.lines();
    QVERIFY2(lines.contains(begin) && lines.indexOf(end) > lines.indexOf(begin),
             qPrintable(lines.join('\n')));
}

void MediaSlotsTest::inputsAreOfferedAndTested()
{
    if (!missingSound.isEmpty()) {
        QSKIP(qPrintable(missingSound));
    }
    rig->config.setValue("audio/input", "gone");
    rig->view.settings_media_init();
    const QStringList calls = rig->page.take();
    const int offered = calls.indexOf("wrapperInput_settings_addMediaInput(\"mic.monitor\");");
    const int selected = calls.indexOf("wrapperInput_settings_mediaInputSelect(\"gone\");");
    const int output = calls.indexOf("wrapperInput_settings_addMediaOutput(\"mic\");");
    const int last = calls.indexOf("wrapperInput_settings_mediaOutputSelect(\"\");");
    QVERIFY2(offered >= 0 && offered < selected && selected < output && output < last &&
                 last == calls.size() - 1,
             qPrintable(calls.join('\n')));
    rig->view.settings_media_start("mic.monitor");
    QTRY_COMPARE_WITH_TIMEOUT(sounds.captureCount(), 1, 20000);
    rig->view.settings_media_stop();
    QCOMPARE(sounds.captureCount(), 0);
    Data::audioManager = nullptr;
}

QTEST_MAIN(MediaSlotsTest)
#include "MediaSlotsTest.moc"
