#include "app/Data.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "support/SessionFixture.h"
#include "support/TestServer.h"

#include <QElapsedTimer>
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
    QCOMPARE(session.log.lines().count(QStringLiteral("Dropped what is no object in the stream")),
             2);
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
