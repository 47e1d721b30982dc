#include "fleet/ViewSession.h"
#include "media/SoundServer.h"

#include "log/LogSettings.h"
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
    void startIsAskedFor_data();
    void startIsAskedFor();
    void stopIsAskedFor();
    void volumesAreShown_data();
    void volumesAreShown();
    void settingsAreStored();
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

void MediaSlotsTest::startIsAskedFor_data()
{
    QTest::addColumn<QString>("devices");
    QTest::addColumn<QVariant>("volume");
    QTest::addColumn<QString>("sent");
    QTest::newRow("two units") << "3,5" << QVariant(70) << R"([3,5],%1"volume":70)";
    QTest::newRow("no numbers") << "3,x,,7" << QVariant(70.0) << R"([3,7],%1"volume":70)";
    QTest::newRow("no volume stored") << "3" << QVariant() << R"([3],%1"volume":50)";
    QTest::newRow("nobody") << QString() << QVariant(70) << R"([],%1"volume":70)";
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
        QCOMPARE(Fleet::takeRequests(),
                 QStringList{QString(R"(playback/startRedirection {"devices":%1,"zones":[]})")
                                 .arg(sent.arg(middle))});
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
