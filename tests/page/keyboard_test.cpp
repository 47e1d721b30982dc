#include "app/Data.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/PageFixture.h"
#include "page/ScriptCall.h"
#include "view/WebView.h"

#include <QJsonDocument>
#include <QMouseEvent>
#include <QWebView>

/// Dialogs, the lock and the pages, worked by real keys and clicks.
class KeyboardTest : public PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void lockKeepsAllElseAway_data();
    void lockKeepsAllElseAway();
    void dialogBelowTheLockWaits();
    void tabGoesRoundInADialog();
    void closedDialogGivesTheFocusBack_data();
    void closedDialogGivesTheFocusBack();
    void destroyingDialogOpensOnCancel();
    void doubleClickEndsWithTheDialog();
    void keysWorkWhatCanBeClicked_data();
    void keysWorkWhatCanBeClicked();
    void userMenuClosesByKeyAndClick();
    void controlsWaitForTheirAnswer();
    void heldKeyActsOnce();
    void fieldsKeepCharactersOut_data();
    void fieldsKeepCharactersOut();

private:
    void openHome();
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
    void type(const QString& text) const;
    QPoint middle(const QString& element) const;
    void click(const QString& element) const;
    QString focus() const { return text("document.activeElement.id"); }
    void checkLock();
};

namespace
{

const QString showUsers =
    QStringLiteral("loadModal('admin/users'); loadSideMenu('admin'); loadTopMenu('admin/index')");
const QString usersAreThere = QStringLiteral(
    "$('#userList').length === 1 && $('#save').length === 1 && $('#modalAddUser').length === 1");

/// Two accounts that can be deleted, the first one active.
const QString addUsers = QStringLiteral("wrapperInput_user_add(5, 'guard', 'Охрана', 1, 0); "
                                        "wrapperInput_user_add(6, 'night', 'Ночь', 1, 0); "
                                        "wrapperInput_user_edit(5, 'guard', 'Охрана')");

} // namespace

void KeyboardTest::openHome()
{
    openPage("", "$('#volume_value, #block_screen, #warning_access, #zone_menu, #main_kelpa_list')"
                 ".length === 5");
    QWebView* const view = console().view().getView();
    view->show();
    view->activateWindow();
    view->setFocus();
    addUnits();
}

void KeyboardTest::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(console().view().getView(), key, modifiers);
}

void KeyboardTest::type(const QString& text) const
{
    QTest::keyClicks(console().view().getView(), text);
}

QPoint KeyboardTest::middle(const QString& element) const
{
    const QString box = QStringLiteral("$('%1')[0].getBoundingClientRect()").arg(element);
    return {console().value(box + ".left + " + box + ".width / 2").toInt(),
            console().value(box + ".top + " + box + ".height / 2").toInt()};
}

void KeyboardTest::click(const QString& element) const
{
    QTest::mouseClick(console().view().getView(), Qt::LeftButton, {}, middle(element));
}

void KeyboardTest::lockKeepsAllElseAway_data()
{
    QTest::addColumn<QString>("open"); // what the operator was at when the lock came
    QTest::addColumn<QString>("isThere");
    QTest::addColumn<QString>("behind"); // something to click there
    QTest::newRow("slider") << "$('#volume_value').focus()"
                            << "true"
                            << "#volume_mute";
    QTest::newRow("dialog") << "modalShowVersion()"
                            << "$('#modalShowVersion').is(':visible')"
                            << "#modalShowVersion .accept";
    QTest::newRow("menu") << "$('#global_user_name').click()"
                          << "$('#menu').is(':visible')"
                          << "#menu_exit";
    QTest::newRow("list") << showUsers << usersAreThere << "#6";
    QTest::newRow("open select box") << showUsers << usersAreThere << "#back";
    QTest::newRow("password dialog") << "warningBlock()"
                                     << "$('#warning_access').is(':visible')"
                                     << "#warning_access .cancel";
}

void KeyboardTest::lockKeepsAllElseAway()
{
    QFETCH(QString, open);
    QFETCH(QString, isThere);
    QFETCH(QString, behind);
    openHome();
    run(open);
    QVERIFY(console().waitFor(isThere));
    if (isThere == usersAreThere) {
        run(addUsers);
        QMouseEvent move(QEvent::MouseMove, middle("#5"), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(console().view().getView(), &move);
    }
    if (behind == "#back") {
        run("$('#user_role').append('<option>a</option><option>b</option>').select2('open')");
    }
    const QPoint target = middle(behind);
    takeCalls();
    run("window.page = $('#main, #side_menu, #bot_menu, #modal').find('*').length; block()");
    QCOMPARE(focus(), QStringLiteral("block_password"));
    checkLock();
    if (QTest::currentTestFailed()) {
        return;
    }
    type("x");
    press(Qt::Key_Return);
    QCOMPARE(takeCalls(), QStringLiteral("modal_tryUnblock(x)"));
    run("modalBlockError(); modalBlockWrongPassword()");
    press(Qt::Key_Return);
    QVERIFY(!is("$('#blockModalWrongPassword').is(':visible')"));
    QCOMPARE(focus(), QStringLiteral("block_password"));
    checkLock();
    for (int clicks = 0; clicks < 3; ++clicks) {
        QTest::mouseClick(console().view().getView(), Qt::LeftButton, {}, target);
    }
    checkLock();
    QVERIFY(is("$('#main, #side_menu, #bot_menu, #modal').find('*').length === page"));
    QVERIFY(is("$('#blockModal').is(':visible')"));
    run("unblock()");
    QVERIFY(!is("$('#blockModal').is(':visible')"));
}

/// All keys that could act, wherever Tab leads; none may reach what lies behind the lock.
void KeyboardTest::checkLock()
{
    for (int round = 0; round < 6; ++round) {
        press(round < 3 ? Qt::Key_Tab : Qt::Key_Backtab,
              round < 3 ? Qt::NoModifier : Qt::ShiftModifier);
        QVERIFY2(is("$(document.activeElement).closest('#blockModal').length === 1"),
                 qPrintable(focus()));
        if (focus() == "block_password") {
            for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Escape}) {
                press(key);
            }
        }
    }
    run("$('#volume_value, #save, #menu_exit').focus()"); // as a page that comes late would
    press(Qt::Key_Space);
    press(Qt::Key_Backspace);
    QVERIFY(is("$(document.activeElement).closest('#blockModal').length === 1"));
    QCOMPARE(takeCalls(), QString());
}

void KeyboardTest::dialogBelowTheLockWaits()
{
    openHome();
    run("$('#volume_value').focus(); block(); modalAdminRolePermissionLost(); showTranslation = 1");
    press(Qt::Key_Return); // asks with an empty password
    QCOMPARE(takeCalls().section(' ', -1), QStringLiteral("modal_tryUnblock()"));
    QVERIFY(is("Number($('#blockModal').css('z-index')) > "
               "Number($('#adminRolePermissionLost').css('z-index'))"));
    run("wrapperInput_global_answered('user/checkAccess', 'success'); unblock()");
    QVERIFY(is("$(document.activeElement).is('#adminRolePermissionLost .accept')"));
    press(Qt::Key_Return);
    QVERIFY(!is("$('#adminRolePermissionLost').is(':visible')"));
    QCOMPARE(focus(), QStringLiteral("volume_value"));
}

void KeyboardTest::tabGoesRoundInADialog()
{
    openHome();
    run("warningBlock()");
    QString round;
    for (int stops = 0; stops < 4; ++stops) {
        round += text("document.activeElement.id || document.activeElement.textContent") + ' ';
        press(Qt::Key_Tab);
    }
    QCOMPARE(round, QStringLiteral("alarm_password Отмена Применить alarm_password "));
    press(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(focus(), QStringLiteral("alarm_password"));
    press(Qt::Key_Escape);
    QVERIFY(!is("$('#warning_access').is(':visible')"));
}

void KeyboardTest::closedDialogGivesTheFocusBack_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Esc") << int(Qt::Key_Escape);
    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("Space") << int(Qt::Key_Space);
}

void KeyboardTest::closedDialogGivesTheFocusBack()
{
    QFETCH(int, key);
    openHome();
    run("window.accepted = 0; notice('tryMe', {title: 'a', text: 'b', "
        "cancel: {}, accept: {action: function () { ++accepted; }}}); "
        "$('#block_screen').off('click').on('click', function () { tryMe(); }).focus()");
    for (int round = 1; round < 4; ++round) {
        press(Qt::Key_Space);
        QVERIFY(is("$('#tryMe').is(':visible')"));
        press(Qt::Key(key));
        QVERIFY(!is("$('#tryMe').is(':visible')"));
        QCOMPARE(focus(), QStringLiteral("block_screen"));
        QCOMPARE(console().value("accepted").toInt(), key == Qt::Key_Escape ? 0 : round);
    }
    // What had the focus has gone: nothing that is hidden has it.
    press(Qt::Key_Space);
    run("$('#block_screen').remove()");
    press(Qt::Key_Escape);
    QVERIFY(is("document.activeElement === document.body"));
}

void KeyboardTest::destroyingDialogOpensOnCancel()
{
    openHome();
    run(showUsers);
    QVERIFY(console().waitFor(usersAreThere));
    run(addUsers);
    takeCalls();
    click("#6 button");
    QVERIFY(is("$(document.activeElement).is('#modalDeleteUser .cancel')"));
    press(Qt::Key_Return);
    QVERIFY(!is("$('#modalDeleteUser').is(':visible')"));
    run("modalAdminDeleteUser('night'); $('#modalDeleteUser').focus()");
    press(Qt::Key_Return); // not without its button
    QCOMPARE(takeCalls(), QString());
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    QCOMPARE(takeCalls(), QStringLiteral("admin_deleteUser(night)"));
    press(Qt::Key_Return); // the dialog has gone, and its button with it
    press(Qt::Key_Space);
    QVERIFY(!takeCalls().contains("admin_deleteUser"));
}

void KeyboardTest::doubleClickEndsWithTheDialog()
{
    openHome();
    run("modalShowVersion()");
    const QPoint accept = middle("#modalShowVersion .accept");
    run(QStringLiteral("window.hits = 0; $('<div>').css({position: 'fixed', left: %1, top: %2, "
                       "width: 40, height: 40}).on('click mousedown', function () { ++hits; })"
                       ".appendTo('#main')")
            .arg(accept.x() - 20)
            .arg(accept.y() - 20));
    QWebView* const view = console().view().getView();
    QTest::mouseClick(view, Qt::LeftButton, {}, accept);
    QTest::mouseDClick(view, Qt::LeftButton, {}, accept);
    QCOMPARE(console().value("hits").toInt(), 0);
    QTest::mouseClick(view, Qt::LeftButton, {}, accept, 600); // past the time of a double click
    QCOMPARE(console().value("hits").toInt(), 2);
}

void KeyboardTest::keysWorkWhatCanBeClicked_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("effect");
    QTest::newRow("tab") << "#playlist"
                         << "$('#playlist').hasClass('active')";
    QTest::newRow("zone") << "#zone_5"
                          << "$('#zone_5').hasClass('zone_hard_active')";
    QTest::newRow("expander") << "#zone_expand_5"
                              << "!$('#zone_6').is(':visible')";
    QTest::newRow("user menu") << "#global_user_name"
                               << "$('#menu').is(':visible')";
    QTest::newRow("alarm icon") << "#translation"
                                << "$('#warning_access').is(':visible')";
}

void KeyboardTest::keysWorkWhatCanBeClicked()
{
    QFETCH(QString, element);
    QFETCH(QString, effect);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
        openHome();
        run("$('#translation').show()");
        QVERIFY(!is(effect));
        for (int stops = 0; stops < 40 && "#" + focus() != element; ++stops) {
            press(Qt::Key_Tab);
        }
        QCOMPARE("#" + focus(), element);
        QVERIFY(is("$(document.activeElement).css('outline-style') === 'solid'"));
        press(key);
        QVERIFY(is(effect));
    }
}

void KeyboardTest::userMenuClosesByKeyAndClick()
{
    openHome();
    run("$('#global_user_name').attr('tabindex', 0).focus()");
    press(Qt::Key_Return);
    QCOMPARE(focus(), QStringLiteral("menu_settings"));
    press(Qt::Key_Down);
    QCOMPARE(focus(), QStringLiteral("menu_about"));
    press(Qt::Key_Escape);
    QVERIFY(!is("$('#menu').is(':visible')"));
    QCOMPARE(focus(), QStringLiteral("global_user_name"));
    click("#global_user_name");
    QVERIFY(is("$('#menu').is(':visible')"));
    click("#volume_mute");
    QVERIFY(!is("$('#menu').is(':visible')"));
    run("$('#global_user_name').focus().click()");
    press(Qt::Key_Down);
    press(Qt::Key_Return); // "О программе"
    QVERIFY(is("$('#modalShowVersion').is(':visible')"));
    press(Qt::Key_Return);
    QCOMPARE(focus(), QStringLiteral("global_user_name"));
}

void KeyboardTest::controlsWaitForTheirAnswer()
{
    openPage("", "$('#block_screen').length === 1", Slots::Real);
    run("block(); window.later = setTimeout; "
        "setTimeout = function (act, time, value) { return later(act, time / 100, value); }");
    type("x");
    press(Qt::Key_Return);
    QVERIFY(is("$('#blockModal .accept').prop('disabled')"));
    QVERIFY(console().waitFor("!$('#blockModal .accept').prop('disabled')")); // no answer came
    run("setTimeout = later");
    for (const char* const word : {"forbidden", "whatever", "success"}) {
        type("x");
        const int before = Data::tcpClient.queuedMessages().size();
        press(Qt::Key_Return);
        QVERIFY(is("$('#blockModal .accept').prop('disabled')"));
        press(Qt::Key_Return);
        QCOMPARE(Data::tcpClient.queuedMessages().size(), before + 1);
        const QJsonObject request =
            QJsonDocument::fromJson(Data::tcpClient.queuedMessages().last()).object();
        Data::parser.parse(
            QJsonDocument(QJsonObject{{"order", request.value("order")}, {"response", word}})
                .toJson());
        QVERIFY(console().waitFor("!$('#blockModal .accept').prop('disabled')"));
        run("modalBlockWrongPasswordHide()");
    }
    QVERIFY(!is("$('#blockModal').is(':visible')"));
}

void KeyboardTest::heldKeyActsOnce()
{
    openHome();
    run("$('#translation').show().attr('tabindex', 0).focus()");
    QTest::keyPress(console().view().getView(), Qt::Key_Return);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QCoreApplication::sendEvent(console().view().getView(), &held);
    QVERIFY(is("$('#warning_access').is(':visible')"));
    QVERIFY(!takeCalls().contains("modal_tryUnblockAlarm"));
    QTest::keyRelease(console().view().getView(), Qt::Key_Return);
    press(Qt::Key_Return);
    QVERIFY(takeCalls().contains("modal_tryUnblockAlarm"));
}

void KeyboardTest::fieldsKeepCharactersOut_data()
{
    QTest::addColumn<QString>("check");
    QTest::addColumn<QString>("typed"); // with shift where the character stands behind a "^"
    QTest::addColumn<QString>("left");
    QTest::newRow("name") << "limitName('#probe')"
                          << "a2^@6^^7^&,^<.^>/^?\\^|'^\";-z"
                          << "a267,.?|;-z";
    // Where the letters are others, so are the places of the characters.
    QTest::newRow("name, Russian")
        << "limitName('#probe')" << QStringLiteral("эбю^Э^Б^Ю.^,\\^/^\"ё")
        << QStringLiteral("эбюЭБЮ.,ё");
    QTest::newRow("number") << "$('#probe').on('keydown', function (event) "
                               "{ return checkNumber(this, event); })"
                            << "1a 2^!-.^%3э"
                            << "123";
}

void KeyboardTest::fieldsKeepCharactersOut()
{
    QFETCH(QString, check);
    QFETCH(QString, typed);
    QFETCH(QString, left);
    openHome();
    run("$('<input id=probe>').appendTo('#main');" + check + "; $('#probe').focus()");
    for (int index = 0; index < typed.size(); ++index) {
        const bool isShifted = typed.at(index) == '^';
        const QString text = typed.at(isShifted ? ++index : index);
        const int key = text.toUpper().at(0).unicode();
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, isShifted ? Qt::ShiftModifier : Qt::NoModifier, text);
            QCoreApplication::sendEvent(console().view().getView(), &event);
        }
    }
    QCOMPARE(text("$('#probe').val()"), left);
}

VANTORDESK_PAGE_TEST(KeyboardTest)
#include "keyboard_test.moc"
