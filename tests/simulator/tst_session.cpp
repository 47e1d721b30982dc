#include "simulator/Client.h"
#include "simulator/ServerFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTcpSocket>
#include <QtTest>

class TestSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void login_data();
    void login();
    void nothingButLoginBeforeLogin();
    void everyRequestIsAnsweredOnce();
    void unknownCommandsAreErrors_data();
    void unknownCommandsAreErrors();
    void streamMayBeCutAnywhere();
    void acknowledgementsAreNotAnswered();
    void brokenStreamsEndTheConnection_data();
    void brokenStreamsEndTheConnection();
    void lockPasswords_data();
    void lockPasswords();
    void deletedAccountLosesItsRights();
    void slowAndSilentServer();
};

void TestSession::login_data()
{
    QTest::addColumn<QJsonObject>("fields");
    QTest::addColumn<QJsonObject>("expected");

    const QString right = digestOf("operator");
    const QJsonObject accepted{{"response", "success"}};
    const QJsonObject refused{{"response", "error"}};
    const QJsonObject otherVersion{{"response", "required"}, {"version", 9}};
    QTest::newRow("right") << QJsonObject{{"version", 9}, {"user", "operator"}, {"password", right}}
                           << accepted;
    QTest::newRow("wrong password")
        << QJsonObject{{"version", 9}, {"user", "operator"}, {"password", digestOf("Operator")}}
        << refused;
    QTest::newRow("password not digested")
        << QJsonObject{{"version", 9}, {"user", "operator"}, {"password", "operator"}} << refused;
    QTest::newRow("upper-case digest")
        << QJsonObject{{"version", 9}, {"user", "operator"}, {"password", right.toUpper()}}
        << refused;
    QTest::newRow("no password") << QJsonObject{{"version", 9}, {"user", "operator"}} << refused;
    QTest::newRow("unknown account")
        << QJsonObject{{"version", 9}, {"user", "nobody"}, {"password", right}} << refused;
    QTest::newRow("no account") << QJsonObject{{"version", 9}} << refused;
    QTest::newRow("older console")
        << QJsonObject{{"version", 8}, {"user", "operator"}, {"password", right}} << otherVersion;
    QTest::newRow("newer console with a wrong password")
        << QJsonObject{{"version", 10}, {"user", "operator"}, {"password", ""}} << otherVersion;
    QTest::newRow("no version") << QJsonObject{{"user", "operator"}, {"password", right}}
                                << otherVersion;
}

void TestSession::login()
{
    QFETCH(QJsonObject, fields);
    QFETCH(QJsonObject, expected);
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.isConnected());

    QJsonObject reply = client.ask("user", "login", fields);
    reply.remove("order");
    QCOMPARE(reply, expected);
    const bool accepted = expected.value("response") == "success";
    QCOMPARE(server->connectedAccounts(), accepted ? QStringList{"operator"} : QStringList());
    QCOMPARE(client.ask("role", "getInfo").value("response").toString(),
             QString(accepted ? "success" : "error"));
}

void TestSession::nothingButLoginBeforeLogin()
{
    ServerFixture server;
    Client client(server->port());
    QCOMPARE(client.ask("device", "getDevices").value("response"), QJsonValue("error"));
    QVERIFY(client.logIn("viewer"));
    QCOMPARE(client.ask("device", "getDevices").value("response"), QJsonValue("success"));
    QCOMPARE(client.ask("user", "logout").value("response"), QJsonValue("success"));
    QCOMPARE(client.ask("device", "getDevices").value("response"), QJsonValue("error"));
}

void TestSession::everyRequestIsAnsweredOnce()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    QVector<int> orders;
    for (int count = 0; count < 50; ++count) {
        orders.append(client.send("device", count % 2 ? "getTitle" : "nonsense", {{"id", count}}));
    }
    QVector<int> answered;
    for (int count = 0; count < 50; ++count) {
        const QJsonObject reply = client.takeReply();
        QVERIFY(reply.value("response").isString());
        answered.append(reply.value("order").toInt(-1));
    }
    QCOMPARE(answered, orders);
    QVERIFY(client.ask("user", "getInfo").contains("name"));
    QVERIFY(client.replies.isEmpty());
}

void TestSession::unknownCommandsAreErrors_data()
{
    QTest::addColumn<QJsonObject>("request");
    QTest::newRow("protocol") << QJsonObject{{"request", "nonsense"}, {"action", "getState"}};
    QTest::newRow("action") << QJsonObject{{"request", "device"}, {"action", "nonsense"}};
    QTest::newRow("case of letters")
        << QJsonObject{{"request", "device"}, {"action", "getdevices"}};
    QTest::newRow("no action") << QJsonObject{{"request", "device"}};
    QTest::newRow("action is a number") << QJsonObject{{"request", "device"}, {"action", 2}};
    QTest::newRow("unknown unit") << QJsonObject{
        {"request", "device"}, {"action", "getState"}, {"id", 4711}};
    QTest::newRow("no unit") << QJsonObject{{"request", "device"}, {"action", "getState"}};
    QTest::newRow("unit is a text")
        << QJsonObject{{"request", "device"}, {"action", "getConfig"}, {"id", "1"}};
}

void TestSession::unknownCommandsAreErrors()
{
    QFETCH(QJsonObject, request);
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    request.insert("order", 7);
    client.sendRaw(QJsonDocument(request).toJson());
    QCOMPARE(client.takeReply(), (QJsonObject{{"order", 7}, {"response", "error"}}));
}

void TestSession::streamMayBeCutAnywhere()
{
    ServerFixture server;
    Client client(server->port());
    const QJsonObject login{{"request", "user"}, {"action", "login"},
                            {"order", 0},        {"version", 9},
                            {"user", "admin"},   {"password", digestOf("admin")}};
    for (char byte : QJsonDocument(login).toJson()) {
        client.sendRaw(QByteArray(1, byte));
    }
    QCOMPARE(client.takeReply().value("response"), QJsonValue("success"));

    client.sendRaw(R"({"request":"user","action":"getInfo","order":1}{"request":"role","action":)"
                   R"("getInfo","order":2})");
    QCOMPARE(client.takeReply().value("order"), QJsonValue(1));
    QCOMPARE(client.takeReply().value("order"), QJsonValue(2));
}

void TestSession::acknowledgementsAreNotAnswered()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    client.sendRaw(R"({"order":1000000,"response":"success"})");
    QCOMPARE(client.ask("user", "getInfo").value("response"), QJsonValue("success"));
    QVERIFY(client.replies.isEmpty());
}

void TestSession::brokenStreamsEndTheConnection_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("array") << QByteArray("[]");
    QTest::newRow("text") << QByteArray("hello");
    QTest::newRow("balanced but no JSON") << QByteArray("{hello}");
    QTest::newRow("no UTF-8") << QByteArray("{\"request\":\"\xff\xfe\"}");
    QTest::newRow("too deep") << "{\"a\":" + QByteArray(100000, '[');
}

void TestSession::brokenStreamsEndTheConnection()
{
    QFETCH(QByteArray, bytes);
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    Client other(server->port());
    client.sendRaw(bytes);
    QVERIFY(client.waitForEnd());
    QVERIFY(other.logIn("admin"));
    QTRY_COMPARE(server->sessionCount(), 1);

    QTcpSocket plain;
    plain.connectToHost("127.0.0.1", server->port());
    plain.write("{\"request\":\"user\"}");
    QTRY_COMPARE(plain.state(), QAbstractSocket::UnconnectedState);
    QTRY_COMPARE(server->sessionCount(), 1);
}

void TestSession::lockPasswords_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("response");
    QTest::newRow("login") << "login"
                           << "guard"
                           << "success";
    QTest::newRow("alarm") << "alarm"
                           << "alarm"
                           << "success";
    QTest::newRow("alarm password at the lock") << "login"
                                                << "alarm"
                                                << "forbidden";
    QTest::newRow("login password for the alarm") << "alarm"
                                                  << "guard"
                                                  << "forbidden";
    QTest::newRow("another account's") << "login"
                                       << "admin"
                                       << "forbidden";
    QTest::newRow("unknown target") << "door"
                                    << "guard"
                                    << "forbidden";
}

void TestSession::lockPasswords()
{
    QFETCH(QString, target);
    QFETCH(QString, password);
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("guard"));
    const QJsonObject reply =
        client.ask("user", "checkAccess", {{"target", target}, {"password", digestOf(password)}});
    QTEST(reply.value("response").toString(), "response");
}

void TestSession::deletedAccountLosesItsRights()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("guard"));
    server->installation().accounts.clear();
    QCOMPARE(client.ask("user", "getInfo").value("response"), QJsonValue("forbidden"));
}

void TestSession::slowAndSilentServer()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    server->setReplyDelay(60);
    QElapsedTimer clock;
    clock.start();
    const int first = client.send("user", "getInfo");
    const int second = client.send("role", "getInfo");
    QCOMPARE(client.takeReply().value("order").toInt(-1), first);
    QCOMPARE(client.takeReply().value("order").toInt(-1), second);
    QVERIFY(clock.elapsed() >= 100);

    server->setReplyDelay(0);
    server->setSilent(true);
    client.send("user", "getInfo");
    Client other(server->port());
    server->setSilent(false);
    QVERIFY(client.ask("role", "getInfo").contains("name"));
}

QTEST_GUILESS_MAIN(TestSession)
#include "tst_session.moc"
