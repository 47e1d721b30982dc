#include "media/CaptureOptions.h"
#include "media/SoundInputs.h"

#include <QTest>

/// What each system's capture is told. The order of the words counts where the library reads them
/// in turn.
class CaptureOptionsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void directShow_data();
    void directShow();
    void linuxTakesTheNamedInput_data();
    void linuxTakesTheNamedInput();
    void addressOfSixGroupsIsBracketed();
    void listHoldsMicrophonesAlone_data();
    void listHoldsMicrophonesAlone();
};

namespace
{

QByteArray joined(const QVector<QByteArray>& words)
{
    QByteArray text;
    for (const QByteArray& word : words) {
        text += word + ' ';
    }
    return text.trimmed();
}

} // namespace

Q_DECLARE_METATYPE(QVector<SoundInput>)

void CaptureOptionsTest::directShow_data()
{
    QTest::addColumn<bool>("isTest");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QByteArray>("sixth");
    QTest::addColumn<QByteArray>("caching");
    const QByteArray stream = "--sout=#transcode{acodec=mpga,ab=128,channels=1,samplerate=44100}:"
                              "std{access=udp,mux=ts,dst=10.0.0.7:5004}";
    QTest::newRow("stream") << false << QString::fromUtf8("Микрофон") << stream
                            << QByteArray(":dshow-caching=0");
    QTest::newRow("stream, no input chosen")
        << false << QString() << stream << QByteArray(":dshow-caching=0");
    QTest::newRow("test") << true << "Line" << QByteArray("--aout=directx")
                          << QByteArray(":dshow-caching=50");
}

void CaptureOptionsTest::directShow()
{
    QFETCH(bool, isTest);
    QFETCH(QString, input);
    QFETCH(QByteArray, sixth);
    QFETCH(QByteArray, caching);
    const CaptureOptions options = isTest ? Capture::directShowTest(input)
                                          : Capture::directShowStream(input, "10.0.0.7", 5004);
    QCOMPARE(joined(options.arguments),
             "--intf=dummy --ignore-config --no-file-logging --quiet --novideo " + sixth +
                 " --sout-udp-caching=0 --sout-mux-caching=10 --ttl=1 --sout-keep --mtu=230");
    QCOMPARE(options.location, QByteArray("dshow://"));
    QCOMPARE(joined(options.mediaOptions),
             ":dshow-vdev=none :dshow-adev=" + input.toUtf8() +
                 " :dshow-audio-samplerate=44100 :dshow-audio-bitspersample=16 "
                 ":dshow-audio-channels=1 " +
                 caching);
}

void CaptureOptionsTest::linuxTakesTheNamedInput_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<bool>("isAlsa");
    QTest::addColumn<QByteArray>("location");
    QTest::newRow("sound server") << "mic.monitor" << false << QByteArray("pulse://mic.monitor");
    QTest::newRow("its default") << QString() << false << QByteArray("pulse://");
    QTest::newRow("card") << "sysdefault:CARD=PCH" << true
                          << QByteArray("alsa://sysdefault:CARD=PCH");
}

void CaptureOptionsTest::linuxTakesTheNamedInput()
{
    QFETCH(QString, input);
    QFETCH(bool, isAlsa);
    QFETCH(QByteArray, location);
    const Capture::Backend backend = isAlsa ? Capture::Backend::Alsa : Capture::Backend::PulseAudio;
    QCOMPARE(Capture::linuxStream(input, backend, "10.0.0.7", 5004).location, location);
    QCOMPARE(Capture::linuxTest(input, backend).location, location);
}

void CaptureOptionsTest::addressOfSixGroupsIsBracketed()
{
    QVERIFY(joined(Capture::directShowStream({}, "fe80::1", 5004).arguments)
                .contains("dst=[fe80::1]:5004}"));
}

void CaptureOptionsTest::listHoldsMicrophonesAlone_data()
{
    QTest::addColumn<QVector<SoundInput>>("inputs");
    QTest::addColumn<QStringList>("names");
    const SoundInput headset{"headset", "pulseaudio"};
    const SoundInput table{"table", "pulseaudio"};
    const SoundInput monitor{"speaker.monitor", "pulseaudio"};
    const SoundInput card{"hw:CARD=1", "alsa"};
    QTest::newRow("a sound server") << QVector<SoundInput>{card, monitor, headset, table, headset}
                                    << QStringList{"headset", "table"};
    QTest::newRow("monitors alone")
        << QVector<SoundInput>{card, monitor} << QStringList{"speaker.monitor"};
    QTest::newRow("no sound server") << QVector<SoundInput>{card, {"default", "alsa"}, {"", "alsa"}}
                                     << QStringList{"hw:CARD=1", "default"};
    QTest::newRow("none") << QVector<SoundInput>() << QStringList();
}

void CaptureOptionsTest::listHoldsMicrophonesAlone()
{
    QFETCH(QVector<SoundInput>, inputs);
    QTEST(microphonesAmong(inputs), "names");
}

QTEST_APPLESS_MAIN(CaptureOptionsTest)
#include "CaptureOptionsTest.moc"
