#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/ServerSettings.h"
#include "model/User.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "page/ScriptCall.h"
#include "protocol/ZoneMembership.h"
#include "view/LocalPage.h"
#include "view/WebView.h"

#include <QJsonDocument>
#include <QMouseEvent>
#include <QWebFrame>
#include <QWebView>
#include <QtTest>

/// The session frame and the home page in a real view.
class FrameTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void frameAsksForWhatItMissed();
    void hostileUserTitleIsText();
    void hostileNamesOfUnitsAndZonesAreText();
    void hostileNamesOnTheDevicePageAreText();
    void emptyZoneSaysSo();
    void largeFleetFillsWithoutBlocking();
    void unitGoesWhileItsPageIsOpen();
    void comingBackShowsTheSameAsStaying();
    void stormOfPushesLeavesThePageAsTheMirror();
    void missingFragmentEmptiesItsRegion();
    void laterLoadOfARegionWins();
    void failingScriptTakesNoOtherAlong();
    void f11TogglesFullScreen();
    void aboutShowsBothVersions();
    void clockRunsOnFromTheServersTime();
    void lockOpensWithThePasswordOnly();
    void alarmDialogsOpenTheirPages_data();
    void alarmDialogsOpenTheirPages();
    void administrationShowsWhatTheRoleAllows();
    void lostSectionFallsBackAndKeepsTheLock();
    void arrowKeysWalkTheList();

private:
    void showFrame();
    void makeFleet(int units) const;
    void receive(const QJsonObject& message) const;
    QJsonObject lastRequest() const;
    void answerLastRequest(const QString& response) const;

    std::unique_ptr<Console> console;
};

namespace
{

const QString hostile = QStringLiteral("\"><img src=x onerror=\"window.pwned=1\">'\\\n</script>");

/// A state that is another at each call.
QJsonObject statePush(int order, int id)
{
    return {{"request", "device"},
            {"action", "setState"},
            {"order", order},
            {"deviceId", id},
            {"link", order % 3 ? "bidirectional" : "none"},
            {"battery", order % 5 ? "ok" : "none"},
            {"batteryLevel", order % 101},
            {"case", order % 2 ? "open" : "close"},
            {"volume", order % 97},
            {"playback", order % 4 ? "none" : "microphone"}};
}

/// A script that tells all that can be seen of some elements and those within.
QString looksOf(const char* selector)
{
    return QStringLiteral("$('%1').find('*').addBack().toArray().map(function (element) {"
                          "  return [element.id, element.className.split(/\\s+/).sort().join(' '),"
                          "          element.title, element.style.cssText,"
                          "          element.children.length ? '' : element.textContent].join();"
                          "}).join('\\n')")
        .arg(QLatin1String(selector));
}

/// As the window system tells it; QTest's own way needs a pointer, which the offscreen platform
/// lacks.
void moveMouse(QWidget* widget, const QPoint& position)
{
    QMouseEvent move(QEvent::MouseMove, position, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
}

} // namespace

void FrameTest::initTestCase()
{
    console = std::make_unique<Console>();
    QVERIFY(console->waitForPage("login.html"));
}

void FrameTest::cleanup()
{
    Data::tcpClient.close();
    Data::deviceList.clear();
}

void FrameTest::showFrame()
{
    console->load(LocalPage::sessionUrl);
    QVERIFY(console->waitForPage("index.html"));
    QVERIFY(console->waitFor(
        "$('#top_menu #device_list').length > 0 && $('#modalShowVersion').length > 0"));
}

QJsonObject FrameTest::lastRequest() const
{
    const QVector<QByteArray>& queue = Data::tcpClient.queuedMessages();
    return queue.isEmpty() ? QJsonObject() : QJsonDocument::fromJson(queue.last()).object();
}

void FrameTest::makeFleet(int units) const
{
    Data::deviceList.clear();
    for (int id = 1; id <= units; ++id) {
        auto device = std::make_unique<Device>();
        device->setId(id);
        device->setName(QStringLiteral("Громкоговоритель %1").arg(id));
        device->setStatus(DeviceOnline);
        Data::deviceList.append(std::move(device));
    }
}

void FrameTest::receive(const QJsonObject& message) const
{
    Data::parser.parse(QJsonDocument(message).toJson());
}

void FrameTest::answerLastRequest(const QString& response) const
{
    QJsonObject reply{{"order", lastRequest().value("order")}, {"response", response}};
    Data::parser.parse(QJsonDocument(reply).toJson());
}

void FrameTest::frameAsksForWhatItMissed()
{
    // The login has ended before the page has arrived.
    auto user = std::make_unique<User>();
    user->setCurrent(true);
    user->setTitle(QStringLiteral("Дежурный инженер"));
    Data::userList.append(std::move(user));
    showFrame();
    QVERIFY(console->waitFor("$('#global_user_name').text().indexOf('Дежурный инженер') >= 0"));
    QVERIFY(console->waitFor(
        "!$('#loadingModal').is(':visible') && $('.modal-backdrop').length === 0"));
    console->picture("frame");

    Data::userList.clear();
    showFrame();
    QVERIFY(console->waitFor("$('#loadingModal').is(':visible')"));
    console->picture("loading");
    Page::call("modalLoadingHide");
    QVERIFY(console->waitFor("!$('#loadingModal').is(':visible')"));
}

void FrameTest::hostileUserTitleIsText()
{
    showFrame();
    Page::call("wrapperInput_userGlobal_edit", hostile);
    Data::serverSettings.setServerVersion(hostile);
    console->value("modalLoadingHide(); modalShowVersion()");
    QVERIFY(console->waitFor("$('#modalShowVersion').hasClass('in')"));
    QVERIFY(console->text("$('#global_user_name').text()").contains("<img"));
    QVERIFY(console->text("$('#info_server_version').text()").contains("<img"));
    QVERIFY(
        console->value("$('img').length === 0 && typeof window.pwned === 'undefined'").toBool());
    Data::serverSettings.setServerVersion(QString());
}

void FrameTest::hostileNamesOfUnitsAndZonesAreText()
{
    showFrame();
    QVERIFY(
        console->waitFor("$('#sub_zone_0').length === 1 && $('#main_kelpa_list').length === 1"));
    Page::call("wrapperInput_zone_add", 5, 0, hostile, QString(), 0);
    Page::call("wrapperInput_device_add", 7, hostile, 2, 30, 0, true);
    Page::call("wrapperInput_device_setTask", 7, 1, hostile);
    QCOMPARE(console->text("$('#device_name_7').text()"), hostile);
    QCOMPARE(console->text("$('#zone_name_5').text()"), hostile);
    Page::call("wrapperInput_device_setName", 7, hostile + "2");
    Page::call("wrapperInput_zone_setName", 5, hostile + "2", QString());
    QCOMPARE(console->text("$('#device_name_7').text()"), hostile + "2");
    QVERIFY(
        console->value("$('img').length === 0 && typeof window.pwned === 'undefined'").toBool());
}

void FrameTest::hostileNamesOnTheDevicePageAreText()
{
    showFrame();
    console->value("deviceForLoad = 7; wrapperLoadDeviceInfo(7)");
    QVERIFY(console->waitFor(
        "$('#deviceList').length === 1 && $('#device_panel .panel_row').length > 9"));
    Page::call("wrapperInput_device_add", 7, hostile, 2, 30, 0, true);
    Page::call("wrapperInput_device_setId", 7);
    Page::call("wrapperInput_device_setName", 7, hostile);
    Page::call("wrapperInput_device_setPlaybackInfo", 7, hostile, hostile);
    Page::call("wrapperInput_device_setTask", 7, 1, hostile);
    Page::call("wrapperInput_device_addScenario", 7, 0, hostile, 1, 1, 1, 0, 0);
    Page::call("wrapperInput_deviceLine_add", 7, 1, hostile, 0, false, true);
    Page::call("wrapperInput_zone_add", 5, 0, hostile, hostile, 0);
    for (const char* const label : {"#device_name", "#device_playlist", "#device_schedule",
                                    "#line_control_name_1", "#scenario_0 td:eq(1)"}) {
        QCOMPARE(console->text(QStringLiteral("$('%1').text()").arg(QLatin1String(label))),
                 hostile);
    }
    QVERIFY(console->text("$('#zone_5').text()").contains("<img"));
    QVERIFY(
        console->value("$('img').length === 0 && typeof window.pwned === 'undefined'").toBool());
}

void FrameTest::emptyZoneSaysSo()
{
    showFrame();
    QVERIFY(console->waitFor("$('#sub_zone_0').length === 1 && $('#no_devices').is(':visible')"));
    Page::call("wrapperInput_zone_add", 5, 0, QStringLiteral("Двор"), QString(), 1);
    Page::call("wrapperInput_device_add", 7, QStringLiteral("Мачта"), 2, 30, 0, true);
    QVERIFY(!console->value("$('#no_devices').is(':visible')").toBool());
    console->value("$('#zone_5').click()");
    QVERIFY(
        console->value("$('#no_devices').is(':visible') && !$('.tile').is(':visible')").toBool());
    Page::call("wrapperInput_zone_includeDevice", 5, 7);
    QVERIFY(
        console->value("!$('#no_devices').is(':visible') && $('.tile').is(':visible')").toBool());
    // Losing its link takes a unit out of the selection.
    console->value("$('#device_button_7').click()");
    QVERIFY(console->text("$('#selected_devices').text()").endsWith(" 1"));
    Page::call("wrapperInput_device_linkOff", 7);
    console->value("$('#device_button_7').click()");
    QCOMPARE(console->text("$('#selected_devices').text()"),
             QStringLiteral("Устройства не выбраны"));
    Page::call("wrapperInput_device_delete", 7);
    QVERIFY(console->value("$('#no_devices').is(':visible')").toBool());
    Page::call("wrapperInput_zone_delete", 5);
    QVERIFY(console->value("$('#zone_0').hasClass('zone_active')").toBool());
}

void FrameTest::largeFleetFillsWithoutBlocking()
{
    makeFleet(200);
    showFrame();
    // A click comes through while tiles are still missing, and what changes meanwhile is right.
    QVERIFY(console->waitFor("$('.tile').length >= 40"));
    const int shown = console->value("$('.tile').length").toInt();
    QVERIFY2(shown < 200, "all tiles came in one go");
    Data::getDeviceById(200)->setVolume(77);
    ZoneMembership::forget(199);
    QVERIFY(console->waitFor("$('.tile').length === 199"));
    QCOMPARE(console->text("$('#device_volume_200').parent().attr('title')"),
             QStringLiteral("Громкость: 77"));
    // Tiles far from the window have no contents until they come near.
    QVERIFY(console->value("!$('#device_border_200').is(':visible')").toBool());
    console->value("$('#main').scrollTop(100000)");
    QVERIFY(console->waitFor("$('#device_border_200').is(':visible') && "
                             "!$('#device_border_1').is(':visible')"));
    // The list of another page doesn't get the rest of this one.
    console->value("loadHomePage()");
    QVERIFY(console->waitFor("$('.tile').length >= 40 && $('.tile').length < 199"));
    console->value("wrapperLoadDeviceInfo(1)");
    QVERIFY(console->waitFor("$('.device_menu').length === 199"));
    QCOMPARE(console->value("$('.tile').length").toInt(), 0);
    QCOMPARE(console->text("$('.device_menu').first().attr('id')"),
             QStringLiteral("device_menu_1"));
}

void FrameTest::unitGoesWhileItsPageIsOpen()
{
    makeFleet(3);
    showFrame();
    console->value("wrapperLoadDeviceInfo(2)");
    QVERIFY(console->waitFor("$('#device_name').text() === 'Громкоговоритель 2'"));
    ZoneMembership::forget(2);
    QVERIFY(!Data::getDeviceById(2));
    QCOMPARE(console->value("$('.device_menu').length").toInt(), 2);
    QCOMPARE(console->text("$('#device_name').text()"), QStringLiteral("Громкоговоритель 1"));
    ZoneMembership::forget(1);
    ZoneMembership::forget(3);
    QCOMPARE(console->text("$('#device_name').text()"), QStringLiteral("--"));
    QCOMPARE(console->text("$('#device_id').val()"), QStringLiteral("0"));
    QCOMPARE(console->scriptErrors(), QStringList());
}

void FrameTest::comingBackShowsTheSameAsStaying()
{
    makeFleet(30);
    showFrame();
    QVERIFY(console->waitFor("$('.tile').length === 30"));
    for (int order = 1; order <= 30; ++order) {
        receive(statePush(order, 1 + order % 30));
    }
    receive(statePush(31, 99)); // a unit that nobody has told of
    QCOMPARE(console->value("$('.tile').length").toInt(), 31);
    const QString wall = looksOf("#main_kelpa_list");
    const QString stayed = console->text(wall);
    console->value("$('#main_kelpa_list').addClass('old'); loadHomePage()");
    QVERIFY(console->waitFor("$('.old').length === 0 && $('.tile').length === 31"));
    QCOMPARE(console->text(wall).split('\n'), stayed.split('\n'));

    const QString list =
        looksOf("#deviceList, #device_panel") + QStringLiteral(" + $('#device_volume').val()");
    console->value("wrapperLoadDeviceInfo(7)");
    QVERIFY(console->waitFor("$('.device_menu').length === 31 && $('#device_id').val() === '7'"));
    receive(statePush(32, 7));
    receive(statePush(33, 8));
    const QString stayedOnDevice = console->text(list);
    console->value("$('#deviceList').addClass('old'); wrapperLoadDeviceInfo(7)");
    QVERIFY(console->waitFor("$('.old').length === 0 && $('.device_menu').length === 31 && "
                             "$('#device_id').val() === '7'"));
    QCOMPARE(console->text(list).split('\n'), stayedOnDevice.split('\n'));
}

void FrameTest::stormOfPushesLeavesThePageAsTheMirror()
{
    makeFleet(24);
    showFrame();
    QVERIFY(console->waitFor("$('.tile').length === 24"));
    for (int order = 1; order <= 10000; ++order) {
        receive(statePush(order, 1 + order % 24));
    }
    for (const Device& device : Data::deviceList) {
        const QString tile = QStringLiteral("$('#device_volume_%1').parent().attr('title') + "
                                            "$('#device_state_%1').text()")
                                 .arg(device.getId());
        QCOMPARE(console->text(tile),
                 QStringLiteral("Громкость: %1%2")
                     .arg(device.getVolume())
                     .arg(device.getStatus() == DeviceOnline ? "Подключен" : "Отключен"));
    }
}

void FrameTest::missingFragmentEmptiesItsRegion()
{
    showFrame();
    console->value("$('#main').append($('<p>')); loadMainBody('nowhere');"
                   "$('#modal').append($('<p>')); loadModal('nowhere');");
    QVERIFY(console->waitFor(
        "$('#main').children().length === 0 && $('#modal').children().length === 0"));
}

void FrameTest::laterLoadOfARegionWins()
{
    showFrame();
    console->value("loadTopMenu('settings'); loadTopMenu('device_list');");
    QVERIFY(console->waitFor("$('#top_menu #device_list').length > 0"));
    console->value("loadTopMenu('device_list'); loadTopMenu('nowhere');");
    QVERIFY(console->waitFor("$('#top_menu').children().length === 0"));
    QVERIFY(!QTest::qWaitFor(
        [&] { return console->value("$('#top_menu').children().length > 0").toBool(); }, 300));
}

void FrameTest::failingScriptTakesNoOtherAlong()
{
    showFrame();
    console->value("window.fail = function () { throw new Error('on purpose'); };"
                   "window.work = function (number) { window.worked = number; }");
    console->view().collectScripts(true);
    Page::call("fail");
    Page::call("nobodyHasThis");
    Page::call("work", 7);
    QVERIFY(console->value("typeof window.worked === 'undefined'").toBool());
    console->view().collectScripts(false);
    QVERIFY(console->waitFor("window.worked === 7"));
    // What comes by another way comes behind.
    console->view().collectScripts(true);
    Page::call("work", 8);
    console->view().collectScripts(false);
    Page::call("work", 9);
    QCOMPARE(console->value("window.worked").toInt(), 9);
    console->value("window.worked = 0");
    QTest::qWait(50);
    QCOMPARE(console->value("window.worked").toInt(), 0);
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
    showFrame();
    Data::serverSettings.setServerVersion(QStringLiteral("7.4.1"));
    console->value("modalLoadingHide(); $('#menu_about').click()");
    QVERIFY(console->waitFor("$('#modalShowVersion').hasClass('in')"));
    QVERIFY(console->text("$('#info_server_version').text()").contains("7.4.1"));
    QVERIFY(console->text("$('#info_client_version').text()").contains(Data::clientVersion));
}

void FrameTest::clockRunsOnFromTheServersTime()
{
    showFrame();
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
    showFrame();
    console->value("modalLoadingHide()");
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
    showFrame();
    const QString isOpen = QStringLiteral("$('%1').hasClass('in')").arg(dialog);
    console->value("modalLoadingHide();" + open);
    QVERIFY(console->waitFor(isOpen));
    console->value(QStringLiteral("$('%1').val('x');").arg(field) + ask);
    QCOMPARE(lastRequest().value("target").toString(), QStringLiteral("alarm"));
    answerLastRequest("forbidden");
    QVERIFY(
        console->value(isOpen + QStringLiteral(" && $('%1 .has-error').length === 1").arg(dialog))
            .toBool());
    QCOMPARE(Data::waitForAlarm, 0);
    console->value(QStringLiteral("$('%1').val('x');").arg(field) + ask);
    answerLastRequest("success");
    QVERIFY(console->waitFor("!" + isOpen));
    QVERIFY(console->waitFor("$('#top_menu #device_list').length === 0"));
}

void FrameTest::administrationShowsWhatTheRoleAllows()
{
    showFrame();
    console->value(
        "modalLoadingHide(); wrapperInput_roleGlobal_enable(); $('#menu_admin').click()");
    QVERIFY(console->waitFor("$('.admin_menu_active').attr('id') === 'admin_users' && "
                             "$('#back').length === 1"));
    console->picture("administration");
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
    showFrame();
    console->value("modalLoadingHide(); $('#menu_admin').click()");
    QVERIFY(console->waitFor("$('.admin_menu_active').attr('id') === 'admin_users'"));
    console->value("block()");
    QVERIFY(console->waitFor("$('#blockModal').hasClass('in')"));
    Page::call("wrapperInput_roleGlobal_editUserManagement", 0, "r", 0);
    QVERIFY(console->waitFor("$('#top_menu #device_list').length === 1 && "
                             "$('#adminRolePermissionLost').hasClass('in')"));
    QVERIFY(console->value("$('#blockModal').hasClass('in')").toBool());
}

void FrameTest::arrowKeysWalkTheList()
{
    showFrame();
    console->value("modalLoadingHide(); $('#menu_admin').click()");
    QVERIFY(console->waitFor("$('.admin_menu_active').attr('id') === 'admin_users'"));
    console->value("window.selected = []; window.wrapper_AdminUser_LoadUser = function (id) { "
                   "selected.push(id); };"
                   "$('#main').html(\"<div id='userList' style='height: 200px'><p id='7' "
                   "class='user_active'>a</p><p id='8'>b</p></div>\")");
    QWebView* const view = console->view().getView();
    view->setFocus();
    moveMouse(view, QPoint(900, 700));
    QTest::keyClick(view, Qt::Key_Down);
    QCOMPARE(console->text("selected.join()"), QString());
    moveMouse(view, QPoint(400, 120));
    QVERIFY(console->waitFor("document.querySelector('#userList:hover') !== null"));
    QTest::keyClick(view, Qt::Key_Down);
    QTest::keyClick(view, Qt::Key_Down); // there is no further row
    QTest::keyClick(view, Qt::Key_Up);
    QCOMPARE(console->text("selected.join()"), QStringLiteral("8,7"));
    QCOMPARE(console->text("$('.user_active').attr('id')"), QStringLiteral("7"));
}

int main(int argc, char* argv[])
{
    Q_INIT_RESOURCE(web);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    FrameTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "frame_test.moc"
