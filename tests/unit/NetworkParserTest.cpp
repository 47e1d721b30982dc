#include "network/NetworkParser.h"
#include "support/LogRecorder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

namespace
{

/// A parser with the protocols "user" and "zone" of two commands each, and a list of what it does.
struct Bench {
    Bench()
    {
        for (const char* const name : {"user", "zone"}) {
            auto protocol = std::make_unique<NetworkProtocol>();
            protocol->setName(QLatin1String(name));
            for (const char* const commandName : {"add", "list"}) {
                NetworkCommand command;
                command.setName(QLatin1String(commandName));
                command.setFunction([=](const QJsonObject& reply) {
                    note(name + QByteArray("/") + commandName);
                    lastReply = reply;
                });
                protocol->addNetworkCommand(command);
            }
            parser.addProtocol(std::move(protocol));
        }
        parser.setAcknowledgementWriter([this](const QByteArray& text) {
            const QJsonObject written = QJsonDocument::fromJson(text).object();
            QCOMPARE(written.keys(),
                     (QStringList{QStringLiteral("order"), QStringLiteral("response")}));
            QCOMPARE(written.value(QLatin1String("response")).toString(),
                     QStringLiteral("success"));
            note("ack " + QByteArray::number(written.value(QLatin1String("order")).toInt(-1)));
        });
        parser.setPushHandler([this](const QJsonObject&) { note("push"); });
        parser.setForbiddenHook([this] { note("refresh"); });
    }

    void note(const QByteArray& event) { events.append(event); }
    void ask(int protocol, int command)
    {
        parser.writeJson({protocol, command});
    }
    void parse(const QByteArray& text) { parser.parse(text); }

    NetworkParser parser;
    QByteArrayList events;
    QJsonObject lastReply;
    LogRecorder log;
};

} // namespace

class NetworkParserTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void replyFindsItsHandlerAndRequest();
    void pushIsAcknowledgedThenHandled();
    void pushDoesNotShadowARequest();
    void forbiddenRefreshesTheRights_data();
    void forbiddenRefreshesTheRights();
    void unusableMessageIsLoggedAndDropped_data();
    void unusableMessageIsLoggedAndDropped();
    void aRequestIsAnsweredOnce();
    void resetStartsANewConnection();
    void trafficIsLogged();
};

void NetworkParserTest::replyFindsItsHandlerAndRequest()
{
    Bench bench;
    bench.ask(0, 0);
    bench.ask(1, 1);
    bench.ask(1, 0);
    bench.parse(R"({"order":1,"response":"success","extra":[1]})");
    const QJsonObject expected{
        {QStringLiteral("order"), 1},
        {QStringLiteral("response"), QStringLiteral("success")},
        {QStringLiteral("extra"), QJsonArray{1}},
        {QStringLiteral("requestReply"), QJsonObject{{QStringLiteral("request"), "zone"},
                                                     {QStringLiteral("action"), "list"},
                                                     {QStringLiteral("order"), 1}}}};
    QCOMPARE(bench.lastReply, expected);
    bench.parse(R"({"order":2,"response":"error"})");
    bench.parse(R"({"order":0,"response":"anything"})");
    QCOMPARE(bench.events, (QByteArrayList{"zone/list", "zone/add", "user/add"}));
    QCOMPARE(bench.parser.getPacketCount(), 0);
}

void NetworkParserTest::pushIsAcknowledgedThenHandled()
{
    Bench bench;
    bench.parse(R"({"request":"zone","action":"list","order":7})");
    bench.parse(R"({"request":"zone","action":"list","order":7})");
    bench.parse(R"({"request":"what","action":3,"order":8,"response":"success"})");
    bench.parse(R"({"request":"zone"})");
    bench.parse(R"({"request":"zone","order":"9"})");
    QCOMPARE(bench.events, (QByteArrayList{"ack 7", "push", "ack 7", "push", "ack 8", "push",
                                           "ack 0", "push", "ack 0", "push"}));
}

void NetworkParserTest::pushDoesNotShadowARequest()
{
    Bench bench;
    bench.parse(R"({"request":"zone","action":"reloadChanges","order":0})");
    bench.ask(1, 1);
    bench.parse(R"({"request":"zone","action":"reloadChanges","order":0})");
    bench.parse(R"({"order":0,"response":"success"})");
    QCOMPARE(bench.events.last(), QByteArray("zone/list"));
}

void NetworkParserTest::forbiddenRefreshesTheRights_data()
{
    QTest::addColumn<int>("protocol");
    QTest::addColumn<QByteArray>("response");
    QTest::addColumn<QByteArrayList>("expected");
    QTest::newRow("zone") << 1 << QByteArray("forbidden") << QByteArrayList{"refresh", "zone/list"};
    QTest::newRow("user") << 0 << QByteArray("forbidden") << QByteArrayList{"user/list"};
    QTest::newRow("another word") << 1 << QByteArray("Forbidden") << QByteArrayList{"zone/list"};
}

void NetworkParserTest::forbiddenRefreshesTheRights()
{
    QFETCH(int, protocol);
    QFETCH(QByteArray, response);
    QFETCH(QByteArrayList, expected);
    Bench bench;
    bench.ask(protocol, 1);
    bench.parse(R"({"order":0,"response":")" + response + "\"}");
    QCOMPARE(bench.events, expected);
}

void NetworkParserTest::unusableMessageIsLoggedAndDropped_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("logged");
    const auto row = [](const char* text, const char* logged) {
        QTest::newRow(text) << QByteArray(text) << QString::fromLatin1(logged);
    };
    row("", "Dropped message of 0 bytes");
    row("{\"order\":0,", "Dropped message of 11 bytes");
    row("{\"order\":0,\"response\":\"\xFF\"", "Dropped message of");
    row("{\"a\":[}", "Dropped message of 7 bytes");
    row("[]", "Dropped message of 2 bytes");
    row("{}", "neither reply nor push");
    row(R"({"order":0,"response":200})", "neither reply nor push");
    row(R"({"order":0,"request":["zone"]})", "neither reply nor push");
    row(R"({"order":5,"response":"success"})", "no request waits for it");
    row(R"({"order":-1,"response":"success"})", "no request waits for it");
    row(R"({"order":0.5,"response":"success"})", "no request waits for it");
    row(R"({"order":"0","response":"success"})", "no request waits for it");
    row(R"({"order":4294967296,"response":"success"})", "no request waits for it");
    row(R"({"response":"forbidden"})", "no request waits for it");
}

void NetworkParserTest::unusableMessageIsLoggedAndDropped()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, logged);
    Bench bench;
    bench.ask(1, 1);
    bench.parse(text);
    QCOMPARE(bench.events, QByteArrayList());
    QVERIFY(bench.log.hasLineWith(logged));
    // The request still waits, and its reply still arrives.
    bench.parse(R"({"order":0,"response":"success"})");
    QCOMPARE(bench.events, QByteArrayList{"zone/list"});
}

void NetworkParserTest::aRequestIsAnsweredOnce()
{
    Bench bench;
    bench.ask(1, 1);
    bench.parse(R"({"order":0,"response":"success"})");
    bench.parse(R"({"order":0,"response":"forbidden"})");
    QCOMPARE(bench.events, QByteArrayList{"zone/list"});
}

void NetworkParserTest::resetStartsANewConnection()
{
    Bench bench;
    bench.ask(1, 1);
    bench.ask(1, 1);
    bench.parser.reset();
    QCOMPARE(bench.parser.orderCounter, 0);
    bench.parse(R"({"order":1,"response":"success"})");
    QCOMPARE(bench.events, QByteArrayList());
}

void NetworkParserTest::trafficIsLogged()
{
    Bench bench;
    bench.ask(1, 1);
    bench.parse(R"({"order":0,"response":"secret"})");
    bench.parse(R"({"request":"zone","action":"list","order":1})");
    const QStringList expected{
        QStringLiteral("Packet answer: "),  QStringLiteral("Order id: 0"),
        QStringLiteral("Protocol: zone"),   QStringLiteral("Command: list"),
        QStringLiteral("Response: secret"), QStringLiteral("Input packet: ")};
    QStringList lines = bench.log.lines();
    lines.removeAll(QString());
    QCOMPARE(lines, expected); // whole documents are for the traffic trace only
}

QTEST_GUILESS_MAIN(NetworkParserTest)
#include "NetworkParserTest.moc"
