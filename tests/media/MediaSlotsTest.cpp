#include "media/SoundServer.h"
#include "mirror/ViewSession.h"

#include "log/Log.h"
#include "media/AudioManager.h"

#include <QTest>

/// The slots of the broadcast and of the sound settings.
class MediaSlotsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void requests_data();
    void requests();
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

void MediaSlotsTest::requests_data()
{
    QTest::addColumn<QVariant>("volume");
    QTest::addColumn<QString>("sent");
    const auto row = [](const char* call, const QVariant& volume, const char* fields) {
        QTest::newRow(call) << volume << QString(fields);
    };
    row("playback_startRedirection('3,5', 'alarm', 'overlap')", 70,
        R"(playback/startRedirection {"devices":[3,5],"strategy":"overlap","type":"alarm","volume":70,"zones":[]})");
    row("playback_startRedirection('3,x,,7', 'microphone', 'none')", 70.0,
        R"(playback/startRedirection {"devices":[3,7],"strategy":"none","type":"microphone","volume":70,"zones":[]})");
    row("playback_startRedirection('3', 'alarm', 'none')", QVariant(),
        R"(playback/startRedirection {"devices":[3],"strategy":"none","type":"alarm","volume":50,"zones":[]})");
    row("playback_startRedirection('', 'alarm', 'none')", 70, ""); // it would mean all units
    row("playback_stopRedirection()", QVariant(), "playback/stopRedirection");
}

void MediaSlotsTest::requests()
{
    QFETCH(QVariant, volume);
    if (volume.isValid()) {
        rig->config.setValue("volume/microphone", volume);
    }
    rig->runSlot(QTest::currentDataTag());
    QTEST(Fleet::takeRequests().join(' '), "sent");
    QCOMPARE(rig->page.calls(), QStringList());
}

void MediaSlotsTest::volumesAreShown()
{
    for (const QVariant& stored : {QVariant(), QVariant(50.0), QVariant(35)}) {
        for (const char* const key : {"volume/warning", "volume/microphone"}) {
            rig->config.remove(key);
            if (stored.isValid()) {
                rig->config.setValue(key, stored);
            }
        }
        rig->view.settings_volume_init();
        const QString shown = QString::number(stored.isValid() ? stored.toInt() : 50);
        QCOMPARE(rig->page.take(), (QStringList{"loadVolumeWarning(" + shown + ");",
                                                "loadVolumeMicrophone(" + shown + ");"}));
    }
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
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("begin");
    QTest::addColumn<QString>("end");
    const auto row = [](const char* call, int level, const char* begin, const char* end) {
        QTest::newRow(call) << level << QString(begin) << QString(end);
    };
    const int settings = LogLevel::ClientSettings;
    row("settings_media_save('a')", settings, "settings_media_save_input a",
        "settings_media_saveEnd");
    row("settings_volume_save(4, 6)", settings, "settings_volume_save 4 6",
        "settings_volume_saveEnd");
    row("settings_volume_init()", settings, "settings_volume_init", "settings_volume_initEnd");
    row("settings_block_init()", settings, "settings_block_init", "settings_block_initEnd");
    row("settings_block_save(false, 5)", settings, "settings_block_save: 5",
        "settings_block_saveEnd");
    row("admin_selectRole(7)", LogLevel::RoleSettings, "admin_selectRole: 7",
        "admin_selectRoleEnd");
    row("playback_startRedirection('1', 'alarm')", LogLevel::AlarmBroadcasting,
        "playback_startRedirectionType: alarm", "playback_startRedirectionEnd");
    row("modal_tryUnblock('')", LogLevel::Always, "access_tryUnblock", "access_tryUnblockEnd");
}

void MediaSlotsTest::slotsLogBeginAndEnd()
{
    QFETCH(int, level);
    QFETCH(QString, begin);
    QFETCH(QString, end);
    LogSettings switches;
    Log::logger().setSettings(&switches);
    const LogRecorder off;
    rig->runSlot(QTest::currentDataTag());
    QCOMPARE(off.contains(begin), level == LogLevel::Always);
    if (level != LogLevel::Always) {
        switches.set(level, true);
    }
    const LogRecorder on;
    rig->runSlot(QTest::currentDataTag());
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
