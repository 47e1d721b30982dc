#include "simulator/wire/TransportStreamWatch.h"

#include <array>
#include <optional>

namespace simulator
{

namespace
{

constexpr int packetSize = 188;
constexpr int syncByte = 0x47;
constexpr int nullPid = 0x1fff;
constexpr int counterMask = 15;

/// The byte at a place, 0 behind the end: what is cut off reads as nothing.
int byteAt(const QByteArray& bytes, int place)
{
    return place >= 0 && place < bytes.size() ? quint8(bytes.at(place)) : 0;
}

/// Thirteen bits, the length of a packet id.
int pidAt(const QByteArray& bytes, int place)
{
    return (byteAt(bytes, place) & 0x1f) << 8 | byteAt(bytes, place + 1);
}

/// Twelve bits, the size of the lengths in the tables.
int lengthAt(const QByteArray& bytes, int place)
{
    return (byteAt(bytes, place) & 0x0f) << 8 | byteAt(bytes, place + 1);
}

/// The bytes of a section without its checksum, empty when it is another table.
QByteArray sectionOf(const QByteArray& payload, int table)
{
    constexpr int header = 3;
    constexpr int checksum = 4;
    const int start = 1 + byteAt(payload, 0);
    if (start >= payload.size() || byteAt(payload, start) != table) {
        return {};
    }
    return payload.mid(start, header + lengthAt(payload, start + 1) - checksum);
}

using BitRates = std::array<int, 15>; // kbit/s
constexpr BitRates layer2Rates{0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
constexpr BitRates layer3Rates{0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
constexpr BitRates halfRates{0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160};
constexpr std::array<int, 3> sampleRates{44100, 48000, 32000};

/// The words for an MPEG audio frame that starts at a place, nothing when none does.
std::optional<QString> frameAt(const QByteArray& bytes, int place)
{
    const int second = byteAt(bytes, place + 1);
    const int third = byteAt(bytes, place + 2);
    const int version = second >> 3 & 3; // 3 is MPEG-1, 2 is MPEG-2 at half the sample rate
    const int layer = 4 - (second >> 1 & 3);
    const int bitRate = third >> 4;
    const int sampleRate = third >> 2 & 3;
    if (place + 4 > bytes.size() || byteAt(bytes, place) != 0xff || (second & 0xe0) != 0xe0 ||
        version < 2 || (layer != 2 && layer != 3) || bitRate < 1 || bitRate > 14 ||
        sampleRate > 2) {
        return std::nullopt;
    }
    const BitRates& rates = version == 2 ? halfRates : layer == 2 ? layer2Rates : layer3Rates;
    const bool mono = byteAt(bytes, place + 3) >> 6 == 3;
    return QString("MPEG audio mp%1 %2 Hz %3 %4 kbit/s")
        .arg(layer)
        .arg(sampleRates[std::size_t(sampleRate)] / (version == 2 ? 2 : 1))
        .arg(mono ? "mono" : "stereo")
        .arg(rates[std::size_t(bitRate)]);
}

} // namespace

void TransportStreamWatch::feed(const QByteArray& datagram)
{
    amount.bytes += datagram.size();
    for (int place = 0; place < datagram.size(); place += packetSize) {
        if (place + packetSize > datagram.size() || byteAt(datagram, place) != syncByte) {
            ++amount.foreign;
            return;
        }
        readPacket(datagram.mid(place, packetSize));
    }
}

TransportStreamWatch::Amount TransportStreamWatch::take()
{
    const Amount taken = amount;
    amount = {};
    return taken;
}

void TransportStreamWatch::readPacket(const QByteArray& packet)
{
    constexpr int header = 4;
    ++amount.packets;
    const int pid = pidAt(packet, 1);
    const bool starts = byteAt(packet, 1) & 0x40;
    const bool hasExtra = byteAt(packet, 3) & 0x20;
    const bool hasPayload = byteAt(packet, 3) & 0x10;
    if (!hasPayload || pid == nullPid) {
        return;
    }
    const int extra = hasExtra ? 1 + byteAt(packet, header) : 0;
    if (extra > 1 && (byteAt(packet, header + 1) & 0x80)) {
        counters.remove(pid); // the sender says that it counts anew
    }
    count(pid, byteAt(packet, 3) & counterMask);
    if (!starts) {
        return;
    }
    const QByteArray payload = packet.mid(header + extra);
    if (pid == 0) {
        readProgramTable(sectionOf(payload, 0));
    } else if (pid == tablePid) {
        readStreamTable(sectionOf(payload, 2));
    } else if (pid == soundPid) {
        readSound(payload);
    }
}

void TransportStreamWatch::count(int pid, int counter)
{
    const auto last = counters.constFind(pid);
    // A packet may come twice in a row with the same counter.
    if (last != counters.constEnd() && counter != *last) {
        amount.lost += (counter - *last - 1) & counterMask;
    }
    counters.insert(pid, counter);
}

/// The first program is the one that is watched; number 0 is no program.
void TransportStreamWatch::readProgramTable(const QByteArray& section)
{
    for (int place = 8; place + 4 <= section.size(); place += 4) {
        if (byteAt(section, place) != 0 || byteAt(section, place + 1) != 0) {
            tablePid = pidAt(section, place + 2);
            return;
        }
    }
}

void TransportStreamWatch::readStreamTable(const QByteArray& section)
{
    constexpr int mpeg1Audio = 3;
    constexpr int mpeg2Audio = 4;
    if (section.isEmpty()) {
        return;
    }
    int place = 12 + lengthAt(section, 10);
    while (place + 5 <= section.size()) {
        const int type = byteAt(section, place);
        if (type == mpeg1Audio || type == mpeg2Audio) {
            soundPid = pidAt(section, place + 1);
            return;
        }
        kind = QString("stream type 0x%1, no MPEG audio").arg(type, 2, 16, QChar('0'));
        place += 5 + lengthAt(section, place + 3);
    }
}

/// The first frame header that the beginning of a packet of sound holds.
void TransportStreamWatch::readSound(const QByteArray& payload)
{
    if (!payload.startsWith(QByteArray("\0\0\1", 3))) {
        return;
    }
    for (int place = 9 + byteAt(payload, 8); place < payload.size(); ++place) {
        if (const auto found = frameAt(payload, place)) {
            kind = *found;
            return;
        }
    }
}

} // namespace simulator
