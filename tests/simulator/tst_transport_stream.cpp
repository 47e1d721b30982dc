#include "simulator/wire/TransportStreamWatch.h"

#include <QtTest>

using simulator::TransportStreamWatch;

/// What the demo server says about a microphone's stream is read from the stream itself.
class TestTransportStream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesTheSound_data();
    void namesTheSound();
    void countsWhatIsLost_data();
    void countsWhatIsLost();
    void survivesAnything();
};

namespace
{

constexpr int tablePid = 0x100;
constexpr int soundPid = 0x144;

/// A packet that starts something; the rest is filled up with ones.
QByteArray packet(int pid, int counter, const QByteArray& payload)
{
    QByteArray bytes;
    bytes.append('\x47')
        .append(char(0x40 | pid >> 8))
        .append(char(pid))
        .append(char(0x10 | counter));
    return (bytes + payload).leftJustified(188, '\xff');
}

QByteArray programTable()
{
    return packet(0, 0, QByteArray::fromHex("00 00b011 0001c10000 0000e010 0001e100 00000000"));
}

QByteArray streamTable(const QByteArray& type)
{
    return packet(
        tablePid, 0,
        QByteArray::fromHex("00 02b012 0001c10000 e144f000 " + type + " e144f000 00000000"));
}

QByteArray sound(int counter, const QByteArray& frameHeader)
{
    return packet(soundPid, counter, QByteArray::fromHex("000001c00000 800002 0000" + frameHeader));
}

} // namespace

void TestTransportStream::namesTheSound_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<QString>("said");
    QTest::newRow("the console's")
        << QByteArray("03") << QByteArray("fffd80c0") << "MPEG audio mp2 44100 Hz mono 128 kbit/s";
    QTest::newRow("stereo") << QByteArray("03") << QByteArray("fffda404")
                            << "MPEG audio mp2 48000 Hz stereo 192 kbit/s";
    QTest::newRow("layer 3") << QByteArray("03") << QByteArray("fffb90c0")
                             << "MPEG audio mp3 44100 Hz mono 128 kbit/s";
    QTest::newRow("MPEG-2") << QByteArray("04") << QByteArray("fff580c0")
                            << "MPEG audio mp2 22050 Hz mono 64 kbit/s";
    QTest::newRow("no frame") << QByteArray("03") << QByteArray("12345678") << "";
    QTest::newRow("AAC") << QByteArray("0f") << QByteArray("fffd80c0")
                         << "stream type 0x0f, no MPEG audio";
}

void TestTransportStream::namesTheSound()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, header);
    QFETCH(QString, said);
    TransportStreamWatch watch;
    watch.feed(sound(0, header)); // of no known program yet
    QVERIFY(watch.sound().isEmpty());
    watch.feed(programTable() + streamTable(type));
    watch.feed(sound(1, header));
    QCOMPARE(watch.sound(), said);
    const TransportStreamWatch::Amount amount = watch.take();
    QCOMPARE(amount.packets, 4);
    QCOMPARE(amount.bytes, qint64(4 * 188));
    QCOMPARE(amount.lost + amount.foreign, 0);
}

void TestTransportStream::countsWhatIsLost_data()
{
    QTest::addColumn<QVector<int>>("counters");
    QTest::addColumn<int>("lost");
    QTest::newRow("none") << QVector<int>{14, 15, 0, 1} << 0;
    QTest::newRow("one") << QVector<int>{3, 5} << 1;
    QTest::newRow("around the end") << QVector<int>{14, 2} << 3;
    QTest::newRow("one twice") << QVector<int>{3, 3, 4} << 0;
}

void TestTransportStream::countsWhatIsLost()
{
    QFETCH(QVector<int>, counters);
    TransportStreamWatch watch;
    for (int counter : counters) {
        watch.feed(sound(counter, "fffd80c0"));
        watch.feed(packet(0x1fff, 0, {})); // filling has no counter
    }
    QTEST(watch.take().lost, "lost");
    QCOMPARE(watch.take().packets, 0);
}

/// Cut and bent packets are counted, never read past their end.
void TestTransportStream::survivesAnything()
{
    TransportStreamWatch watch;
    const QByteArray whole = programTable() + streamTable("03") + sound(0, "fffd80c0");
    for (int place = 0; place < whole.size(); ++place) {
        for (const char value : {'\0', '\x7f', '\xff'}) {
            QByteArray bent = whole;
            bent[place] = value;
            watch.feed(bent);
            watch.feed(bent.left(place));
        }
    }
    watch.take();
    watch.feed("no stream");
    QCOMPARE(watch.take().foreign, 1);
    watch.feed(whole + "tail");
    const TransportStreamWatch::Amount amount = watch.take();
    QCOMPARE(amount.packets, 3);
    QCOMPARE(amount.foreign, 1);
}

QTEST_GUILESS_MAIN(TestTransportStream)
#include "tst_transport_stream.moc"
