#include "app/Data.h"
#include "model/ModelList.h"
#include "model/ServerSettings.h"
#include "model/User.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "protocol/Request.h"
#include "support/SessionFixture.h"
#include "support/TestServer.h"

#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

namespace
{

const QJsonObject success{{QStringLiteral("response"), QStringLiteral("success")}};
const QJsonObject reloadZones{{QStringLiteral("request"), QStringLiteral("zone")},
                              {QStringLiteral("action"), QStringLiteral("reloadChanges")},
                              {QStringLiteral("order"), 5}};

/// Longer than the handshake may take, with what a busy machine needs on top.
constexpr int handshakeBoundMilliseconds = TcpClient::encryptedTimeoutMilliseconds + 2000;

int unusedPort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

} // namespace

class ConnectionTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void noServerIsNoConnection_data();
    void noServerIsNoConnection();
    void wrongServerIsNoConnection_data();
    void wrongServerIsNoConnection();
    void serverThatHangsUpAtOnceEndsTheSession();
    void greetingBehindTheHandshakeIsRead();
    void lostConnectionEndsTheSession_data();
    void lostConnectionEndsTheSession();
    void closeEndsNoSession();
    void secondTryReplacesTheConnection();
    void nothingBehindTheEndOfASessionIsHandled();
    void sessionMayBeStartedWhereOneEnds();
    void changedCertificateIsTold();
    void loginIsNotInTheLog();
};

void ConnectionTest::noServerIsNoConnection_data()
{
    QTest::addColumn<int>("port");
    QTest::newRow("nobody listens") << unusedPort();
    QTest::newRow("zero") << 0;
    QTest::newRow("negative") << -2049;
    QTest::newRow("too large") << 65536 + 2049;
}

void ConnectionTest::noServerIsNoConnection()
{
    QFETCH(int, port);
    const SessionFixture session;
    QVERIFY(!Data::tcpClient.connectToServer(QStringLiteral("127.0.0.1"), port));
    QVERIFY(session.log.contains(QStringLiteral("SSL error count 0")));
    QCOMPARE(session.endCount(), 0);
}

void ConnectionTest::wrongServerIsNoConnection_data()
{
    QTest::addColumn<int>("conduct");
    QTest::newRow("says nothing") << int(TestServer::Conduct::Silent);
    QTest::newRow("speaks in clear text") << int(TestServer::Conduct::Plain);
    QTest::newRow("hangs up") << int(TestServer::Conduct::HangsUp);
}

void ConnectionTest::wrongServerIsNoConnection()
{
    QFETCH(int, conduct);
    const TestServer wrong(static_cast<TestServer::Conduct>(conduct));
    TestServer right;
    SessionFixture session;
    QElapsedTimer clock;
    clock.start();
    QVERIFY(!session.connectTo(wrong));
    QVERIFY(clock.elapsed() < handshakeBoundMilliseconds);
    QVERIFY(session.log.contains(QStringLiteral("SSL error count 0")));
    QTRY_COMPARE(wrong.openConnectionCount(), 0);
    // The next try, at a server that is one, isn't disturbed.
    QVERIFY(session.connectTo(right));
    send(HelperCommand::CheckInternet);
    QTRY_COMPARE(right.receivedNames(), QStringList{QStringLiteral("helper/checkInternet 0")});
    QCOMPARE(session.endCount(), 0);
}

void ConnectionTest::serverThatHangsUpAtOnceEndsTheSession()
{
    const TestServer server(TestServer::Conduct::HangsUpLater);
    SessionFixture session;
    // Whether the end is seen before or after the connect returns is a matter of luck.
    const int expectedEnds = session.connectTo(server) ? 1 : 0;
    QTRY_COMPARE(server.openConnectionCount(), 0);
    QTRY_COMPARE(session.endCount(), expectedEnds);
}

void ConnectionTest::greetingBehindTheHandshakeIsRead()
{
    const TestServer server(TestServer::Conduct::OldTls);
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    QTRY_COMPARE(server.receivedNames(), QStringList{QStringLiteral("ack 1")});
}

void ConnectionTest::lostConnectionEndsTheSession_data()
{
    QTest::addColumn<QVector<QJsonObject>>("last");
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<bool>("answered");
    QTest::newRow("without an answer") << QVector<QJsonObject>() << QByteArray() << false;
    QTest::newRow("behind the answer") << QVector<QJsonObject>{success} << QByteArray() << true;
    QTest::newRow("in the middle of an object")
        << QVector<QJsonObject>{success} << QByteArray(R"({"request":"zo)") << true;
}

void ConnectionTest::lostConnectionEndsTheSession()
{
    QFETCH(QVector<QJsonObject>, last);
    QFETCH(QByteArray, rest);
    QFETCH(bool, answered);
    TestServer server;
    server.onRequest(QStringLiteral("helper/checkInternet"), {last, rest, true});
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    Data::localPort = Data::tcpClient.getLocalPort();
    QVERIFY(Data::localPort > 0);
    Data::userList.append(std::make_unique<User>());
    send(HelperCommand::CheckInternet);
    send(HelperCommand::GetDateTime);
    QTRY_COMPARE(session.endCount(), 1);
    QCOMPARE(Data::serverSettings.getInternetStatus(), answered);
    QVERIFY(Data::userList.isEmpty());
    QCOMPARE(Data::localPort, 0);
    QCOMPARE(Data::tcpClient.getLocalPort(), 0);
    QCOMPARE(Data::parser.orderCounter, 0);
    QCOMPARE(SessionFixture::queued(), QStringList());
}

void ConnectionTest::closeEndsNoSession()
{
    TestServer server;
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    Data::tcpClient.close();
    QTRY_COMPARE(server.openConnectionCount(), 0);
    QCoreApplication::processEvents();
    QCOMPARE(session.endCount(), 0);
}

void ConnectionTest::secondTryReplacesTheConnection()
{
    TestServer server;
    server.answer(QStringLiteral("user/login"),
                  {{QStringLiteral("response"), QStringLiteral("error")}});
    SessionFixture session;
    for (int attempt = 1; attempt <= 2; ++attempt) {
        Data::ip = QStringLiteral("127.0.0.1");
        Data::port = server.port();
        QVERIFY(session.connectTo(server));
        QCOMPARE(Data::localPort, 0); // the lines of this try aren't those of the last connection
        Data::localPort = Data::tcpClient.getLocalPort();
        send(UserCommand::Login);
        QTRY_COMPARE(server.receivedNames().size(), attempt);
        QTRY_COMPARE(Data::parser.getPacketCount(), 0);
    }
    QTRY_COMPARE(server.openConnectionCount(), 1);
    QCOMPARE(server.connectionCount(), 2);
    QCOMPARE(server.receivedNames(),
             (QStringList{QStringLiteral("user/login 0"), QStringLiteral("user/login 0")}));
    // The login's success is yet to look for the server by these.
    QCOMPARE(Data::port, server.port());
    QCOMPARE(session.endCount(), 0);
}

void ConnectionTest::nothingBehindTheEndOfASessionIsHandled()
{
    TestServer server;
    server.onRequest(QStringLiteral("user/logout"), {{success, reloadZones, success}});
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    send(UserCommand::Logout);
    QTRY_COMPARE(session.endCount(), 1);
    QTRY_COMPARE(server.openConnectionCount(), 0);
    QCOMPARE(SessionFixture::queued(), QStringList());
    QCOMPARE(server.receivedNames(), QStringList{QStringLiteral("user/logout 0")});
    QVERIFY(!session.log.hasLineWith(QStringLiteral("Input packet")));
    QVERIFY(!session.log.hasLineWith(QStringLiteral("Dropped")));
}

void ConnectionTest::sessionMayBeStartedWhereOneEnds()
{
    TestServer server;
    server.onRequest(QStringLiteral("user/logout"), {{success, reloadZones}});
    SessionFixture session;
    QVERIFY(session.connectTo(server));
    Data::tcpClient.setSessionEndHook([&] {
        session.connectTo(server);
        send(HelperCommand::CheckInternet);
    });
    send(UserCommand::Logout);
    QTRY_COMPARE(server.receivedNames(), (QStringList{QStringLiteral("user/logout 0"),
                                                      QStringLiteral("helper/checkInternet 0")}));
    QCOMPARE(server.connectionCount(), 2);
}

void ConnectionTest::changedCertificateIsTold()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("fingerprints.json"));
    const QString told = QStringLiteral("Server certificate is another than last time");
    TestServer server;
    const QString address = QStringLiteral("127.0.0.1/%1").arg(server.port());
    const auto write = [&](const QByteArray& text) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    // The file before, and whether the next connection finds a change.
    const QVector<QPair<QByteArray, bool>> steps{{"", false},
                                                 {"", false},
                                                 {"{broken", false},
                                                 {R"({"%1":"aa:bb","other/1":"cc"})", true},
                                                 {"", false}};
    for (const auto& [before, changed] : steps) {
        if (!before.isEmpty()) {
            write(QByteArray(before).replace("%1", address.toLatin1()));
        }
        SessionFixture session;
        Data::tcpClient.setFingerprintFile(path);
        QVERIFY(session.connectTo(server));
        QCOMPARE(Data::tcpClient.hasPeerChanged(), changed);
        QCOMPARE(session.log.contains(told), changed);
        QVERIFY(session.log.hasLineWith(QStringLiteral("Server certificate SHA-256: ")));
        QFile file(path);
        QCOMPARE(file.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QJsonObject kept = QJsonDocument::fromJson(file.readAll()).object();
        QCOMPARE(kept.value(address).toString().size(), 32 * 3 - 1);
    }
    Data::tcpClient.setFingerprintFile({});
}

void ConnectionTest::loginIsNotInTheLog()
{
    TestServer server;
    server.answerAll();
    SessionFixture session;
    Data::debugMode = true;
    QVERIFY(session.connectTo(server));
    send(UserCommand::Login, {{QStringLiteral("user"), QStringLiteral("guard")},
                              {QStringLiteral("password"), QStringLiteral("secret")}});
    QTRY_COMPARE(Data::parser.getPacketCount(), 0);
    QVERIFY(session.log.hasLineWith(QStringLiteral("Quered message: ")));
    QVERIFY(session.log.hasLineWith(QStringLiteral("guard")));
    QVERIFY(!session.log.hasLineWith(QStringLiteral("secret")));
}

QTEST_GUILESS_MAIN(ConnectionTest)
#include "ConnectionTest.moc"
