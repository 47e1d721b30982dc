#include "simulator/wire/Mp3Length.h"

#include <algorithm>
#include <array>

namespace simulator
{

namespace
{

constexpr int headBytes =
    10; // of a tag; that of a frame is shorter than any frame by more than that

// kbit/s of the third layer by index: those of the first version, and of the halved rates.
constexpr std::array<int, 16> fullRates{0,   32,  40,  48,  56,  64,  80,  96,
                                        112, 128, 160, 192, 224, 256, 320, 0};
constexpr std::array<int, 16> halfRates{0,  8,  16, 24,  32,  40,  48,  56,
                                        64, 80, 96, 112, 128, 144, 160, 0};
constexpr std::array<int, 4> samplingRates{44100, 48000, 32000, 0};

/// A tag in front of the sound says its length in four times seven bits; 0 for what is no tag.
qint64 tagBytes(const uchar* head)
{
    if (head[0] != 'I' || head[1] != 'D' || head[2] != '3') {
        return 0;
    }
    return headBytes + ((head[6] & 0x7f) << 21) + ((head[7] & 0x7f) << 14) +
           ((head[8] & 0x7f) << 7) + (head[9] & 0x7f);
}

struct Frame {
    int bytes = 0; ///< 0 for what is no frame
    int samples = 0;
    int samplingRate = 1; ///< Hz
};

Frame frameAt(const uchar* head)
{
    constexpr int firstVersion = 3;
    constexpr int unknownVersion = 1;
    constexpr int thirdLayer = 1;
    const int version = (head[1] >> 3) & 3;
    const bool isFrame = head[0] == 0xff && (head[1] & 0xe0) == 0xe0 && version != unknownVersion &&
                         ((head[1] >> 1) & 3) == thirdLayer;
    const bool isFull = version == firstVersion;
    const int bitRate = (isFull ? fullRates : halfRates)[head[2] >> 4] * 1000;
    const int halvings = isFull ? 0 : version == 2 ? 1 : 2;
    const int samplingRate = samplingRates[(head[2] >> 2) & 3] >> halvings;
    if (!isFrame || bitRate == 0 || samplingRate == 0) {
        return {};
    }
    const int samples = isFull ? 1152 : 576;
    return {samples / 8 * bitRate / samplingRate + ((head[2] >> 1) & 1), samples, samplingRate};
}

} // namespace

void Mp3Length::feed(const QByteArray& bytes)
{
    rest += bytes;
    int at = 0;
    while (true) {
        const qint64 step = std::min<qint64>(ahead, rest.size() - at);
        at += int(step);
        ahead -= step;
        if (ahead > 0 || rest.size() - at < headBytes) {
            break;
        }
        ahead = pass(reinterpret_cast<const uchar*>(rest.constData()) + at);
    }
    rest.remove(0, at);
}

qint64 Mp3Length::pass(const uchar* head)
{
    if (const qint64 tag = tagBytes(head)) {
        return tag;
    }
    const Frame frame = frameAt(head);
    playing += double(frame.samples) / frame.samplingRate;
    return std::max(frame.bytes, 1);
}

} // namespace simulator
