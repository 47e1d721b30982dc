#include "network/NetworkParser.h"
#include "app/Data.h"
#include "network/Redaction.h"
#include "support/LogRecorder.h"

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>
#include <QTimer>

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
    void ask(int protocol, int command) { parser.writeJson({protocol, command}); }
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
    void longTextsAreNotRemembered();
    void causeOfARequest_data();
    void causeOfARequest();
    void passwordsStayOutOfTheLog_data();
    void passwordsStayOutOfTheLog();
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

void NetworkParserTest::longTextsAreNotRemembered()
{
    constexpr int limit = NetworkParser::maximumRememberedText;
    Bench bench;
    const OutgoingMessage sent =
        bench.parser.writeJson({1,
                                0,
                                {{QStringLiteral("title"), QString(limit, QLatin1Char('t'))},
                                 {QStringLiteral("data"), QString(limit + 1, QLatin1Char('d'))}}});
    QVERIFY(sent.text.contains("ddd"));
    bench.parse(R"({"order":0,"response":"success"})");
    const QJsonObject asked = bench.lastReply.value(QLatin1String("requestReply")).toObject();
    QCOMPARE(asked.keys(), (QStringList{QStringLiteral("action"), QStringLiteral("order"),
                                        QStringLiteral("request"), QStringLiteral("title")}));
}

void NetworkParserTest::causeOfARequest_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("asked");
    QTest::addColumn<int>("inReply");
    const int add = 0;
    const int list = 1;
    const auto row = [](const char* name, int command, Cause asked, Cause inReply) {
        QTest::newRow(name) << command << int(asked) << int(inReply);
    };
    row("what an operator's doing leads to", add, Cause::Operator, Cause::Operator);
    row("what an operator's question leads to", list, Cause::Operator, Cause::Console);
    row("what the console leads to", add, Cause::Console, Cause::Console);
}

void NetworkParserTest::causeOfARequest()
{
    QFETCH(int, command);
    QFETCH(int, asked);
    QFETCH(int, inReply);
    Bench bench;
    QCOMPARE(int(bench.parser.currentCause()), int(Cause::Operator));
    bench.parser.writeJson({0, command, {}, static_cast<Cause>(asked)});
    int seen = -1;
    bench.parser.setForbiddenHook([&] { seen = int(bench.parser.currentCause()); });
    bench.parser.setPushHandler([&](const QJsonObject&) {
        QCOMPARE(int(bench.parser.currentCause()), int(Cause::Console));
        QEventLoop loop; // an operator may click while a handler waits
        QTimer::singleShot(0, &loop, [&] {
            QCOMPARE(int(bench.parser.currentCause()), int(Cause::Operator));
            loop.quit();
        });
        loop.exec();
    });
    bench.parser.writeJson({1, command, {}, static_cast<Cause>(asked)});
    bench.parse(R"({"order":1,"response":"forbidden"})");
    QCOMPARE(seen, inReply);
    bench.parse(R"({"request":"zone","action":"list","order":1})");
    QCOMPARE(int(bench.parser.currentCause()), int(Cause::Operator));
}

void NetworkParserTest::passwordsStayOutOfTheLog_data()
{
    QTest::addColumn<QByteArray>("message");
    for (const char* const text :
         {R"({"password":"secret"})",
          R"({"a":1,"passwordForAlarm":"se\"cret","z":"\"password\": 2"})",
          R"({"user":{"Password":["secret",{"b":"secret"}],"z":1}})",
          R"({"newPassword":{"a":"secret"}})",
          R"({"password":"secret","title":"password","request":"user"})"}) {
        QTest::newRow(text) << QByteArray(text);
    }
}

void NetworkParserTest::passwordsStayOutOfTheLog()
{
    QFETCH(QByteArray, message);
    Data::debugMode = true;
    Bench bench;
    bench.ask(0, 0);
    const QJsonObject fields = QJsonDocument::fromJson(message).object();
    QJsonObject reply = fields;
    reply.insert(QStringLiteral("order"), 0);
    reply.insert(QStringLiteral("response"), QStringLiteral("success"));
    bench.parse(QJsonDocument(reply).toJson());
    bench.parse(message);
    Data::debugMode = false;
    QVERIFY(bench.log.hasLineWith(QStringLiteral("***")));
    QVERIFY(!bench.log.hasLineWith(QStringLiteral("cret")));
    // What is left is still the message, in either form of its text.
    for (const auto form : {QJsonDocument::Indented, QJsonDocument::Compact}) {
        const QByteArray kept = redacted(QJsonDocument(reply).toJson(form));
        QCOMPARE(QJsonDocument::fromJson(kept).object().keys(), reply.keys());
        QVERIFY(!kept.contains("cret"));
    }
}

QTEST_GUILESS_MAIN(NetworkParserTest)
#include "NetworkParserTest.moc"
