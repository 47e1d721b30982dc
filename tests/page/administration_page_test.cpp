#include "app/Data.h"
#include "media/AudioManager.h"
#include "model/ModelList.h"
#include "model/Role.h"
#include "model/User.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "page/ScriptCall.h"
#include "view/WebView.h"

#include <QJsonDocument>
#include <QMouseEvent>
#include <QWebView>
#include <QtTest>

/// The pages of administration and settings, with the mirror behind them.
class AdministrationPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void usersShowWhoTheyAre();
    void passwordsStayWithTheirUser();
    void saveSendsWhatHasChanged();
    void deletedUserGivesWayToTheFirst();
    void anyNumberOfUsersGoesAtOnce_data();
    void anyNumberOfUsersGoesAtOnce();
    void changesAreAskedAboutBeforeTheyGo_data();
    void changesAreAskedAboutBeforeTheyGo();
    void pushLeavesWhatTheOperatorIsAt();
    void savedRoleIsTheOneThatTheUserHas();
    void longListIsBuiltAsItIsWalked();
    void arrowKeysWalkTheList();
    void addDialogRefuses_data();
    void addDialogRefuses();
    void addDialogAddsAndWaitsForTheAnswer();
    void hostileNamesAreText();
    void comingBackShowsTheSameAsStaying();
    void lockSettingsAreReadAndStored();
    void soundSettingsAreReadTestedAndStored();

private:
    void openUsers() const;
    void press(Qt::Key key) const;
    void hover(const QString& element) const;
    void addUser(int id, const QString& name, const QString& title, const QString& role) const;
    void addRole(int id, const QString& name) const;
    QVector<QJsonObject> sentRequests() const;
    QStringList sentActions() const;
    QJsonObject sent(int fromEnd) const;
    void answer(const QJsonObject& request, const QString& response) const;

    std::unique_ptr<Console> console;
};

void AdministrationPageTest::initTestCase()
{
    console = std::make_unique<Console>();
    QVERIFY(console->waitForPage("login.html"));
}

void AdministrationPageTest::init()
{
    addRole(0, QStringLiteral("operators"));
    addRole(1, QStringLiteral("guards"));
    addUser(0, QStringLiteral("admin"), QStringLiteral("Администратор"),
            QStringLiteral("operators"));
    addUser(1, QStringLiteral("guard"), QStringLiteral("Охрана, пост 1"), QStringLiteral("guards"));
    addUser(2, QStringLiteral("night"), QStringLiteral("Охрана, ночь"), QString());
    Data::userList.at(0)->setCurrent(true);
    QVERIFY(console->showSession());
    console->value("modalLoadingHide()");
}

void AdministrationPageTest::cleanup()
{
    QCOMPARE(console->scriptErrors(), QStringList());
    Data::clearSession();
    Data::tcpClient.close();
}

void AdministrationPageTest::openUsers() const
{
    console->value("$('#menu_admin').click()");
    console->waitFor("$('#modalAddUser').length === 1 && $('#userList tr').length > 0 && "
                     "$('#user_role option').length > 0 && $('#save').length === 1");
}

void AdministrationPageTest::addUser(int id, const QString& name, const QString& title,
                                     const QString& role) const
{
    auto user = std::make_unique<User>();
    user->setId(id);
    user->setName(name);
    user->setTitle(title);
    user->setRole(role);
    Data::userList.append(std::move(user));
}

void AdministrationPageTest::addRole(int id, const QString& name) const
{
    auto role = std::make_unique<Role>();
    role->setId(id);
    role->setName(name);
    Data::roleList.append(std::move(role));
}

QVector<QJsonObject> AdministrationPageTest::sentRequests() const
{
    QVector<QJsonObject> requests;
    const QVector<QByteArray>& queue = Data::tcpClient.queuedMessages();
    for (const QByteArray& message : queue) {
        const QJsonObject request = QJsonDocument::fromJson(message).object();
        if (request.value("request") != "helper") { // the frame asks for the time
            requests.append(request);
        }
    }
    return requests;
}

QStringList AdministrationPageTest::sentActions() const
{
    QStringList actions;
    for (const QJsonObject& request : sentRequests()) {
        actions.append(request.value("request").toString() + '/' +
                       request.value("action").toString());
    }
    return actions;
}

QJsonObject AdministrationPageTest::sent(int fromEnd) const
{
    const QVector<QJsonObject> requests = sentRequests();
    return requests.value(requests.size() - 1 - fromEnd);
}

void AdministrationPageTest::answer(const QJsonObject& request, const QString& response) const
{
    Data::parser.parse(
        QJsonDocument(QJsonObject{{"order", request.value("order")}, {"response", response}})
            .toJson());
}

void AdministrationPageTest::usersShowWhoTheyAre()
{
    openUsers();
    console->picture("users");
    QCOMPARE(console->text("$('.user_active').attr('id')"), QStringLiteral("0"));
    QCOMPARE(console->text("$('#user_name').text()"), QStringLiteral("admin"));
    QVERIFY(console->value("$('#user_title').prop('disabled')").toBool());
    // Whoever is logged in and the administrator can't be deleted.
    QCOMPARE(console->value("$('#0 button').length").toInt(), 0);
    QCOMPARE(console->value("$('#userList button').length").toInt(), 2);
    // The roles come after the users; the form still shows the user's own.
    QCOMPARE(console->text("$('#user_role').val()"), QStringLiteral("operators"));

    console->value("$('#1').click()");
    QCOMPARE(console->text("$('#user_role').val()"), QStringLiteral("guards"));
    QVERIFY(!console->value("$('#user_title').prop('disabled')").toBool());
    QCOMPARE(console->text("$('#user_status').text()"), QStringLiteral("Отключен"));
    Data::userList.at(1)->setStatus(true);
    Data::userList.at(2)->setStatus(true);
    Data::userList.at(2)->setStatus(false);
    QCOMPARE(console->text("$('#user_status').text()"), QStringLiteral("Подключен"));
    QCOMPARE(console->text("$('#status_2').text()"), QStringLiteral("Отключен"));
    console->value("$('#2').click()");
    QVERIFY(console->value("$('#user_role').val() === null").toBool());
    console->picture("users-active");
}

void AdministrationPageTest::passwordsStayWithTheirUser()
{
    openUsers();
    console->value("$('#1').click(); $('#user_password, #user_alarm_password').val('secret')");
    Data::userList.at(1)->setTitle(QStringLiteral("Охрана")); // from another console
    QCOMPARE(console->text("$('#user_password').val()"), QStringLiteral("secret"));
    console->value("$('#2').click(); $('#modalUnsavedChanges .other').click()");
    QCOMPARE(console->text("$('#user_name').text()"), QStringLiteral("night"));
    QCOMPARE(console->text("$('#user_password').val() + $('#user_alarm_password').val()"),
             QString());
}

void AdministrationPageTest::saveSendsWhatHasChanged()
{
    openUsers();
    console->value("$('#save').click()"); // "admin" without passwords: nothing could change
    QVERIFY(console->waitFor("$('#modalAdminEditUser').hasClass('in')"));
    QCOMPARE(sentActions(), QStringList());
    console->value("$('#modalAdminEditUser').modal('hide'); $('#1').click(); "
                   "$('#user_title').val(''); $('#save').click()");
    QVERIFY(console->value("$('#user_title').parent().hasClass('has-error')").toBool());
    QCOMPARE(sentActions(), QStringList());

    console->value("$('#user_title').val('Охрана, вход'); $('#save').click()");
    QCOMPARE(sentActions(), QStringList{"user/edit"});
    QVERIFY(!sent(0).contains("password") && !sent(0).contains("passwordForAlarm"));
    QCOMPARE(console->text("$('#title_1').text()"), QStringLiteral("Охрана, пост 1"));
    answer(sent(0), QStringLiteral("success"));
    QVERIFY(console->waitFor("$('#modalAdminEditUser').hasClass('in')"));
    QCOMPARE(console->text("$('#title_1').text()"), QStringLiteral("Охрана, вход"));

    console->value("$('#user_role').val('operators').trigger('select2:select'); "
                   "$('#user_password').val('x'); "
                   "$('#save').click()");
    QCOMPARE(sentActions().mid(1), (QStringList{"user/edit", "role/exclude", "role/include"}));
    QCOMPARE(sent(2).value("password").toString(),
             QStringLiteral("9dd4e461268c8034f5c8564e155c67a6"));
}

void AdministrationPageTest::deletedUserGivesWayToTheFirst()
{
    openUsers();
    console->value("$('#1 button').click()");
    QVERIFY(console->waitFor("$('#modalDeleteUser').hasClass('in')"));
    console->picture("users-delete");
    QCOMPARE(console->text("$('#deleteUserName').text()"), QStringLiteral("guard"));
    console->value("$('#1').click(); $('#modalDeleteUser .accept').click()");
    QCOMPARE(sent(0).value("name").toString(), QStringLiteral("guard"));
    QVERIFY(console->value("$('#1').length === 1").toBool());
    answer(sent(0), QStringLiteral("success"));
    QVERIFY(console->value("$('#1').length === 0").toBool());
    QCOMPARE(console->text("$('#user_name').text()"), QStringLiteral("admin"));
}

void AdministrationPageTest::press(Qt::Key key) const
{
    QTest::keyClick(console->view().getView(), key);
}

/// As the window system tells it; QTest's own way needs a pointer, which the offscreen platform
/// lacks.
void AdministrationPageTest::hover(const QString& element) const
{
    const QString box = QStringLiteral("$('%1')[0].getBoundingClientRect()").arg(element);
    const QPoint place(console->value(box + ".left + 20").toInt(),
                       console->value(box + ".top + 20").toInt());
    QMouseEvent move(QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(console->view().getView(), &move);
}

void AdministrationPageTest::anyNumberOfUsersGoesAtOnce_data()
{
    QTest::addColumn<QVector<int>>("gone");
    QTest::addColumn<QString>("shown");
    QTest::newRow("the active one") << QVector<int>{0} << "guard";
    QTest::newRow("two") << QVector<int>{0, 1} << "night";
    QTest::newRow("two, the active one last") << QVector<int>{1, 0} << "night";
    QTest::newRow("all") << QVector<int>{0, 1, 2} << "";
}

void AdministrationPageTest::anyNumberOfUsersGoesAtOnce()
{
    QFETCH(QVector<int>, gone);
    QFETCH(QString, shown);
    openUsers();
    console->view().collectScripts(true);
    for (const int id : gone) {
        Page::call("wrapperInput_user_delete", id);
        Data::userList.remove(Data::userList.find(id));
    }
    console->view().collectScripts(false);
    const int left = 3 - gone.size();
    QVERIFY(console->waitFor(QStringLiteral("$('#userList tr').length === %1").arg(left)));
    QCOMPARE(console->value("$('.user_active').length").toInt(), qMin(left, 1));
    if (left > 0) {
        QCOMPARE(console->text("$('#user_name').text()"), shown);
    } else {
        QVERIFY(console->value("$('.empty_list').is(':visible')").toBool());
        console->value("$('#save').click()");
        QCOMPARE(sentActions(), QStringList());
    }
}

void AdministrationPageTest::changesAreAskedAboutBeforeTheyGo_data()
{
    QTest::addColumn<QString>("way"); // none stands for the arrow key
    QTest::addColumn<QString>("isGone");
    QTest::addColumn<QString>("word");
    const QString nextUser = QStringLiteral("$('#user_name').text() === 'night'");
    const QString noUsers = QStringLiteral("$('#userList').length === 0");
    const QVector<QPair<QString, QString>> ways{{"$('#2')[0].click()", nextUser},
                                                {"$('#back')[0].click()", noUsers},
                                                {"$('#admin_log')[0].click()", noUsers},
                                                {QString(), nextUser}};
    for (const auto& way : ways) {
        for (const char* const word : {"cancel", "other", "accept", "row deleted"}) {
            QTest::addRow("%s, %s", qPrintable(way.first), word) << way.first << way.second << word;
        }
    }
}

void AdministrationPageTest::changesAreAskedAboutBeforeTheyGo()
{
    QFETCH(QString, way);
    QFETCH(QString, isGone);
    QFETCH(QString, word);
    openUsers();
    console->value("$('#1')[0].click(); $('#user_title').val('Другое')");
    if (way.isEmpty()) {
        console->view().getView()->setFocus();
        hover("#1");
        press(Qt::Key_Down);
    } else {
        console->value(way);
    }
    QVERIFY(console->value("$('#modalUnsavedChanges').is(':visible')").toBool());
    console->picture("users-unsaved");
    QVERIFY(!console->value(isGone).toBool());
    if (word == "row deleted") {
        Page::call("wrapperInput_user_delete", 1);
        QVERIFY(!console->value("$('#modalUnsavedChanges').is(':visible')").toBool());
        QCOMPARE(console->text("$('#user_name').text()"), QStringLiteral("admin"));
        return;
    }
    console->value(QStringLiteral("$('#modalUnsavedChanges .%1').click()").arg(word));
    QCOMPARE(sentActions().size(), word == "accept" ? 1 : 0);
    if (word == "accept") {
        QVERIFY(!console->value(isGone).toBool());
        answer(sent(0), QStringLiteral("success"));
    }
    if (word == "cancel") {
        QVERIFY(!console->value(isGone).toBool());
        QCOMPARE(console->text("$('#user_title').val()"), QStringLiteral("Другое"));
    } else {
        QVERIFY(console->waitFor(isGone));
    }
}

void AdministrationPageTest::pushLeavesWhatTheOperatorIsAt()
{
    openUsers();
    console->value("$('#1')[0].click()");
    Data::userList.at(1)->setTitle(QStringLiteral("Вход"));
    Data::userList.at(1)->changeRole(QStringLiteral("operators"));
    QCOMPARE(console->text("$('#user_title').val() + $('#user_role').val()"),
             QStringLiteral("Входoperators"));
    QVERIFY(!console->value("$('.form_note').is(':visible')").toBool());
    console->value("$('#user_title').val('Мой')");
    Data::userList.at(1)->setTitle(QStringLiteral("Их"));
    Data::userList.at(1)->changeRole(QStringLiteral("guards"));
    QCOMPARE(console->text("$('#user_title').val() + $('#user_role').val()"),
             QStringLiteral("Мойguards"));
    QVERIFY(console->value("$('.form_note').is(':visible')").toBool());
    console->picture("users-changed-elsewhere");
    console->value("$('#save').click(); $('#save').click()");
    QCOMPARE(sentActions(), QStringList{"user/edit"}); // one, and no role
    answer(sent(0), QStringLiteral("whatever"));
    QVERIFY(!console->value("$('#save').prop('disabled')").toBool());
    QCOMPARE(console->text("$('#user_title').val()"), QStringLiteral("Мой"));
    console->value("$('#user_title').val(''); $('#save').click()");
    QVERIFY(
        console->value("$('#user_title').parent().find('.help-block').is(':visible')").toBool());
    console->picture("users-wrong");
}

void AdministrationPageTest::savedRoleIsTheOneThatTheUserHas()
{
    Data::userList.at(1)->setRole(QStringLiteral("no entry of the box"));
    openUsers();
    console->value("$('#1')[0].click(); $('#user_title').val('Охрана'); $('#save').click()");
    QCOMPARE(sentActions(), QStringList{"user/edit"});
    answer(sent(0), QStringLiteral("success"));
    console->value("$('#user_role').val('operators').trigger('select2:select'); "
                   "wrapperInput_role_clear(); wrapper_AdminUser_LoadRoleList()");
    QCOMPARE(console->text("$('#user_role').val()"), QStringLiteral("operators"));
    Page::call("wrapperInput_role_delete", 0); // what was chosen has gone
    QVERIFY(console->value("$('#user_role').val() === null").toBool());
    console->value("$('#user_title').val('Вход'); $('#save').click()");
    QCOMPARE(sentActions().mid(1), QStringList{"user/edit"});
}

void AdministrationPageTest::longListIsBuiltAsItIsWalked()
{
    const int count = 5000;
    for (int id = 3; id < count; ++id) {
        addUser(id, QString::number(id), QString::number(id), QString());
    }
    openUsers();
    const int built = console->value("$('#userList tr').length").toInt();
    QVERIFY(built > 30 && built < 500);
    for (int round = 0; round < 3; ++round) {
        console->value("$('#userList').parent().scrollTop(1e9).trigger('scroll')");
    }
    QVERIFY(console->value("$('#userList tr').length").toInt() > built);
    Page::call("wrapperInput_user_edit", count - 1, "x", "Последний"); // not built, but known
    QVERIFY(console->value("$('#userList tr').length").toInt() < 2000);
    QCOMPARE(console->text("$('#userList tr:first').attr('id')"), QStringLiteral("0"));
}

void AdministrationPageTest::arrowKeysWalkTheList()
{
    openUsers();
    QWebView* const view = console->view().getView();
    view->setFocus();
    hover("#user_status");
    press(Qt::Key_Down);
    QCOMPARE(console->text("$('.user_active').attr('id')"), QStringLiteral("0"));
    hover("#2");
    QVERIFY(console->waitFor("document.querySelector('#userList:hover') !== null"));
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}) {
        press(key); // there is no row behind the third
    }
    QCOMPARE(console->text("$('#user_name').text()"), QStringLiteral("guard"));
    hover("#user_status");
    console->value("$('.user_active')[0].focus()");
    press(Qt::Key_Down);
    QCOMPARE(console->text("document.activeElement.id + $('#user_name').text()"),
             QStringLiteral("2night"));
}

void AdministrationPageTest::addDialogRefuses_data()
{
    QTest::addColumn<QString>("fill");
    QTest::addColumn<QString>("marked");
    QTest::newRow("no name") << "$('#addName').val('')"
                             << "addName";
    QTest::newRow("blank in name") << "$('#addName').val('a b')"
                                   << "addName";
    QTest::newRow("long name") << "$('#addName').val(Array(34).join('a'))"
                               << "addName";
    QTest::newRow("no title") << "$('#addTitle').val('')"
                              << "addTitle";
    QTest::newRow("no role") << "$('#addRole').val('')"
                             << "addRole";
    QTest::newRow("password") << "$('#addPassword').val('a')"
                              << "addPassword addConfirmPassword";
    QTest::newRow("alarm password") << "$('#addConfirmAlarmPassword').val('a')"
                                    << "addAlarmPassword addConfirmAlarmPassword";
}

void AdministrationPageTest::addDialogRefuses()
{
    QFETCH(QString, fill);
    QFETCH(QString, marked);
    openUsers();
    console->value("$('#add_user').click(); $('#addName').val('new'); $('#addTitle').val('Новый'); "
                   "$('#addRole').val('guards');" +
                   fill + "; $('#accept_user').click()");
    QCOMPARE(
        console->text(
            "$('#modalAddUser .has-error').find('input, select').map(function () { return this.id; "
            "}).get().join(' ')"),
        marked);
    QVERIFY(console->value("$('#modalAddUser .help-block').text().length > 5").toBool());
    QCOMPARE(sentActions(), QStringList());
    console->value("$('#add_user').click()");
    QCOMPARE(console->value("$('#modalAddUser .has-error').length").toInt(), 0);
}

void AdministrationPageTest::addDialogAddsAndWaitsForTheAnswer()
{
    openUsers();
    console->value("$('#add_user').click()");
    QVERIFY(console->waitFor("$('#modalAddUser').hasClass('in') && "
                             "document.activeElement.id === 'addName'"));
    console->picture("users-add");
    QCOMPARE(console->value("$('#addRole option[id]').length").toInt(), 2);
    QCOMPARE(console->text("$('#addRole').val()"), QString());
    QCOMPARE(console->text("$('#user_role').val()"), QStringLiteral("operators"));
    console->value("$('#addName').val('new'); $('#addTitle').val('Новый'); "
                   "$('#addRole').val('guards'); $('#accept_user').click()");
    QCOMPARE(sentActions(), QStringList{"user/add"});
    QVERIFY(console->value("$('#accept_user').prop('disabled')").toBool());
    QVERIFY(console->value("$('#modalAddUser').hasClass('in')").toBool());
    answer(sent(0), QStringLiteral("error"));
    QVERIFY(console->waitFor("$('#modalAdminAddUserError').hasClass('in')"));
    QVERIFY(console->value("$('#userList tr').length === 3").toBool());
    console->value("$('#modalAdminAddUserError').modal('hide'); $('#accept_user').click()");
    QCOMPARE(sentActions(), (QStringList{"user/add", "user/add"}));
    answer(sent(0), QStringLiteral("success"));
    QCOMPARE(sentActions().last(), QStringLiteral("role/include"));
    QVERIFY(console->waitFor("!$('#modalAddUser').hasClass('in')"));
    QCOMPARE(console->text("$('#userList tr:last td:first').text()"), QStringLiteral("Новый"));
}

void AdministrationPageTest::hostileNamesAreText()
{
    addUser(9, hostileText, hostileText, hostileText);
    addRole(9, hostileText);
    openUsers();
    console->value("$('#9').click()");
    QCOMPARE(console->text("$('#title_9').text()"), hostileText);
    QCOMPARE(console->text("$('#user_name').text()"), hostileText);
    QCOMPARE(console->text("$('#user_role').val()"), hostileText);
    QCOMPARE(console->text("$('#select2-user_role-container').text()"), hostileText);
    console->value("$('#9 button').click()");
    QCOMPARE(console->text("$('#deleteUserName').text()"), hostileText);
    QVERIFY(
        console->value("$('img').length === 0 && typeof window.pwned === 'undefined'").toBool());
}

void AdministrationPageTest::comingBackShowsTheSameAsStaying()
{
    const QString list =
        QStringLiteral("$('#userList tr').map(function () { return this.id + "
                       "$(this).text() + $(this).find('button').length; "
                       "}).get().join('|') + $('#user_role option').map(function () "
                       "{ return this.value; }).get().join()");
    openUsers();
    Data::userList.at(1)->setTitle(QStringLiteral("Другое имя"));
    Data::userList.at(2)->setStatus(true);
    addUser(3, QStringLiteral("third"), QStringLiteral("Третий"), QStringLiteral("guards"));
    Data::userList.at(3)->addToPage();
    Page::call("wrapperInput_user_delete", 1);
    Data::userList.remove(Data::userList.at(1));
    const QString stayed = console->text(list);
    QVERIFY(stayed.contains(QStringLiteral("Третий")));
    console->value("$('#back').click()");
    QVERIFY(console->waitFor("$('#userList').length === 0"));
    openUsers();
    QCOMPARE(console->text(list), stayed);
}

void AdministrationPageTest::lockSettingsAreReadAndStored()
{
    Data::settings->setValue("admin/block_time", 5 * 60000);
    Data::blockStatus = false;
    console->value("$('#menu_settings').click()");
    QVERIFY(console->waitFor("$('#block').length > 0 && $('#modalSaved').length === 1"));
    console->value("$('#modalSaved').addClass('old'); $('#side_menu #block').click()");
    QVERIFY(
        console->waitFor("$('#settings_block_time').val() === '5' && $('#save').length === 1 && "
                         "$('.old').length === 0 && $('#modalSaved').length === 1"));
    QVERIFY(console->value("$('#settings_block_disabled').is(':checked')").toBool());
    console->picture("settings-lock");
    console->value("$('#settings_block_time').val('250 мин'); "
                   "$('#settings_block_enabled').click(); $('#save').click()");
    QVERIFY(console->waitFor("$('#modalSaved').hasClass('in')"));
    QCOMPARE(console->text("$('#settings_block_time').val()"), QStringLiteral("100"));
    QCOMPARE(Data::settings->value("admin/block_time").toInt(), 100 * 60000);
    QVERIFY(Data::blockStatus);
    console->picture("settings-saved");
    // No time is the shortest time; the field shows the old one until the page is opened again.
    console->value("$('#settings_block_time').val(''); $('#save').click()");
    QCOMPARE(console->text("$('#settings_block_time').val()"), QStringLiteral("100"));
    QCOMPARE(Data::settings->value("admin/block_time").toInt(), 60000);
}

void AdministrationPageTest::soundSettingsAreReadTestedAndStored()
{
    AudioManager audio;
    Data::audioManager = &audio;
    Data::settings->setValue("audio/input", "gone");
    Data::settings->setValue("volume/microphone", 30);
    Data::settings->setValue("volume/warning", 80);
    console->value("$('#menu_settings').click()");
    QVERIFY(console->waitFor("$('.settings_menu').length === 4 && $('#modalSaved').length === 1"));
    console->value("$('#modalSaved').addClass('old'); $('#side_menu #media').click()");
    QVERIFY(console->waitFor("$('#settings_volume_microphone').val() === '30' && "
                             "$('#save').length === 1 && $('.old').length === 0 && "
                             "$('#modalSaved').length === 1"));
    // This machine's inputs don't count here.
    console->value("$('#settings_media_input').empty().trigger('change')");
    console->value("$('#settings_media_start').click()");
    QVERIFY(console->waitFor("$('#modalMicrophoneNotSelected').hasClass('in')"));
    console->value("$('#modalMicrophoneNotSelected .accept').click()");
    // What is stored stays where nothing is chosen, also while the device isn't there.
    const QString shownInput = "$('#select2-settings_media_input-container').text()";
    QCOMPARE(console->text(shownInput), QStringLiteral("gone (не подключен)"));
    console->value("$('#save').click()");
    QCOMPARE(Data::settings->value("audio/input").toString(), QStringLiteral("gone"));
    console->value("settingsUnblock()");
    Page::call("wrapperInput_settings_addMediaInput", QStringLiteral("headset"));
    Page::call("wrapperInput_settings_mediaInputSelect", QString());
    QCOMPARE(console->text(shownInput), QStringLiteral("По умолчанию"));
    QCOMPARE(console->text("settings_mediaInput()"), QString());
    Page::call("wrapperInput_settings_addMediaInput", hostileText);
    Page::call("wrapperInput_settings_mediaInputSelect", hostileText);
    QCOMPARE(console->text(shownInput), hostileText);
    QVERIFY(
        console->value("$('img').length === 0 && typeof window.pwned === 'undefined'").toBool());
    console->picture("settings-sound");

    console->value("$('#settings_media_start').click()");
    QVERIFY(console->value("$('#settings_media_stop').is(':visible')").toBool());
    Page::call("settingsAudioError"); // as a test that fails ends
    QVERIFY(console->waitFor("$('#modalAudioError').hasClass('in')"));
    QVERIFY(console->value("$('#settings_media_start').is(':visible')").toBool());
    console->value("settingsAudioErrorHide(); $('#settings_volume_microphone').val(65); "
                   "$('#save').click()");
    QVERIFY(console->waitFor("$('#modalSaved').hasClass('in')"));
    QCOMPARE(Data::settings->value("audio/input").toString(), hostileText);
    QCOMPARE(Data::settings->value("volume/microphone").toInt(), 65);
    QCOMPARE(Data::settings->value("volume/warning").toInt(), 80);

    // Whoever leaves the page ends the test that runs.
    console->value("settingsUnblock(); $('#settings_media_start').click(); "
                   "$('#side_menu #block').click()");
    QVERIFY(console->waitFor("$('#settings_block_time').length === 1"));
    audio.release();
    Data::audioManager = nullptr;
}

int main(int argc, char* argv[])
{
    Q_INIT_RESOURCE(web);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    AdministrationPageTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "administration_page_test.moc"
