#include "app/Data.h"
#include "model/ModelList.h"
#include "model/User.h"
#include "model/Zone.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "support/TestServer.h"

#include <QApplication>
#include <QtTest>

/// The login, step by step, with the real pages against a server that plays a script: what is
/// asked, in which order, and what stands on the screen when the connection ends at each step.
class LoginStepsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void asksForEverythingInOrder();
    void connectionLostAtAnyStepLeadsToTheLoginPage_data();
    void connectionLostAtAnyStepLeadsToTheLoginPage();
    void silentServerBlocksNoWindow();
    void refusedUserInformationEndsTheSession();

private:
    std::unique_ptr<TestServer> startServer();
    void logIn(const TestServer& server);

    std::unique_ptr<Console> console;
};

namespace
{

const QStringList steps = {
    "user/login",
    "helper/checkInternet",
    "helper/getDateTime",
    "helper/getCurrentServerVersion",
    "helper/checkServerUpdate",
    "role/getInfo",
    "role/getRedirection",
    "role/getServer",
    "role/list",
    "device/getDevices",
    "device/listFirmware",
    "zone/list",
    "playback/list",
    "playback/getPlays",
    "preset/list",
    "task/list",
    "task/getPlays",
    "user/list",
    "user/getConnected",
    "user/getInfo",
};

const QJsonObject userInformation{
    {"response", "success"}, {"name", "admin"}, {"title", "Администратор"}, {"role", ""}};

} // namespace

void LoginStepsTest::init()
{
    console.reset();
    console = std::make_unique<Console>();
    QVERIFY(console->showLogin());
}

std::unique_ptr<TestServer> LoginStepsTest::startServer()
{
    auto server = std::make_unique<TestServer>();
    server->answerAll();
    server->answer("user/getInfo", userInformation);
    return server;
}

void LoginStepsTest::logIn(const TestServer& server)
{
    console->value(QStringLiteral("wrapper.login_tryLogin('admin', 'пароль', '127.0.0.1/%1')")
                       .arg(server.port()));
}

void LoginStepsTest::asksForEverythingInOrder()
{
    const auto server = startServer();
    logIn(*server);
    QTRY_VERIFY(Data::getCurrentUser());
    QStringList wanted;
    for (int order = 0; order < steps.size(); ++order) {
        wanted.append(QStringLiteral("%1 %2").arg(steps.at(order)).arg(order));
    }
    QCOMPARE(server->receivedNames().mid(0, steps.size()), wanted);
    const QJsonObject login = server->received().first();
    QCOMPARE(login.value("version").toInt(), 9);
    QCOMPARE(login.value("password").toString(), QString("e242f36f4f95f12966da8fa2efd59992"));
    QVERIFY(console->waitForPage("index.html"));
    QVERIFY(console->waitFor("!$('#loadingModal').is(':visible')"));
    Data::tcpClient.exit();
    QVERIFY(console->waitForPage("login.html"));
}

void LoginStepsTest::connectionLostAtAnyStepLeadsToTheLoginPage_data()
{
    QTest::addColumn<int>("step");
    for (int step = 0; step < steps.size(); ++step) {
        QTest::newRow(qPrintable(steps.at(step))) << step;
    }
}

void LoginStepsTest::connectionLostAtAnyStepLeadsToTheLoginPage()
{
    QFETCH(int, step);
    const auto server = startServer();
    TestServer::Step end;
    end.closes = true;
    server->onRequest(steps.at(step), end);
    logIn(*server);
    QTRY_COMPARE(server->openConnectionCount(), 0);
    QTRY_COMPARE(Data::localPort, 0);
    QVERIFY(console->waitForPage("login.html"));
    QVERIFY(console->waitFor("$('.modal.in').length === 0"));
    QVERIFY(!Data::getCurrentUser());
    QVERIFY(Data::zoneList.isEmpty());

    // The next try works as the first would have.
    const auto next = startServer();
    logIn(*next);
    QTRY_VERIFY(Data::getCurrentUser());
    QVERIFY(console->waitForPage("index.html"));
    QVERIFY(console->waitFor("!$('#loadingModal').is(':visible')"));
    QCOMPARE(next->receivedNames().first(), QString("user/login 0"));
}

void LoginStepsTest::silentServerBlocksNoWindow()
{
    TestServer server(TestServer::Conduct::Silent);
    QElapsedTimer time;
    time.start();
    logIn(server);
    QVERIFY(time.elapsed() < 5000);
    QVERIFY(console->waitFor("$('#modalError').hasClass('in')"));
}

void LoginStepsTest::refusedUserInformationEndsTheSession()
{
    const auto server = startServer();
    server->answer("user/getInfo", {{"response", "forbidden"}});
    logIn(*server);
    QTRY_VERIFY(server->receivedNames().contains("user/getInfo 19"));
    QTRY_COMPARE(Data::localPort, 0);
    QVERIFY(console->waitForPage("login.html"));
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    LoginStepsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "login_steps_test.moc"
