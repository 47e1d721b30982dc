#include "app/Data.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "protocol/Request.h"
#include "protocol/input/Pushes.h"
#include "support/SessionFixture.h"
#include "support/TestServer.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QTest>
#include <QTimer>

#include <limits>

namespace
{

const QJsonObject success{{QStringLiteral("response"), QStringLiteral("success")}};
const QString getInternet = QStringLiteral("helper/checkInternet ");

QJsonObject reply(int order)
{
    return {{QStringLiteral("order"), order},
            {QStringLiteral("response"), QStringLiteral("success")}};
}

QJsonObject push(const char* request, const char* action, int order)
{
    return {{QStringLiteral("request"), QLatin1String(request)},
            {QStringLiteral("action"), QLatin1String(action)},
            {QStringLiteral("order"), order}};
}

void sendRequests(int count)
{
    for (int number = 0; number < count; ++number) {
        send(HelperCommand::CheckInternet);
    }
}

QJsonObject unitsReply(int count)
{
    QJsonArray units;
    for (int id = 1; id <= count; ++id) {
        units.append(QJsonObject{{QStringLiteral("id"), id},
                                 {QStringLiteral("title"), QStringLiteral("Зал")},
                                 {QStringLiteral("link"), QStringLiteral("no")}});
    }
    return {{QStringLiteral("response"), QStringLiteral("success")},
            {QStringLiteral("devices"), units}};
}

QStringList requests(int first, int last)
{
    QStringList names;
    for (int order = first; order <= last; ++order) {
        names.append(getInternet + QString::number(order));
    }
    return names;
}

} // namespace

class QueueTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup() { Data::parser.setPushHandler(routePush); }
    void oneRequestIsInFlight();
    void queueKeepsItsOrder();
    void pushReleasesTheNextRequest();
    void everyObjectReleasesOneRequest_data();
    void everyObjectReleasesOneRequest();
    void pushIsAcknowledgedBeforeItsRequest();
    void textIsIndented();
    void queueWaitsForNoTick();
    void reconnectStartsAtOrderZero();
    void queueRestsWithoutConnection();
    void burstOfPushesIsAnsweredInOrder();
    void handlerIsNotEnteredTwice();
    void readingKeepsItsOrder();
    void operatorDoesNotWaitForReading();
    void whatWaitsEndsWithTheSession();
};

void QueueTest::oneRequestIsInFlight()
{
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    sendRequests(2);
    QTRY_COMPARE(server.receivedNames(), requests(0, 0));
    QCOMPARE(SessionFixture::queued(), requests(1, 1));
    server.send(reply(0));
    QTRY_COMPARE(server.receivedNames(), requests(0, 1));
    QVERIFY(
        session.page.calls().contains(QStringLiteral("wrapperInput_server_setInternetStatus(1);")));
}

void QueueTest::queueKeepsItsOrder()
{
    TestServer server;
    server.answerAll();
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    sendRequests(3);
    Data::tcpClient.write(NetworkParser::acknowledgement(70));
    Data::tcpClient.write(NetworkParser::acknowledgement(71));
    send(HelperCommand::CheckInternet);
    const QStringList expected = requests(0, 2) +
                                 QStringList{QStringLiteral("ack 70"), QStringLiteral("ack 71")} +
                                 requests(3, 3);
    QTRY_COMPARE(server.receivedNames(), expected);
    QTRY_COMPARE(Data::parser.getPacketCount(), 0);
}

void QueueTest::pushReleasesTheNextRequest()
{
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    sendRequests(3);
    QTRY_COMPARE(server.receivedNames(), requests(0, 0));
    server.send(push("helper", "brokenLink", 70));
    QTRY_COMPARE(server.receivedNames(), requests(0, 1));
    // Two are in flight now; the acknowledgement stands behind the third and overtakes nothing.
    const QString acknowledgement = QStringLiteral("ack 70");
    QCOMPARE(SessionFixture::queued(), requests(2, 2) << acknowledgement);
    server.send(reply(1));
    QTRY_COMPARE(server.receivedNames(), requests(0, 2));
    server.send(reply(0));
    QTRY_COMPARE(server.receivedNames(), requests(0, 2) << acknowledgement);
    QCOMPARE(Data::parser.getPacketCount(), 1);
}

void QueueTest::everyObjectReleasesOneRequest_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("released");
    const auto row = [](const char* name, const QByteArray& bytes, int released) {
        QTest::newRow(name) << bytes << released;
    };
    row("nothing", "", 0);
    row("reply", R"({"order":0,"response":"success"})", 1);
    row("reply to nothing", R"({"order":50,"response":"success"})", 1);
    row("push", R"({"request":"helper","action":"brokenLink","order":1})", 1);
    row("neither", "{}", 1);
    row("two in one read", "{}\n{}", 2);
    row("object that can't be read", R"({"order":nothing})", 1);
    row("too deep", R"({"a":)" + QByteArray(1100, '[') + QByteArray(1100, ']') + "}", 1);
    row("array of objects", R"([{},{"order":0,"response":"success"}])", 0);
    row("garbage", "success\n", 0);
}

void QueueTest::everyObjectReleasesOneRequest()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, released);
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    sendRequests(8);
    QTRY_COMPARE(server.receivedNames(), requests(0, 0));
    // The push at the end tells when all has been handled, and releases one more.
    server.sendRaw(bytes + R"({"request":"helper","action":"brokenLink","order":99})");
    QTRY_VERIFY(SessionFixture::queued().contains(QStringLiteral("ack 99")));
    QTRY_COMPARE(server.receivedNames(), requests(0, released + 1));
    QCOMPARE(SessionFixture::queued().filter(getInternet), requests(released + 2, 7));
}

void QueueTest::pushIsAcknowledgedBeforeItsRequest()
{
    TestServer server;
    server.answerAll();
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    send(HelperCommand::CheckInternet);
    QTRY_COMPARE(Data::parser.getPacketCount(), 0);
    server.send({push("server", "reloadChanges", 0), push("helper", "notify", 0)});
    QTRY_COMPARE(server.receivedNames(),
                 (QStringList{getInternet + QLatin1Char('0'), QStringLiteral("ack 0"),
                              QStringLiteral("server/getSettings 1"), QStringLiteral("ack 0"),
                              QStringLiteral("ack 0")}));
}

void QueueTest::textIsIndented()
{
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    Data::tcpClient.write(NetworkParser::acknowledgement(7));
    send(UserCommand::Login, {{QStringLiteral("user"), QStringLiteral("Зал")}});
    const QString expected = QStringLiteral("{\n"
                                            "    \"order\": 7,\n"
                                            "    \"response\": \"success\"\n"
                                            "}\n"
                                            "{\n"
                                            "    \"action\": \"login\",\n"
                                            "    \"order\": 0,\n"
                                            "    \"request\": \"user\",\n"
                                            "    \"user\": \"Зал\"\n"
                                            "}\n");
    QTRY_COMPARE(QString::fromUtf8(server.receivedBytes()), expected);
}

void QueueTest::queueWaitsForNoTick()
{
    constexpr int count = 400;
    constexpr int tickMilliseconds = 10;
    TestServer server;
    server.answerAll();
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    QElapsedTimer clock;
    clock.start();
    sendRequests(count);
    QTimer deadline; // the waiting macros sleep between their looks, which would hide the ticks
    deadline.setSingleShot(true);
    deadline.start(count * tickMilliseconds);
    while (Data::parser.getPacketCount() > 0 && deadline.isActive()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QVERIFY2(clock.elapsed() < count * tickMilliseconds / 2,
             QByteArray::number(clock.elapsed()).constData());
}

void QueueTest::reconnectStartsAtOrderZero()
{
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    sendRequests(3);
    QTRY_COMPARE(server.receivedNames(), requests(0, 0));
    Data::tcpClient.exit();
    QCOMPARE(session.endCount(), 1);
    QCOMPARE(Data::parser.orderCounter, 0);
    sendRequests(1); // goes nowhere, now and later
    QVERIFY(session.connectTo(server));
    send(HelperCommand::GetDateTime);
    QTRY_COMPARE(server.receivedNames(), requests(0, 0) << QStringLiteral("helper/getDateTime 0"));
    QCOMPARE(Data::parser.getPacketCount(), 1);
}

void QueueTest::queueRestsWithoutConnection()
{
    const SessionFixture session;
    const auto timers = Data::tcpClient.findChildren<QTimer*>();
    QCOMPARE(timers.size(), 1);
    sendRequests(1);
    QCoreApplication::processEvents();
    QVERIFY(!timers.first()->isActive());
}

void QueueTest::burstOfPushesIsAnsweredInOrder()
{
    constexpr int count = 3000;
    TestServer server;
    server.answerAll();
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    QVector<QJsonObject> pushes;
    QStringList acknowledgements;
    for (int order = 0; order < count; ++order) {
        // Half of them make the console ask for more.
        QJsonObject message =
            order % 2 ? push("device", "setState", order) : push("helper", "brokenLink", order);
        message.insert(QStringLiteral("deviceId"), 1 + order % 100);
        message.insert(QStringLiteral("versionMainText"), QString(1000, QLatin1Char('1')));
        pushes.append(message);
        acknowledgements.append(QStringLiteral("ack %1").arg(order));
    }
    // However many have come at once, each is handled where the first one was.
    quintptr shallowest = 0;
    quintptr deepest = std::numeric_limits<quintptr>::max();
    Data::parser.setPushHandler([&](const QJsonObject& message) {
        const auto here = reinterpret_cast<quintptr>(__builtin_frame_address(0));
        shallowest = qMax(shallowest, here);
        deepest = qMin(deepest, here);
        routePush(message);
    });
    server.send(pushes);
    QTRY_COMPARE_WITH_TIMEOUT(server.receivedNames().filter(QStringLiteral("ack ")).size(), count,
                              30000);
    QCOMPARE(server.receivedNames().filter(QStringLiteral("ack ")), acknowledgements);
    QTRY_COMPARE_WITH_TIMEOUT(Data::tcpClient.waitingRequestCount(), 0, 30000);
    QTRY_COMPARE(Data::parser.getPacketCount(), 0);
    QVERIFY(Data::parser.orderCounter >= count);
    QVERIFY2(shallowest - deepest < 64 * 1024,
             QByteArray::number(qulonglong(shallowest - deepest)).constData());
}

void QueueTest::handlerIsNotEnteredTwice()
{
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    sendRequests(1);
    QTRY_COMPARE(server.receivedNames(), requests(0, 0));
    int running = 0;
    int most = 0;
    int handled = 0;
    Data::parser.setPushHandler([&](const QJsonObject& message) {
        ++handled;
        most = qMax(most, ++running);
        if (message.value(QLatin1String("order")) == 1) {
            // What is sent in the handler's own event loop leaves; what arrives there waits.
            server.send(push("helper", "brokenLink", 2));
            QTimer::singleShot(0, [] { sendRequests(1); });
            QTRY_COMPARE(server.receivedNames(),
                         requests(0, 0) + QStringList{QStringLiteral("ack 1")} + requests(1, 1));
        }
        --running;
    });
    server.send(push("helper", "brokenLink", 1));
    QTRY_COMPARE(handled, 2);
    QCOMPARE(most, 1);
    QTRY_COMPARE(server.receivedNames().last(), QStringLiteral("ack 2"));
}

void QueueTest::readingKeepsItsOrder()
{
    TestServer server;
    server.answerAll();
    server.answer(QStringLiteral("device/getDevices"), unitsReply(2));
    server.onRequest(QStringLiteral("helper/checkInternet"),
                     {{success, push("zone", "reloadChanges", 7)}});
    server.onRequest(QStringLiteral("device/getState"), {});
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    send(DeviceCommand::GetDevices);
    send(ZoneCommand::List);
    sendRequests(1);
    // What is in the queue goes first; what waits gets its number when it leaves.
    QStringList expected{QStringLiteral("device/getDevices 0"),
                         QStringLiteral("zone/list 1"),
                         QStringLiteral("helper/checkInternet 2"),
                         QStringLiteral("device/getState 3"),
                         QStringLiteral("ack 7"),
                         QStringLiteral("device/getState 4")};
    QTRY_COMPARE(server.receivedNames(), expected);
    QCOMPARE(Data::tcpClient.waitingRequestCount(), 1);
    QCOMPARE(Data::parser.orderCounter, 5);
    send(HelperCommand::GetDateTime);
    server.send(reply(3));
    server.send(reply(4));
    expected << QStringLiteral("helper/getDateTime 5") << QStringLiteral("zone/list 6");
    QTRY_COMPARE(server.receivedNames(), expected);
}

void QueueTest::operatorDoesNotWaitForReading()
{
    constexpr int units = 300;
    TestServer server;
    server.answerAll();
    server.answer(QStringLiteral("device/getDevices"), unitsReply(units));
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    send(DeviceCommand::GetDevices);
    server.setDelay(20);
    QTRY_VERIFY(server.receivedNames().size() > 10);
    for (int click = 0; click < 5; ++click) {
        const int before = server.receivedNames().size();
        const QString asked = QStringLiteral("device/setVolume %1").arg(Data::parser.orderCounter);
        send(DeviceCommand::SetVolume, {{QStringLiteral("id"), 1}});
        QTRY_VERIFY(server.receivedNames().contains(asked));
        // One may be on its way, and one in flight.
        QVERIFY(server.receivedNames().indexOf(asked) <= before + 1);
    }
    QVERIFY(Data::tcpClient.waitingRequestCount() > units / 2);
}

void QueueTest::whatWaitsEndsWithTheSession()
{
    TestServer server;
    server.answer(QStringLiteral("device/getDevices"), unitsReply(3));
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    send(DeviceCommand::GetDevices);
    QTRY_COMPARE(Data::tcpClient.waitingRequestCount(), 2);
    Data::tcpClient.exit();
    QCOMPARE(Data::tcpClient.waitingRequestCount(), 0);
    QVERIFY(session.connectTo(server));
    sendRequests(1);
    QTRY_COMPARE(server.receivedNames().last(), getInternet + QLatin1Char('0'));
}

QTEST_GUILESS_MAIN(QueueTest)
#include "QueueTest.moc"
