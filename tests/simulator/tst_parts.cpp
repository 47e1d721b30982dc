#include "simulator/Identity.h"
#include "simulator/wire/ObjectReader.h"
#include "simulator/wire/TransportStreamWatch.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using simulator::loadOrMakeIdentity;
using simulator::ObjectReader;
using simulator::TransportStreamWatch;
using Fault = ObjectReader::Fault;

Q_DECLARE_METATYPE(Fault)

/// The pieces of the demo server that need no connection: the objects of a stream, the microphone's
/// sound, the certificate.
class TestParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void streams_data();
    void streams();
    void objectBeyondTheLimit();
    void namesTheSound_data();
    void namesTheSound();
    void countsWhatIsLost_data();
    void countsWhatIsLost();
    void survivesAnything();
    void identity_data();
    void identity();
    void identityThatCannotBeMade_data();
    void identityThatCannotBeMade();
};

namespace
{

constexpr int tablePid = 0x100;
constexpr int soundPid = 0x144;

QByteArrayList everythingFrom(ObjectReader& reader, const QByteArray& stream, int step)
{
    QByteArrayList objects;
    for (int place = 0; place < stream.size(); place += step) {
        reader.feed(stream.mid(place, step));
        while (const auto object = reader.next()) {
            objects.append(*object);
        }
    }
    return objects;
}

/// A packet that starts something; the rest is filled up with ones.
QByteArray packet(int pid, int counter, const QByteArray& payload)
{
    const QByteArray head =
        QByteArray("\x47") + char(0x40 | pid >> 8) + char(pid) + char(0x10 | counter);
    return (head + payload).leftJustified(188, '\xff');
}

QByteArray tables(const QByteArray& type)
{
    return packet(0, 0, QByteArray::fromHex("00 00b011 0001c10000 0000e010 0001e100 00000000")) +
           packet(
               tablePid, 0,
               QByteArray::fromHex("00 02b012 0001c10000 e144f000 " + type + " e144f000 00000000"));
}

QByteArray sound(int counter, const QByteArray& frameHeader)
{
    return packet(soundPid, counter, QByteArray::fromHex("000001c00000 800002 0000" + frameHeader));
}

} // namespace

void TestParts::streams_data()
{
    QTest::addColumn<QByteArray>("stream");
    QTest::addColumn<QByteArrayList>("objects");
    QTest::addColumn<Fault>("fault");
    const auto row = [](const char* name, const QByteArray& stream, const QByteArrayList& objects,
                        Fault fault = Fault::None) {
        QTest::newRow(name) << stream << objects << fault;
    };
    row("adjacent", R"({"a":1}{"b":2})", {R"({"a":1})", R"({"b":2})"});
    row("white space around", " \r\n\t{} \n {}\n", {"{}", "{}"});
    row("braces in strings", R"({"}{":"]}"}{})", {R"({"}{":"]}"})", "{}"});
    row("escapes in strings", R"({"\\":"\"}"}{})", {R"({"\\":"\"}"})", "{}"});
    row("nested", R"({"a":[{"b":[]},{}]})", {R"({"a":[{"b":[]},{}]})"});
    row("not whole yet", R"({}{"a":{})", {"{}"});
    row("array", "{}[1]{}", {"{}"}, Fault::Garbage);
    row("number", "{}1{}", {"{}"}, Fault::Garbage);
    row("brace too many", "{}}{}", {"{}"}, Fault::Garbage);
    row("another protocol", "{}\nGET / HTTP/1.1\r\n\r\n{}", {"{}"}, Fault::Garbage);
    row("deep", "{}{\"a\":" + QByteArray(ObjectReader::deepestNesting, '['), {"{}"},
        Fault::TooDeep);
}

void TestParts::streams()
{
    QFETCH(QByteArray, stream);
    QFETCH(QByteArrayList, objects);
    for (int step : {1, 2, 3, stream.size()}) {
        ObjectReader reader;
        QCOMPARE(everythingFrom(reader, stream, step), objects);
        QTEST(reader.fault(), "fault");
    }
}

void TestParts::objectBeyondTheLimit()
{
    const QByteArray largest = R"({"a":"12345"})";
    ObjectReader exact(largest.size());
    QCOMPARE(everythingFrom(exact, largest + largest, 4), (QByteArrayList{largest, largest}));
    ObjectReader small(largest.size() - 1);
    QCOMPARE(everythingFrom(small, largest.chopped(1), 4), QByteArrayList());
    QCOMPARE(small.fault(), Fault::None);
    QCOMPARE(everythingFrom(small, "}", 1), QByteArrayList());
    QCOMPARE(small.fault(), Fault::TooLarge);
}

void TestParts::namesTheSound_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<QString>("said");
    const auto row = [](const char* name, const QByteArray& type, const QByteArray& header,
                        const QString& said) { QTest::newRow(name) << type << header << said; };
    row("the console's", "03", "fffd80c0", "MPEG audio mp2 44100 Hz mono 128 kbit/s");
    row("stereo", "03", "fffda404", "MPEG audio mp2 48000 Hz stereo 192 kbit/s");
    row("layer 3", "03", "fffb90c0", "MPEG audio mp3 44100 Hz mono 128 kbit/s");
    row("MPEG-2", "04", "fff580c0", "MPEG audio mp2 22050 Hz mono 64 kbit/s");
    row("no frame", "03", "12345678", "");
    row("AAC", "0f", "fffd80c0", "stream type 0x0f, no MPEG audio");
}

void TestParts::namesTheSound()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, header);
    TransportStreamWatch watch;
    watch.feed(sound(0, header)); // of no known program yet
    QVERIFY(watch.sound().isEmpty());
    watch.feed(tables(type));
    watch.feed(sound(1, header));
    QTEST(watch.sound(), "said");
    const TransportStreamWatch::Amount amount = watch.take();
    QCOMPARE(amount.packets, 4);
    QCOMPARE(amount.bytes, qint64(4 * 188));
    QCOMPARE(amount.lost + amount.foreign, 0);
}

void TestParts::countsWhatIsLost_data()
{
    QTest::addColumn<QVector<int>>("counters");
    QTest::addColumn<int>("lost");
    QTest::newRow("none") << QVector<int>{14, 15, 0, 1} << 0;
    QTest::newRow("around the end") << QVector<int>{14, 2} << 3;
    QTest::newRow("one twice") << QVector<int>{3, 3, 4} << 0;
}

void TestParts::countsWhatIsLost()
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
void TestParts::survivesAnything()
{
    TransportStreamWatch watch;
    const QByteArray whole = tables("03") + sound(0, "fffd80c0");
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
    watch.feed(whole + "tail");
    const TransportStreamWatch::Amount amount = watch.take();
    QCOMPARE(amount.packets, 3);
    QCOMPARE(amount.foreign, 2);
}

void TestParts::identity_data()
{
    QTest::addColumn<int>("keptPercent");
    QTest::newRow("whole") << 100;
    QTest::newRow("empty") << 0;
    QTest::newRow("certificate cut") << 20;
    QTest::newRow("key cut") << 80;
}

/// The identity is kept, private, and made anew when its file is broken.
void TestParts::identity()
{
    QFETCH(int, keptPercent);
    const QTemporaryDir folder;
    const QString deeper = folder.filePath("made/by/itself");
    QString problem;
    const auto first = loadOrMakeIdentity(deeper, &problem);
    QVERIFY2(first, qPrintable(problem));
    QCOMPARE(first->key.length(), 2048);
    QFile file(deeper + "/identity.pem");
    QVERIFY(!(file.permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther)));
    QVERIFY(file.resize(file.size() * keptPercent / 100));
    const auto second = loadOrMakeIdentity(deeper, &problem);
    QVERIFY2(second, qPrintable(problem));
    QVERIFY(!second->key.isNull());
    QCOMPARE(second->certificate == first->certificate, keptPercent == 100);
}

void TestParts::identityThatCannotBeMade_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QString>("said");
    QTest::newRow("no tool") << QByteArray("/nowhere") << "openssl";
    QTest::newRow("no folder") << qgetenv("PATH") << "identity.pem";
}

void TestParts::identityThatCannotBeMade()
{
    QFETCH(QByteArray, path);
    QFETCH(QString, said);
    QTemporaryFile file;
    QVERIFY(file.open());
    const QByteArray before = qgetenv("PATH");
    qputenv("PATH", path);
    QString problem;
    const auto identity = loadOrMakeIdentity(file.fileName(), &problem);
    qputenv("PATH", before);
    QVERIFY(!identity);
    QVERIFY2(problem.contains(said), qPrintable(problem));
}

QTEST_GUILESS_MAIN(TestParts)
#include "tst_parts.moc"
