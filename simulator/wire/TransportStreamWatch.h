#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace simulator
{

/// Looks into an MPEG transport stream that carries sound, as it comes in datagrams: how much, of
/// what kind, and what was lost on the way. It decodes nothing.
class TransportStreamWatch
{
public:
    /// What has come since the last call of take().
    struct Amount {
        qint64 bytes = 0;
        int packets = 0;
        int lost = 0;    ///< packets that the counters show to be missing, up to 15 in a row
        int foreign = 0; ///< datagrams, or ends of them, that are no transport stream
    };

    /// Takes the next datagram: whole packets of 188 bytes.
    void feed(const QByteArray& datagram);
    /// The amount so far, and begins a new one.
    Amount take();
    /// The kind of sound in words, empty until it is known: "MPEG audio mp2 44100 Hz mono 128
    /// kbit/s".
    QString sound() const { return kind; }

private:
    void readPacket(const QByteArray& packet);
    void count(int pid, int counter);
    void readProgramTable(const QByteArray& section);
    void readStreamTable(const QByteArray& section);
    void readSound(const QByteArray& payload);

    Amount amount;
    QHash<int, int> counters; ///< the last one by packet id
    int tablePid = -1;
    int soundPid = -1;
    QString kind;
};

} // namespace simulator
