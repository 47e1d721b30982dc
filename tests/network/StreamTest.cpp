#include "app/Data.h"
#include "network/LongTexts.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "protocol/ProtocolLog.h"
#include "protocol/Request.h"
#include "support/SessionFixture.h"
#include "support/TestServer.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

namespace
{

/// How long the event loop has been kept from a timer, at worst.
class Heartbeat
{
public:
    Heartbeat()
    {
        sinceBeat.start();
        timer.callOnTimeout([this] { beat(); });
        timer.start(10);
    }

    int count() const { return beats; }
    qint64 worstMilliseconds() const { return qMax(worst, sinceBeat.elapsed()); }

private:
    void beat()
    {
        ++beats;
        worst = qMax(worst, sinceBeat.restart());
    }

    QTimer timer;
    QElapsedTimer sinceBeat;
    qint64 worst = 0;
    int beats = 0;
};

/// A push that the console has no use for, of about that many bytes.
QByteArray pushOfSize(int order, int size)
{
    return R"({"request":"helper","action":"brokenLink","order":)" + QByteArray::number(order) +
           R"(,"data":")" + QByteArray(size, '}') + "\"}";
}

} // namespace

class StreamTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void largeObjectInSmallPieces();
    void tooLargeObjectEndsTheSession();
    void objectsBehindGarbageAreFound();
    void dropsAreToldTogether();
    void largeObjectIsReadAside();
    void sessionEndDropsWhatIsReadAside();
    void filesTravelBesideTheirFields();
    void longTextsAreTakenOut_data();
    void longTextsAreTakenOut();
    void serverThatDoesNotReadFreezesNothing();
};

void StreamTest::largeObjectInSmallPieces()
{
    constexpr int size = 50 * 1000 * 1000;
    constexpr int pieceSize = 8 * 1024;
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    const QByteArray text = pushOfSize(7, size);
    const Heartbeat heartbeat;
    for (int place = 0; place < text.size(); place += pieceSize) {
        server.sendRaw(text.mid(place, pieceSize));
        QCoreApplication::processEvents();
    }
    QTRY_COMPARE_WITH_TIMEOUT(server.receivedNames(), QStringList{QStringLiteral("ack 7")}, 30000);
    // One look at all of the object is its reader's; a look at it with every piece would take
    // minutes.
    QVERIFY2(heartbeat.worstMilliseconds() < 3000,
             QByteArray::number(heartbeat.worstMilliseconds()).constData());
}

void StreamTest::tooLargeObjectEndsTheSession()
{
    constexpr int limit = 100 * 1000;
    TestServer server;
    const LogRecorder log;
    NetworkParser parser;
    TcpClient client(limit);
    client.addParser(&parser);
    int ends = 0;
    client.setSessionEndHook([&] { ++ends; });
    QVERIFY(client.connectToServer(QStringLiteral("127.0.0.1"), server.port()));
    server.sendRaw(pushOfSize(1, limit / 2) + pushOfSize(2, limit / 2) + pushOfSize(3, limit));
    QTRY_COMPARE(ends, 1);
    QVERIFY(log.contains(QStringLiteral("Message too large, connection closed")));
    QTRY_COMPARE(server.openConnectionCount(), 0);
    QCOMPARE(server.receivedNames(),
             (QStringList{QStringLiteral("ack 1"), QStringLiteral("ack 2")}));
}

void StreamTest::objectsBehindGarbageAreFound()
{
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    server.sendRaw("[" + pushOfSize(1, 1) + "]\r\n" + pushOfSize(2, 1) + "\n\n" + pushOfSize(3, 1) +
                   "404" + pushOfSize(4, 1));
    QTRY_COMPARE(
        server.receivedNames(),
        (QStringList{QStringLiteral("ack 2"), QStringLiteral("ack 3"), QStringLiteral("ack 4")}));
    QTRY_VERIFY(
        session.log.contains(QStringLiteral("Dropped what is no object in the stream (2 times)")));
}

void StreamTest::dropsAreToldTogether()
{
    constexpr int count = 100 * 1000;
    const QRegularExpression times(QStringLiteral("neither reply nor push \\((\\d+) times"));
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    server.sendRaw(QByteArray("{}").repeated(count) + pushOfSize(1, 1));
    QTRY_COMPARE(server.receivedNames(), QStringList{QStringLiteral("ack 1")});
    QCoreApplication::processEvents();
    const QStringList told = session.log.lines().filter(QStringLiteral("Dropped"));
    int sum = 0;
    for (const QString& line : told) {
        sum += times.match(line).captured(1).toInt();
    }
    QCOMPARE(sum, count);
    QVERIFY2(told.size() < 100, QByteArray::number(told.size()).constData());
}

void StreamTest::largeObjectIsReadAside()
{
    // Many values, so that reading them takes long.
    const QByteArray values = "[" + QByteArray("[1,2],").repeated(2 * 1000 * 1000) + "0]";
    const QByteArray large =
        R"({"request":"helper","action":"brokenLink","order":1,"data":)" + values + "}";
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!NetworkParser::read(large).object.isEmpty());
    const qint64 readingTime = clock.elapsed();
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    const Heartbeat heartbeat;
    server.sendRaw(large + pushOfSize(2, 1));
    QTRY_COMPARE_WITH_TIMEOUT(server.receivedNames(),
                              (QStringList{QStringLiteral("ack 1"), QStringLiteral("ack 2")}),
                              30000);
    QVERIFY2(heartbeat.worstMilliseconds() < readingTime / 3,
             QByteArray::number(heartbeat.worstMilliseconds()).constData());
}

void StreamTest::sessionEndDropsWhatIsReadAside()
{
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    send(HelperCommand::CheckInternet);
    send(HelperCommand::GetDateTime);
    server.sendRaw(R"({"request":"helper","action":"brokenLink","order":1,"data":[)" +
                   QByteArray("[1,2],").repeated(1000 * 1000) + "0]}" + pushOfSize(2, 1));
    // The object has released the queue, and is on its way to its turn.
    QTRY_COMPARE(server.receivedNames().size(), 2);
    QVERIFY(!session.log.contains(QStringLiteral("Input packet: ")));
    Data::tcpClient.exit();
    QVERIFY(session.connectTo(server));
    server.send(QJsonObject{{QStringLiteral("request"), QStringLiteral("helper")},
                            {QStringLiteral("order"), 3}});
    QTRY_COMPARE(server.receivedNames().last(), QStringLiteral("ack 3"));
    server.sendRaw(pushOfSize(4, NetworkParser::largeObjectSize));
    QTRY_COMPARE(server.receivedNames().size(), 4);
    QCOMPARE(server.receivedNames().last(), QStringLiteral("ack 4"));
    QCOMPARE(session.log.lines().count(QStringLiteral("Input packet: ")), 2);
}

/// A file goes out whole and comes in whole, in the same object as its small fields; nothing gets
/// between its pieces, and no text of it stands in what the reply's handler is given.
void StreamTest::filesTravelBesideTheirFields()
{
    const QByteArray base64 = QByteArray(3 * 1000 * 1000, 'Q') + "==";
    const QByteArray log = QByteArray("\\u0416 \\\"\\\\\\n").repeated(100 * 1000);
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    QByteArray arrived;
    serverLogHooks().arrived = [&](const QString&, const QByteArray& text) { arrived = text; };
    send(DeviceCommand::UploadImage, {{QStringLiteral("id"), 5}},
         {QStringLiteral("image"), base64});
    server.sendRaw(pushOfSize(7, 1));
    QTRY_COMPARE(server.receivedNames(),
                 (QStringList{QStringLiteral("device/uploadImage 0"), QStringLiteral("ack 7")}));
    const QJsonObject sent = server.received().first();
    QCOMPARE(sent.value(QLatin1String("image")).toString().toLatin1(), base64);
    QCOMPARE(sent.value(QLatin1String("id")).toInt(), 5);
    send(LogCommand::GetServerLog, {{QStringLiteral("date"), QStringLiteral("today")}});
    QTRY_COMPARE(server.receivedNames().size(), 3);
    server.sendRaw(R"({"logFile":")" + log + R"(","order":1,"response":"success"})");
    QTRY_COMPARE(arrived, QByteArray("\xD0\x96 \"\\\n").repeated(100 * 1000));
    serverLogHooks() = {};
}

void StreamTest::longTextsAreTakenOut_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("after"); // null where the object stays as it was
    const QByteArray x(longTextSize, 'x');
    QTest::newRow("behind a name with a quote") << QByteArray(R"({"a\"b":")") << x + 'y' << x + 'y';
    QTest::newRow("just not long") << QByteArray(R"({"a":")") << x << QByteArray();
    QTest::newRow("in an object of its own")
        << QByteArray(R"({"b":{"a":")") << x + 'y' << QByteArray();
    QTest::newRow("all escapes") << QByteArray(R"({"a":")")
                                 << x + R"(\"\\\/\b\f\n\r\t\u0041\ud83d\ude00)"
                                 << x + "\"\\/\b\f\n\r\tA\xF0\x9F\x98\x80";
    QTest::newRow("half a pair") << QByteArray(R"({"a":")") << x + R"(\ud83dz)" << x + "?z";
    QTest::newRow("unknown escape") << QByteArray(R"({"a":")") << x + R"(\q)" << QByteArray();
    QTest::newRow("cut escape") << QByteArray(R"({"a":")") << x + R"(\u12)" << QByteArray();
    QTest::newRow("no UTF-8") << QByteArray(R"({"a":")") << x + '\xFF' << x + '\xFF';
}

void StreamTest::longTextsAreTakenOut()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, after);
    const QByteArray end = before.count('{') == 2 ? "\"}}" : R"(","c":"\u0041"})";
    QByteArray json = before + text + end;
    const LongTexts texts = takeLongTexts(json);
    QCOMPARE(json, after.isNull() ? before + text + end : before + end);
    QCOMPARE(int(texts.size()), after.isNull() ? 0 : 1);
    if (!after.isNull()) {
        QCOMPARE(texts.begin()->second, after);
    }
}

void StreamTest::serverThatDoesNotReadFreezesNothing()
{
    constexpr int count = 400;
    const QByteArray message = R"({"data":")" + QByteArray(100 * 1000, 'x') + "\"}";
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    server.freeze();
    const Heartbeat heartbeat;
    for (int number = 0; number < count; ++number) {
        Data::tcpClient.write(message);
    }
    QTRY_VERIFY(SessionFixture::queued().isEmpty());
    const int beatsSoFar = heartbeat.count();
    QTRY_VERIFY(heartbeat.count() > beatsSoFar + 20);
    QVERIFY2(heartbeat.worstMilliseconds() < 2000,
             QByteArray::number(heartbeat.worstMilliseconds()).constData());
    QCOMPARE(session.endCount(), 0);
    // What was held up arrives when the server reads again.
    server.thaw();
    QTRY_COMPARE_WITH_TIMEOUT(server.receivedNames().size(), count, 20000);
}

QTEST_GUILESS_MAIN(StreamTest)
#include "StreamTest.moc"
