#include "Measure.h"

#include "app/Data.h"
#include "media/AudioManager.h"
#include "media/SoundServer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QNetworkDatagram>
#include <QProcess>
#include <QSettings>
#include <QTest>
#include <QUdpSocket>

#include <ctime>

/// The microphone's stream, from a sound server of the bench's own: how long until the first
/// datagram and the first that carries sound, how long a start and a stop hold the event loop, and
/// what processor time the stream takes.
namespace
{

constexpr int patienceMilliseconds = 10000;
/// The tables of the transport stream are mostly stuffing, sound isn't.
constexpr int frameBytes = 120;

struct Figures {
    std::vector<double> firstDatagram, firstSound, start, stop; ///< milliseconds
};

QUdpSocket& receiver()
{
    static QUdpSocket socket;
    return socket;
}

/// Waits for a datagram with `filled` bytes that are no stuffing; the elapsed milliseconds.
double waitForDatagram(const QElapsedTimer& timer, int filled)
{
    const auto hasCome = [filled] {
        bool found = false;
        while (receiver().hasPendingDatagrams()) {
            const QByteArray data = receiver().receiveDatagram().data();
            found = found || data.size() - data.count('\0') - data.count('\xff') >= filled;
        }
        return found;
    };
    if (!QTest::qWaitFor(hasCome, patienceMilliseconds)) {
        std::fputs("nothing was received\n", stderr);
        std::exit(1);
    }
    return static_cast<double>(timer.elapsed());
}

void measureOnce(AudioManager& audio, Figures& figures)
{
    QElapsedTimer timer;
    timer.start();
    figures.start.push_back(1000 * Measure::seconds([&audio] {
                                audio.start({{"port", receiver().localPort()}});
                            }));
    figures.firstDatagram.push_back(waitForDatagram(timer, 0));
    figures.firstSound.push_back(waitForDatagram(timer, frameBytes));
    figures.stop.push_back(1000 * Measure::seconds([&audio] { audio.stop(); }));
}

/// Processor seconds a second, while the stream runs.
double load(AudioManager& audio, int seconds)
{
    QElapsedTimer timer;
    audio.start({{"port", receiver().localPort()}});
    timer.start();
    waitForDatagram(timer, 0);
    const std::clock_t before = std::clock();
    timer.start();
    QTest::qWait(seconds * 1000);
    const double used = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    audio.stop();
    return used * 1000 / static_cast<double>(timer.elapsed());
}

void print(const char* what, const std::vector<double>& values)
{
    std::fprintf(stderr, "%-44s median %7.1f ms   worst %7.1f ms\n", what, Measure::median(values),
                 *std::max_element(values.begin(), values.end()));
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const Measure::Report report;
    SoundServer sounds;
    const QString missing = sounds.start();
    if (!missing.isEmpty()) {
        std::fprintf(stderr, "skipped: %s\n", qPrintable(missing));
        return 0;
    }
    // A sound card delivers steadily. The source without hardware does so only while somebody
    // listens with little latency: a first listener waits up to two seconds for its current block
    // to end.
    QProcess listener;
    listener.setStandardOutputFile(QProcess::nullDevice());
    listener.start("parec", {"--device=spare.monitor", "--latency-msec=10"});
    listener.waitForStarted();
    QSettings settings(report.path() + "/config.ini", QSettings::IniFormat);
    settings.setValue("audio/input", "spare.monitor");
    Data::settings = &settings;
    Data::ip = "127.0.0.1";
    AudioManager audio;
    if (!receiver().bind(QHostAddress(QHostAddress::LocalHost), 0)) {
        std::fprintf(stderr, "no port: %s\n", qPrintable(receiver().errorString()));
        return 1;
    }
    Figures unmeasured; // the first start, which waits for the listener's first block too
    measureOnce(audio, unmeasured);
    Figures figures;
    for (int i = Measure::option(argc, argv, "--starts", 10); i > 0; --i) {
        measureOnce(audio, figures);
    }
    print("start to the first datagram", figures.firstDatagram);
    print("start to the first datagram with sound", figures.firstSound);
    print("event loop held by a start", figures.start);
    print("event loop held by a stop", figures.stop);
    std::fprintf(stderr, "processor time while streaming: %.1f %%\n",
                 100 * load(audio, Measure::option(argc, argv, "--seconds", 10)));
    listener.kill();
    listener.waitForFinished();
    return 0;
}
