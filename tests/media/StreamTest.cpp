#include "media/SoundServer.h"

#include "media/AudioManager.h"
#include "mirror/Fleet.h"
#include "network/TcpClient.h"
#include "protocol/Redirection.h"

#include <QAudioDeviceInfo>
#include <QJsonDocument>
#include <QNetworkDatagram>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QUdpSocket>

#include <cmath>
#include <cstring>

/// The microphone against a real sound server: what reaches the port of the audio server, and that
/// nothing stays open or silent when a broadcast ends or fails.
class StreamTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void inputsAreOfferedByTheNamesThatAreCaptured();
    void streamIsWhatTheServerTakes();
    void microphoneClosesAtTheEnd_data();
    void microphoneClosesAtTheEnd();
    void secondStartReplacesTheFirst();
    void failureClosesTheBroadcast_data();
    void failureClosesTheBroadcast();
    void testAndStreamLiveApart();
    void failedTestIsShown();

private:
    void start(int port, const char* type = "microphone");
    void startAndListen();
    QVector<QByteArray> receive(int count);

    SoundServer sounds;
    QTemporaryDir folder;
    std::unique_ptr<SessionFixture> session;
    std::unique_ptr<QSettings> config;
    std::unique_ptr<AudioManager> audio;
    std::unique_ptr<QUdpSocket> server;
};

namespace
{

constexpr int sampleRate = 44100;

/// The part of the energy that lies at one frequency, from 0 to 1. Looked at in pieces of a tenth
/// of a second, so that the clocks of source and stream needn't agree to the last digit.
double shareAt(double hertz, const QVector<qint16>& samples)
{
    constexpr double pi = 3.14159265358979323846;
    constexpr int piece = sampleRate / 10;
    const double step = 2 * pi * hertz / sampleRate;
    double tone = 0;
    double energy = 0;
    for (int begin = 0; begin + piece <= samples.size(); begin += piece) {
        double real = 0;
        double imaginary = 0;
        for (int i = begin; i < begin + piece; ++i) {
            real += samples[i] * std::cos(step * i);
            imaginary += samples[i] * std::sin(step * i);
            energy += double(samples[i]) * samples[i];
        }
        tone += 2 * (real * real + imaginary * imaginary) / piece;
    }
    return energy > 0 ? tone / energy : 0;
}

QVector<qint16> decode(const QString& path)
{
    const QByteArray raw = SoundServer::output(
        "ffmpeg", {"-v", "quiet", "-i", path, "-f", "s16le", "-acodec", "pcm_s16le", "-"});
    QVector<qint16> samples(raw.size() / 2);
    std::memcpy(samples.data(), raw.constData(), static_cast<std::size_t>(samples.size()) * 2);
    return samples;
}

QJsonObject probe(const QString& path)
{
    const QByteArray text = SoundServer::output(
        "ffprobe", {"-v", "quiet", "-of", "json", "-show_streams", "-show_format", path});
    return QJsonDocument::fromJson(text).object();
}

} // namespace

void StreamTest::initTestCase()
{
    const QString missing = sounds.start();
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(missing));
    }
}

void StreamTest::init()
{
    session = std::make_unique<SessionFixture>();
    config = std::make_unique<QSettings>(folder.filePath("config.ini"), QSettings::IniFormat);
    config->clear();
    config->setValue("audio/input", "mic.monitor");
    Data::settings = config.get();
    Data::ip = "127.0.0.1";
    audio = std::make_unique<AudioManager>();
    Data::audioManager = audio.get();
    audio->join();
    server = std::make_unique<QUdpSocket>();
    QVERIFY2(server->bind(QHostAddress(QHostAddress::LocalHost), 0),
             qPrintable(server->errorString()));
    Fleet::takeRequests();
}

void StreamTest::cleanup()
{
    audio.reset();
    Data::audioManager = nullptr;
    Data::settings = nullptr;
    redirectionHooks() = {};
    config.reset();
    session.reset();
    QCOMPARE(sounds.captureCount(), 0);
}

void StreamTest::start(int port, const char* type)
{
    audio->start({{"port", port}, {"requestReply", QJsonObject{{"type", type}}}});
}

void StreamTest::startAndListen()
{
    start(server->localPort());
    QVERIFY(!receive(1).isEmpty());
    QCOMPARE(sounds.captureCount(), 1);
}

QVector<QByteArray> StreamTest::receive(int count)
{
    QVector<QByteArray> datagrams;
    const auto isComplete = [&] {
        while (server->hasPendingDatagrams()) {
            datagrams.append(server->receiveDatagram().data());
        }
        return datagrams.size() >= count;
    };
    return QTest::qWaitFor(isComplete, 20000) ? datagrams : QVector<QByteArray>();
}

void StreamTest::inputsAreOfferedByTheNamesThatAreCaptured()
{
    QStringList names;
    for (const QAudioDeviceInfo& device : QAudioDeviceInfo::availableDevices(QAudio::AudioInput)) {
        names.append(device.deviceName());
    }
    QVERIFY2(names.contains("mic.monitor"), qPrintable(names.join(' ')));
    startAndListen();
}

void StreamTest::streamIsWhatTheServerTakes()
{
    start(server->localPort());
    const QVector<QByteArray> datagrams = receive(400);
    QVERIFY(!datagrams.isEmpty());
    QCOMPARE(session->page.take(), (QStringList{"modalAudioTranslationStarted();",
                                                "wrapperInput_playback_setMicrophoneVolume(50);"}));
    QFile file(folder.filePath("received.ts"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    for (const QByteArray& datagram : datagrams) {
        QCOMPARE(datagram.size(), 188);
        file.write(datagram);
    }
    file.close();
    const QJsonObject found = probe(file.fileName());
    const QJsonObject stream = found.value("streams").toArray().first().toObject();
    QCOMPARE(found.value("streams").toArray().size(), 1);
    QCOMPARE(found.value("format").toObject().value("format_name").toString(), QString("mpegts"));
    QCOMPARE(stream.value("codec_name").toString(), QString("mp2"));
    QCOMPARE(stream.value("sample_rate").toString(), QString::number(sampleRate));
    QCOMPARE(stream.value("channels").toInt(), 1);
    QCOMPARE(stream.value("bit_rate").toString(), QString("128000"));
    const QVector<qint16> heard = decode(file.fileName()).mid(sampleRate / 2);
    QVERIFY2(heard.size() > 2 * sampleRate, qPrintable(QString::number(heard.size())));
    const double share = shareAt(SoundServer::toneHertz, heard);
    QVERIFY2(share >= 0.95, qPrintable(QString::number(share)));
}

void StreamTest::microphoneClosesAtTheEnd_data()
{
    QTest::addColumn<int>("end");
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("reply") << 0 << QStringList{"modalAudioTranslationStoped();"};
    QTest::newRow("push") << 1
                          << QStringList{"modalAudioTranslationHide();",
                                         "modalAudioTranslationEndedByAnotherUser();"};
    QTest::newRow("session") << 2 << QStringList();
}

void StreamTest::microphoneClosesAtTheEnd()
{
    QFETCH(int, end);
    QFETCH(QStringList, calls);
    startAndListen();
    QVERIFY(audio->isPlayed());
    session->page.take();
    if (end == 0) {
        Fleet::answer(PlaybackCommand::StopRedirection, "{}", "{}");
    } else if (end == 1) {
        Fleet::push(R"({"request": "playback", "action": "stopRedirection"})");
    } else {
        audio->release();
    }
    QVERIFY(!audio->isPlayed());
    QCOMPARE(session->page.calls(), calls);
    QCOMPARE(sounds.captureCount(), 0);
    QCOMPARE(Fleet::takeRequests(), QStringList());
}

void StreamTest::secondStartReplacesTheFirst()
{
    startAndListen();
    server = std::make_unique<QUdpSocket>();
    QVERIFY2(server->bind(QHostAddress(QHostAddress::LocalHost), 0),
             qPrintable(server->errorString()));
    startAndListen();
    QVERIFY(audio->isPlayed());
}

void StreamTest::failureClosesTheBroadcast_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("port");
    QTest::newRow("no such input") << "no.such.input" << 9;
    QTest::newRow("no port") << "mic.monitor" << 0;
    QTest::newRow("port out of range") << "mic.monitor" << 70000;
    QTest::newRow("pulled out while it runs") << "spare.monitor" << -1;
}

void StreamTest::failureClosesTheBroadcast()
{
    QFETCH(QString, input);
    QFETCH(int, port);
    config->setValue("audio/input", input);
    if (port < 0) {
        startAndListen();
        sounds.pullOutSpare();
    } else {
        start(port);
    }
    QTRY_VERIFY_WITH_TIMEOUT(session->page.calls().contains("modalAudioTranslationStartError();"),
                             20000);
    QVERIFY(!audio->isPlayed());
    QCOMPARE(Fleet::takeRequests(), QStringList{"playback/stopRedirection"});
    session->page.take();
    Fleet::answer(PlaybackCommand::StopRedirection, "{}", "{}");
    QCOMPARE(session->page.calls(), QStringList());
}

void StreamTest::testAndStreamLiveApart()
{
    QString input = "mic.monitor";
    startAndListen();
    audio->startTest(input);
    QTRY_COMPARE_WITH_TIMEOUT(sounds.captureCount(), 2, 20000);
    audio->stopTest();
    QCOMPARE(sounds.captureCount(), 1);
    QVERIFY(audio->isPlayed());
    audio->startTest(input);
    QTRY_COMPARE_WITH_TIMEOUT(sounds.captureCount(), 2, 20000);
    audio->stop();
    QCOMPARE(sounds.captureCount(), 1);
    audio->release();
    QCOMPARE(sounds.captureCount(), 0);
}

void StreamTest::failedTestIsShown()
{
    QString input = "no.such.input";
    audio->startTest(input);
    QTRY_COMPARE_WITH_TIMEOUT(session->page.calls(), QStringList{"settingsAudioError();"}, 20000);
    QCOMPARE(Fleet::takeRequests(), QStringList());
}

QTEST_GUILESS_MAIN(StreamTest)
#include "StreamTest.moc"
