#pragma once

#include <QByteArray>
#include <QString>

namespace simulator
{

/// An MP3 of silence: so many seconds, rounded up to whole frames, at 44100, 48000 or 32000 Hz.
QByteArray silentSound(int seconds, int samplingRate);

/// Writes five small MP3 files into a folder, which it makes, for trying the upload on a machine
/// that has none; one is not at 44100 Hz. What is there under their names is overwritten. False
/// when it can't, and `problem` says why.
bool writeSamples(const QString& folder, QString* problem);

} // namespace simulator
