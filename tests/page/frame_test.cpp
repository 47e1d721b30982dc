#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/ServerSettings.h"
#include "model/User.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "page/ScriptCall.h"
#include "support/TestServer.h"
#include "view/WebView.h"

#include <QJsonDocument>
#include <QWebFrame>
#include <QWebView>
#include <QtTest>

/// The session frame in a real view.
class FrameTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void frameAsksForWhatItMissed();
    void alarmOnAirIsToldInTheHeader();
    void hostileUserTitleIsText();
    void missingFragmentEmptiesItsRegion();
    void laterLoadOfARegionWins();
    void f11TogglesFullScreen();
    void aboutShowsBothVersions();
    void clockRunsOnFromTheServersTime();
    void lockOpensWithThePasswordOnly();
    void alarmDialogsOpenTheirPages_data();
    void alarmDialogsOpenTheirPages();
    void administrationShowsWhatTheRoleAllows();
    void lostSectionFallsBackAndKeepsTheLock();

private:
    QJsonObject lastRequest() const;
    void answerLastRequest(const QString& response) const;

    std::unique_ptr<Console> console;
};

void FrameTest::initTestCase()
{
    console = std::make_unique<Console>();
    QVERIFY(console->waitForPage("login.html"));
}

QJsonObject FrameTest::lastRequest() const
{
    const QVector<QByteArray>& queue = Data::tcpClient.queuedMessages();
    return queue.isEmpty() ? QJsonObject() : QJsonDocument::fromJson(queue.last()).object();
}

void FrameTest::answerLastRequest(const QString& response) const
{
    QJsonObject reply{{"order", lastRequest().value("order")}, {"response", response}};
    Data::parser.parse(QJsonDocument(reply).toJson());
}

void FrameTest::frameAsksForWhatItMissed()
{
    // The login's last reply comes before the page, or keeps it waiting.
    TestServer server;
    server.answerAll();
    server.onRequest("user/getInfo", {});
    const QString name = QStringLiteral("$('#global_user_name').text()");
    QVERIFY(console->showLogin());
    console->value(
        QStringLiteral("wrapper.login_tryLogin('admin', 'x', '127.0.0.1/%1')").arg(server.port()));
    QVERIFY(console->waitForPage("index.html"));
    QVERIFY(console->waitFor("$('#loadingModal').is(':visible') && $('.top_tab').length > 0"));
    QTRY_VERIFY(server.receivedNames().contains("user/getInfo 19"));
    console->picture("loading");
    server.send({{"order", 19},
                 {"response", "success"},
                 {"name", "admin"},
                 {"title", "Дежурный инженер"},
                 {"role", ""}});
    QVERIFY(console->waitFor(
        "!$('#loadingModal').is(':visible') && $('.modal-backdrop').length === 0"));

    QVERIFY(console->showSession());
    QCOMPARE(console->text(name), QStringLiteral(" A"));
    console->picture("frame");
}

void FrameTest::alarmOnAirIsToldInTheHeader()
{
    QVERIFY(console->showSession());
    QVERIFY(console->waitFor("$('#alarm_on_air').is(':hidden')"));
    for (int id = 1; id <= 3; ++id) {
        auto device = std::make_unique<Device>();
        device->setId(id);
        device->setPlaybackCategory(id == 1 ? 2 : id == 2 ? 6 : -4); // music and two alarms
        Data::deviceList.append(std::move(device));
    }
    QCOMPARE(console->text("$('#alarm_on_air:visible').text().trim()"),
             QStringLiteral("Тревога: 2"));
    Data::deviceList.find(3)->setPlaybackCategory(0);
    QCOMPARE(console->text("$('#alarm_on_air_text').text()"), QStringLiteral("Тревога: 1"));
    // Another page of the session, another frame: it is told afresh.
    console->value("$('#alarm_on_air').hide(); wrapper_Global_loadFrame()");
    QVERIFY(console->value("$('#alarm_on_air').is(':visible')").toBool());
    Data::deviceList.clear();
    QVERIFY(console->value("$('#alarm_on_air').is(':hidden')").toBool());
}

void FrameTest::hostileUserTitleIsText()
{
    QVERIFY(console->showSession());
    Page::call("wrapperInput_userGlobal_edit", hostileText);
    Data::serverSettings.setServerVersion(hostileText);
    console->value("modalShowVersion()");
    QVERIFY(console->waitFor("$('#modalShowVersion').hasClass('in')"));
    QVERIFY(console->text("$('#global_user_name').text()").contains("<img"));
    QVERIFY(console->text("$('#info_server_version').text()").contains("<img"));
    QVERIFY(
        console->value("$('img').length === 0 && typeof window.pwned === 'undefined'").toBool());
    Data::serverSettings.setServerVersion(QString());
}

void FrameTest::missingFragmentEmptiesItsRegion()
{
    QVERIFY(console->showSession());
    console->value("$('#main').append($('<p>')); loadMainBody('nowhere');"
                   "$('#modal').append($('<p>')); loadModal('nowhere');");
    QVERIFY(console->waitFor(
        "$('#main').children().length === 0 && $('#modal').children().length === 0"));
}

void FrameTest::laterLoadOfARegionWins()
{
    QVERIFY(console->showSession());
    console->value("loadTopMenu('settings'); loadTopMenu('device_list');");
    QVERIFY(console->waitFor("$('#top_menu #device_list').length > 0"));
    console->value("loadTopMenu('device_list'); loadTopMenu('nowhere');");
    QVERIFY(console->waitFor("$('#top_menu').children().length === 0"));
    QVERIFY(!QTest::qWaitFor(
        [&] { return console->value("$('#top_menu').children().length > 0").toBool(); }, 300));
}

void FrameTest::f11TogglesFullScreen()
{
    QWebView* const view = console->view().getView();
    const Qt::WindowStates before = view->windowState();
    QTest::keyClick(view, Qt::Key_F11);
    QVERIFY(view->windowState().testFlag(Qt::WindowFullScreen));
    QTest::keyClick(view, Qt::Key_F11);
    QCOMPARE(view->windowState(), before);
}

void FrameTest::aboutShowsBothVersions()
{
    QVERIFY(console->showSession());
    Data::serverSettings.setServerVersion(QStringLiteral("7.4.1"));
    console->value("$('#menu_about').click()");
    QVERIFY(console->waitFor("$('#modalShowVersion').hasClass('in')"));
    QVERIFY(console->text("$('#info_server_version').text()").contains("7.4.1"));
    QVERIFY(console->text("$('#info_client_version').text()").contains(Data::clientVersion));
}

void FrameTest::clockRunsOnFromTheServersTime()
{
    QVERIFY(console->showSession());
    Page::call("wrapperInput_global_setTime", QStringLiteral("2026-11-22 23:59:58"), 3);
    const QString first = console->text("$('#clock').text()");
    QVERIFY(first.endsWith(":59"));
    QVERIFY(console->waitFor("/:00$/.test($('#clock').text())"));
    // Setting it again replaces the running timer.
    Page::call("wrapperInput_global_setTime", QStringLiteral("2026-11-22 10:00:28"), 3);
    Page::call("wrapperInput_global_setTime", QStringLiteral("2026-11-22 10:00:28"), 3);
    QVERIFY(console->waitFor("/:30$/.test($('#clock').text())"));
}

void FrameTest::lockOpensWithThePasswordOnly()
{
    QVERIFY(console->showSession());
    console->view().modal_blockShow();
    console->view().modal_blockShow(); // comes again after each idle period
    QVERIFY(console->waitFor("$('#blockModal').hasClass('in') && "
                             "document.activeElement.id === 'block_password'"));
    console->picture("lock");
    QTest::keyClick(console->view().getView(), Qt::Key_Escape);
    QVERIFY(console->value("$('#blockModal').hasClass('in')").toBool());

    console->value("$('#block_password').val('мимо'); tryUnblock()");
    QCOMPARE(lastRequest().value("action").toString(), QStringLiteral("checkAccess"));
    QCOMPARE(lastRequest().value("target").toString(), QStringLiteral("login"));
    QCOMPARE(lastRequest().value("password").toString(),
             QStringLiteral("9cef944afe518ebd92735ed94e250e31"));
    answerLastRequest("forbidden");
    QVERIFY(console->waitFor("$('#blockModalWrongPassword').hasClass('in') && "
                             "$('#block_group').hasClass('has-error') && "
                             "$('#block_password').val() === ''"));
    QVERIFY(console->value("$('#blockModal').hasClass('in')").toBool());
    console->picture("lock-refused");

    console->value("modalBlockWrongPasswordHide(); $('#block_password').val('x'); tryUnblock()");
    answerLastRequest("success");
    QVERIFY(console->waitFor("!$('#blockModal').is(':visible') && "
                             "!$('#blockModalWrongPassword').is(':visible')"));
}

void FrameTest::alarmDialogsOpenTheirPages_data()
{
    QTest::addColumn<QString>("open");
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("ask");
    QTest::newRow("messages") << "warningBlock()"
                              << "#warning_access"
                              << "#alarm_password"
                              << "tryWarningUnblock()";
    QTest::newRow("microphone") << "microphoneBlock()"
                                << "#microphone_access"
                                << "#translation_password"
                                << "tryMicrophoneUnblock()";
}

void FrameTest::alarmDialogsOpenTheirPages()
{
    QFETCH(QString, open);
    QFETCH(QString, dialog);
    QFETCH(QString, field);
    QFETCH(QString, ask);
    QVERIFY(console->showSession());
    const QString isOpen = QStringLiteral("$('%1').hasClass('in')").arg(dialog);
    console->value(open);
    QVERIFY(console->waitFor(isOpen));
    console->value(QStringLiteral("$('%1').val('x');").arg(field) + ask);
    QCOMPARE(lastRequest().value("target").toString(), QStringLiteral("alarm"));
    answerLastRequest("forbidden");
    QVERIFY(console
                ->value(isOpen + QStringLiteral(" && $('%1 .has-error .help-block').text() === "
                                                "'Неправильный пароль'")
                                     .arg(dialog))
                .toBool());
    QCOMPARE(Data::waitForAlarm, 0);
    console->value(QStringLiteral("$('%1').val('x');").arg(field) + ask);
    answerLastRequest("success");
    QVERIFY(console->waitFor("!" + isOpen));
    QVERIFY(console->waitFor("$('#top_menu #device_list').length === 0"));
}

void FrameTest::administrationShowsWhatTheRoleAllows()
{
    QVERIFY(console->showSession());
    console->value("wrapperInput_roleGlobal_enable(); $('#menu_admin').click()");
    QVERIFY(console->waitFor("$('.admin_menu_active').attr('id') === 'admin_users' && "
                             "$('#back').length === 1"));
    console->picture("administration");
    QCOMPARE(console->text("$('#admin_title').text()"), QStringLiteral("Пользователи"));
    Page::call("wrapperInput_roleGlobal_editDeviceManagement", 0, "r", 0);
    QVERIFY(console->value("$('.admin_menu.hidden').length === 4").toBool());
    Page::call("wrapperInput_roleGlobal_editDeviceManagement", 0, "r", 1);
    QVERIFY(console->value("$('.admin_menu.hidden').length === 0").toBool());
    console->value("$('#admin_log').click()");
    QVERIFY(console->waitFor("$('.admin_menu_active').attr('id') === 'admin_log'"));
    console->value("$('#back').click()");
    QVERIFY(
        console->waitFor("$('#top_menu #device_list').length === 1 && $('#back').length === 0"));
    console->value("$('#menu_settings').click()");
    QVERIFY(console->waitFor("$('.settings_menu_active').attr('id') === 'files' && "
                             "$('#back').length === 1"));
    console->picture("settings");
}

void FrameTest::lostSectionFallsBackAndKeepsTheLock()
{
    QVERIFY(console->showSession());
    console->value("$('#menu_admin').click()");
    QVERIFY(console->waitFor("$('.admin_menu_active').attr('id') === 'admin_users'"));
    console->value("block()");
    QVERIFY(console->waitFor("$('#blockModal').hasClass('in')"));
    Page::call("wrapperInput_roleGlobal_editUserManagement", 0, "r", 0);
    QVERIFY(console->waitFor("$('#top_menu #device_list').length === 1 && "
                             "$('#adminRolePermissionLost').hasClass('in')"));
    QVERIFY(console->value("$('#blockModal').hasClass('in')").toBool());
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    FrameTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "frame_test.moc"
