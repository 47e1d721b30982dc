#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// What the media library is told for one capture.
struct CaptureOptions {
    QVector<QByteArray> arguments;    ///< of the library's instance
    QByteArray location;              ///< of the source
    QVector<QByteArray> mediaOptions; ///< of the source, in their order
};

/// The two systems' ways to the same capture: one channel of 16 bits at 44100 Hz from the input
/// `input`, an empty one being the system's own choice. The stream leaves as MPEG audio of
/// 128 kbit/s in a transport stream, one packet a datagram; the test is heard at the local output.
namespace Capture
{

/// How an input's name is to be understood.
enum class Backend { PulseAudio, Alsa };

CaptureOptions directShowStream(const QString& input, const QString& address, int port);
CaptureOptions directShowTest(const QString& input);
CaptureOptions linuxStream(const QString& input, Backend backend, const QString& address, int port);
CaptureOptions linuxTest(const QString& input, Backend backend);

/// The way of this system. An input that isn't there now is taken for one of PulseAudio.
CaptureOptions stream(const QString& input, const QString& address, int port);
CaptureOptions test(const QString& input);

/// Whether the system has an input of that name now.
bool isPresent(const QString& input);

} // namespace Capture
