#include "media/CaptureOptions.h"

#include <QAudioDeviceInfo>

#include <algorithm>

namespace Capture
{

namespace
{

/// Longer than one fragment of the sound server: with less, the first blocks are lost.
constexpr int linuxCachingMilliseconds = 20;
constexpr int testCachingMilliseconds = 50;
/// The library's own 200 ms of shaping and 400 ms of lead cost 0.4 s from start to datagram; with
/// these it is 0.25 s. The tone broke now and then with 60 ms of shaping, and always with 30.
const QByteArray promptMux = "{shaping=100,dts-delay=20}";

/// `sixth` is what the test and the stream differ in.
QVector<QByteArray> instanceArguments(const QByteArray& sixth)
{
    return {
        "--intf=dummy", "--ignore-config",      "--no-file-logging",     "--quiet", "--novideo",
        sixth,          "--sout-udp-caching=0", "--sout-mux-caching=10", "--ttl=1", "--sout-keep",
        "--mtu=230"};
}

/// `encoder` is empty for the library's own choice, and `muxOptions` for its own delays.
QByteArray streamOutput(const QByteArray& encoder, const QByteArray& muxOptions,
                        const QString& address, int port)
{
    const QString host = address.contains(QLatin1Char(':'))
                             ? QLatin1Char('[') + address + QLatin1Char(']')
                             : address;
    return "sout=#transcode{acodec=mpga" + encoder +
           ",ab=128,channels=1,samplerate=44100}:std{access=udp,mux=ts" + muxOptions +
           ",dst=" + host.toUtf8() + ':' + QByteArray::number(port) + '}';
}

QVector<QByteArray> directShowOptions(const QString& input, int caching)
{
    return {":dshow-vdev=none",
            ":dshow-adev=" + input.toUtf8(),
            ":dshow-audio-samplerate=44100",
            ":dshow-audio-bitspersample=16",
            ":dshow-audio-channels=1",
            ":dshow-caching=" + QByteArray::number(caching)};
}

QByteArray linuxLocation(const QString& input, Backend backend)
{
    return (backend == Backend::Alsa ? "alsa://" : "pulse://") + input.toUtf8();
}

QByteArray liveCaching(int milliseconds)
{
    return ":live-caching=" + QByteArray::number(milliseconds);
}

/// The input of that name; a null one where there is none.
QAudioDeviceInfo inputNamed(const QString& input)
{
    const auto devices = QAudioDeviceInfo::availableDevices(QAudio::AudioInput);
    const auto found =
        std::find_if(devices.begin(), devices.end(), [&input](const QAudioDeviceInfo& device) {
            return device.deviceName() == input;
        });
    return found == devices.end() ? QAudioDeviceInfo() : *found;
}

#ifndef Q_OS_WIN
/// The list of inputs joins those of both sound systems; each knows where it comes from.
Backend backendOf(const QString& input)
{
    return inputNamed(input).realm() == QLatin1String("alsa") ? Backend::Alsa : Backend::PulseAudio;
}
#endif

} // namespace

CaptureOptions directShowStream(const QString& input, const QString& address, int port)
{
    return {instanceArguments("--" + streamOutput({}, {}, address, port)), "dshow://",
            directShowOptions(input, 0)};
}

CaptureOptions directShowTest(const QString& input)
{
    return {instanceArguments("--aout=directx"), "dshow://",
            directShowOptions(input, testCachingMilliseconds)};
}

// The stream output works as an option of the source only, and the encoder that is taken without
// naming one turns a single channel into noise. The instance has no use for a local output.
CaptureOptions linuxStream(const QString& input, Backend backend, const QString& address, int port)
{
    return {instanceArguments("--aout=dummy"),
            linuxLocation(input, backend),
            {liveCaching(linuxCachingMilliseconds),
             ':' + streamOutput(",aenc=avcodec", promptMux, address, port), ":sout-keep"}};
}

CaptureOptions linuxTest(const QString& input, Backend backend)
{
    return {instanceArguments("--aout=any"),
            linuxLocation(input, backend),
            {liveCaching(testCachingMilliseconds)}};
}

CaptureOptions stream(const QString& input, const QString& address, int port)
{
#ifdef Q_OS_WIN
    return directShowStream(input, address, port);
#else
    return linuxStream(input, backendOf(input), address, port);
#endif
}

CaptureOptions test(const QString& input)
{
#ifdef Q_OS_WIN
    return directShowTest(input);
#else
    return linuxTest(input, backendOf(input));
#endif
}

bool isPresent(const QString& input)
{
    return !inputNamed(input).isNull();
}

} // namespace Capture
