#include "app/Data.h"
#include "model/ModelList.h"
#include "model/User.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "session/DemoServer.h"
#include "view/WebView.h"

#include <QWebView>
#include <QtTest>

/// A user's way through the console, with the real pages and the demo server as a process of its
/// own: log in, look around, log out, lose the connection.
class SessionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void wrongPasswordIsToldAndLeavesTheLoginPage();
    void secondTryAfterARefusalLogsIn();
    void sessionFromLoginToLogout();
    void lostConnectionReturnsToTheLoginPage();
    void noServerIsTold();
    void unreachableServerIsTold();
    void exitLeavesTheProgram();

private:
    void logIn(const QString& user);
    void volumeFollowsTheAnswer();
    void zoneFiltersTheTiles();
    void devicePageShowsTheUnit();

    std::unique_ptr<Console> console;
    QTemporaryDir files;
    DemoServer server;
};

namespace
{

const char* const isModalOpen = "$('#%1').is(':visible') && $('#%1').hasClass('in')";

QString modalOpen(const char* id)
{
    return QString::fromLatin1(isModalOpen).arg(QLatin1String(id));
}

} // namespace

void SessionTest::initTestCase()
{
    QVERIFY(server.start(files.path()));
}

void SessionTest::cleanupTestCase()
{
    console.reset();
}

void SessionTest::init()
{
    console.reset();
    console = std::make_unique<Console>(std::vector<Server>{{"127.0.0.1", server.port(), true}});
    QVERIFY(console->showLogin());
    QVERIFY(console->value("$('#serverSelect option').length === 1").toBool());
}

void SessionTest::logIn(const QString& user)
{
    console->logIn(user, user);
    QVERIFY(console->waitForPage("index.html"));
    QVERIFY(console->waitFor(
        "typeof loadMainBody === 'function' && "
        "!$('#loadingModal').is(':visible') && $('#top_menu').children().length > 0"));
}

void SessionTest::wrongPasswordIsToldAndLeavesTheLoginPage()
{
    console->logIn("admin", "wrong");
    QVERIFY(console->waitFor(modalOpen("modalError")));
    QCOMPARE(console->text("$('#errorLabel').text()"),
             QStringLiteral("Неправильные учетные данные пользователя!"));
    console->picture("login-refused");
    // The server closes the refused connection: the dialog must stay.
    Data::tcpClient.exit();
    QVERIFY(
        !QTest::qWaitFor([&] { return !console->value(modalOpen("modalError")).toBool(); }, 300));
    QVERIFY(!Data::getCurrentUser());
}

void SessionTest::secondTryAfterARefusalLogsIn()
{
    console->logIn("admin", "wrong");
    QVERIFY(console->waitFor(modalOpen("modalError")));
    logIn("operator");
    QCOMPARE(Data::ip, QStringLiteral("127.0.0.1"));
    QCOMPARE(Data::port, int(server.port()));
    console->value("wrapper_Global_logout()");
    QVERIFY(console->waitForPage("login.html"));
}

void SessionTest::sessionFromLoginToLogout()
{
    console->picture("login");
    logIn("admin");
    QVERIFY(console->waitFor("$('#global_user_name').text().indexOf('Администратор') >= 0"));
    QVERIFY(console->waitFor("/^\\d\\d:\\d\\d:\\d\\d$/.test($('#clock').text())"));
    const QString time = console->text("$('#clock').text()");
    QVERIFY(console->waitFor(QStringLiteral("$('#clock').text() !== '%1'").arg(time)));
    QVERIFY(console->waitFor("$('.kelpa_item').length === 24 && $('.zone').length > 5"));
    console->value("$('.tile_select:not(.disabled)').slice(0, 3).click()");
    QVERIFY(console->text("$('#selected_devices').text()").endsWith(" 3"));
    console->picture("session");
    volumeFollowsTheAnswer();
    zoneFiltersTheTiles();
    devicePageShowsTheUnit();

    console->value("$('#menu_about').click()");
    QVERIFY(console->waitFor(modalOpen("modalShowVersion")));
    QVERIFY(console->text("$('#info_client_version').text()").contains(Data::clientVersion));
    QVERIFY(!console->text("$('#info_server_version').text()").isEmpty());
    console->picture("about");

    console->value("wrapper_Global_logout()");
    QVERIFY(console->waitForPage("login.html"));
    QVERIFY(!Data::getCurrentUser());
    QVERIFY(Data::zoneList.isEmpty());
    QCOMPARE(Data::localPort, 0);
    QCOMPARE(console->scriptErrors(), QStringList());
}

void SessionTest::volumeFollowsTheAnswer()
{
    const QString volumes =
        "$('.tile_select.fa-check-square-o').closest('.tile').find('.tile_volume div').toArray()"
        ".map(function (bar) { return bar.getAttribute('data-value'); }).join()";
    console->value("$('#volume_value').val(37).mouseup()");
    QVERIFY(console->text(volumes) != "37,37,37");
    QVERIFY(console->waitFor(volumes + " === '37,37,37'"));
}

void SessionTest::zoneFiltersTheTiles()
{
    console->value("$('.zone_hard').eq(2).click()");
    const QString shown = "$('.tile:visible').length";
    QVERIFY(console->waitFor(shown + " > 0 && " + shown + " < 24"));
    console->picture("session-zone");
    console->value("$('#zone_0').click()");
    QVERIFY(console->waitFor(shown + " === 24"));
}

void SessionTest::devicePageShowsTheUnit()
{
    const QString name = console->text("$('.tile_name').eq(1).text()");
    console->value("$('.kelpa_item').eq(1).click()");
    QVERIFY(console->waitFor(QStringLiteral("$('#device_name').text() === '%1'").arg(name)));
    QVERIFY(
        console->waitFor("$('.device_menu').length === 24 && $('#line_control tr').length > 0"));
    QVERIFY(console->waitFor("$('.zone_row:visible').length > 0"));
    console->picture("device");
    console->value("$('#device_volume').val(64).mouseup()");
    QVERIFY(console->waitFor("$('.online_active .tile_volume div')[0].style.width === '64%'"));
    console->value("$('.device_menu').eq(5).click()");
    QVERIFY(console->waitFor(QStringLiteral("$('#device_name').text() !== '%1'").arg(name)));
    console->picture("device-other");
    console->value("$('#back').click()");
    QVERIFY(console->waitFor("$('.tile').length === 24"));
}

void SessionTest::lostConnectionReturnsToTheLoginPage()
{
    logIn("operator");
    server.kill();
    QVERIFY(console->waitForPage("login.html"));
    QVERIFY(!Data::getCurrentUser());
    QVERIFY(console->waitFor(
        QStringLiteral("$('#login_notice').text() === 'Соединение с сервером потеряно'")));
    console->picture("login-connection-lost");
    QVERIFY(server.start(files.path(), server.port()));
    QVERIFY(console->waitFor("$('#serverSelect option').length > 0"));
    logIn("operator");
    console->value("wrapper_Global_logout()");
    QVERIFY(console->waitForPage("login.html"));
    QVERIFY(console->waitFor("$('#serverSelect option').length > 0"));
    QCOMPARE(console->text("$('#login_notice').text()"), QString());
}

void SessionTest::noServerIsTold()
{
    QVERIFY(console->waitFor("$('#serverSelect option').length > 0"));
    console->value("$('#serverSelect').empty()");
    console->logIn("admin", "admin");
    QVERIFY(console->waitFor(modalOpen("modalNoServer")));
    console->picture("login-no-server");
}

void SessionTest::unreachableServerIsTold()
{
    console->value("addServerOption('127.0.0.1', '1', 1)");
    console->value("wrapper.login_tryLogin('admin', 'admin', '127.0.0.1/1')");
    QVERIFY(console->waitFor(modalOpen("modalError")));
    QCOMPARE(console->text("$('#errorLabel').text()"),
             QStringLiteral("Произошла ошибка подключения к серверу!"));
    // An address that is none falls back to the default server, which a list may lack.
    console->servers().deleteServer("127.0.0.1", server.port());
    console->view().login_tryLogin("admin", "admin", "nonsense");
    QVERIFY(console->waitFor(modalOpen("modalError")));
}

void SessionTest::exitLeavesTheProgram()
{
    logIn("admin");
    QVERIFY(console->view().getView()->isVisible());
    console->value("wrapper_Global_exit()");
    QTRY_VERIFY(!console->view().getView()->isVisible());
    QCOMPARE(Data::tcpClient.getLocalPort(), 0);
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    SessionTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "session_test.moc"
