#include "simulator/fiction/Samples.h"

#include <QDir>
#include <QFile>

#include <array>

namespace simulator
{

namespace
{

struct Sample {
    const char* name;
    int seconds;
    int samplingRate;
};

// Names as people give them: one is longer than a title may be, two have what a title may not have.
constexpr std::array<Sample, 5> samples{{
    {"Полдень на площади", 48, 44100},
    {"Вечер & фонари", 35, 44100},
    {"Очень длинная песня о последнем трамвае", 64, 44100},
    {"Объявление 'Закрытие'", 12, 44100},
    {"Ночная смена", 27, 48000},
}};

} // namespace

QByteArray silentSound(int seconds, int samplingRate)
{
    constexpr int samplesInFrame = 1152;
    constexpr int bitRate = 128000;
    constexpr int bitRateIndex = 9;
    const int rateIndex = samplingRate == 44100 ? 0 : samplingRate == 48000 ? 1 : 2;
    const int frames = (seconds * samplingRate + samplesInFrame - 1) / samplesInFrame;
    // One channel, no checksum; side information of nothing but zeros means no sound.
    const QByteArray head =
        QByteArray("\xff\xfb") + char(bitRateIndex << 4 | rateIndex << 2) + char(0xc0);
    const QByteArray frame = head.leftJustified(samplesInFrame / 8 * bitRate / samplingRate, '\0');
    return frame.repeated(frames);
}

bool writeSamples(const QString& folder, QString* problem)
{
    if (!QDir().mkpath(folder)) {
        *problem = "Can't make the folder " + folder;
        return false;
    }
    for (const Sample& sample : samples) {
        QFile file(folder + '/' + QString::fromUtf8(sample.name) + ".mp3");
        const QByteArray sound = silentSound(sample.seconds, sample.samplingRate);
        if (!file.open(QIODevice::WriteOnly) || file.write(sound) != sound.size()) {
            *problem = file.fileName() + ": " + file.errorString();
            return false;
        }
    }
    return true;
}

} // namespace simulator
