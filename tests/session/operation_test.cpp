#include "app/Data.h"
#include "media/AudioManager.h"
#include "media/SoundServer.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/User.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "session/DemoServer.h"
#include "view/WebView.h"

#include <QtTest>

/// A shift at the console, by clicks on the real pages against the demo server: what others change
/// arrives, and what the operator does comes about.
class OperationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void unitsFollowTheirServer();
    void rightsComeAndGoOnThePage();
    void usersAreAddedChangedAndDeleted();
    void ownRoleChangedEndsTheSession();
    void musicFromStartToStop();
    void busyUnitsAreAskedFor();
    void gongAndAlarmMessage();
    void voiceReachesTheServer();

private:
    void logIn(const QString& user);
    void click(const char* selector) const;
    bool is(const QString& script) const { return console->value(script).toBool(); }
    void openTab(const char* id, const char* isThere);
    void startMusic(const char* units);
    int newestPlayback() const;
    void choosePlayback(int id);
    void stopPlayback(int id);

    SoundServer sounds;
    QString missingSound;
    QTemporaryDir files;
    DemoServer server;
    std::unique_ptr<Console> console;
};

void OperationTest::initTestCase()
{
    missingSound = sounds.start();
    QVERIFY(server.start(files.path()));
    console = std::make_unique<Console>(std::vector<Server>{{"127.0.0.1", server.port(), true}});
    Data::settings->setValue("audio/input", "mic.monitor");
}

void OperationTest::init()
{
    QVERIFY(console->showLogin());
    QVERIFY(console->waitFor("$('#serverSelect option').length > 0"));
}

void OperationTest::cleanup()
{
    QCOMPARE(console->scriptErrors(), QStringList());
    if (console->page() != "login.html") {
        console->value("wrapper_Global_logout()");
        QVERIFY(console->waitForPage("login.html"));
    }
}

void OperationTest::logIn(const QString& user)
{
    console->logIn(user, user);
    QVERIFY(console->waitForPage("index.html"));
    QVERIFY(console->waitFor("typeof loadMainBody === 'function' && "
                             "!$('#loadingModal').is(':visible') && $('.tile').length > 0 && "
                             "$('#modalShowVersion').length > 0"));
}

void OperationTest::click(const char* selector) const
{
    console->value(QStringLiteral("$(\"%1\").first().click()").arg(QLatin1String(selector)));
}

void OperationTest::openTab(const char* id, const char* isThere)
{
    click(id);
    QVERIFY(console->waitFor(QLatin1String(isThere)));
}

void OperationTest::unitsFollowTheirServer()
{
    logIn("operator");
    QVERIFY(console->waitFor("$('.tile').length === 24"));
    server.tell("link 3 no");
    QVERIFY(console->waitFor("$('#device_state_3').text() === 'Отключен'"));
    server.tell("link 3 bidirectional");
    QVERIFY(console->waitFor("$('#device_state_3').text() === 'Подключен'"));
    server.tell("mains 3 off");
    QVERIFY(console->waitFor("$('#device_power_3').hasClass('btn-danger')"));
    server.tell("case 3 open");
    QVERIFY(console->waitFor("$('#device_hull_3').hasClass('btn-danger')"));
    server.tell("battery 3 30");
    QVERIFY(console->waitFor("$('#device_battery_3').attr('title').indexOf('АКБ: 30%') === 0"));
    server.tell("unit Новый громкоговоритель");
    QVERIFY(console->waitFor("$('.tile').length === 25"));
    const int id = Data::deviceList.at(24)->getId();
    QVERIFY(console->waitFor(QStringLiteral("$('#device_name_%1').text() === "
                                            "'Новый громкоговоритель'")
                                 .arg(id)));
    server.tell("remove " + QByteArray::number(id));
    QVERIFY(console->waitFor("$('.tile').length === 24"));
}

void OperationTest::rightsComeAndGoOnThePage()
{
    logIn("admin");
    QVERIFY(console->waitFor("$('#microphone').is(':visible')"));
    server.tell("right admin broadcastingFromMicrophone off");
    QVERIFY(console->waitFor("!$('#microphone').is(':visible')"));
    server.tell("right admin broadcastingFromMicrophone on");
    QVERIFY(console->waitFor("$('#microphone').is(':visible')"));
    click("#menu_admin");
    QVERIFY(console->waitFor("$('#userList tr').length === 4"));
    server.tell("right admin userManagement off");
    QVERIFY(console->waitFor("$('#adminRolePermissionLost').hasClass('in') && "
                             "$('.tile').length === 24"));
    console->picture("operation-right-lost");
    server.tell("right admin userManagement on");
}

void OperationTest::usersAreAddedChangedAndDeleted()
{
    logIn("admin");
    click("#menu_admin");
    QVERIFY(console->waitFor("$('#userList tr').length === 4 && $('#modalAddUser').length && "
                             "$('#user_role option').length > 2"));
    click("#add_user");
    QVERIFY(console->waitFor("$('#modalAddUser').hasClass('in')"));
    console->value("$('#addName').val('night'); $('#addTitle').val('Ночная смена'); "
                   "$('#addRole').val('guards'); "
                   "$('#addPassword, #addConfirmPassword').val('night'); "
                   "$('#addAlarmPassword, #addConfirmAlarmPassword').val('alarm')");
    click("#accept_user");
    QVERIFY(
        console->waitFor("$('#userList tr').length === 5 && !$('#modalAddUser').is(':visible')"));
    console->value("$('#userList tr:last').click()");
    QVERIFY(console->waitFor("$('#user_role').val() === 'guards'"));
    console->value("$('#user_title').val('Смена 2'); "
                   "$('#user_role').val('viewers').trigger('select2:select')");
    click("#save");
    QVERIFY(console->waitFor("$('#modalAdminEditUser').hasClass('in')"));
    QVERIFY(console->waitFor("$('#userList tr:last td:first').text() === 'Смена 2'"));
    QTRY_COMPARE(Data::getUserByName("night")->getRole(), QStringLiteral("viewers"));
    console->picture("operation-users");
    console->value(
        "$('#modalAdminEditUser .accept').click(); $('#userList tr:last button').click()");
    QVERIFY(console->waitFor("$('#modalDeleteUser').hasClass('in')"));
    click("#modalDeleteUser .accept");
    QVERIFY(console->waitFor("$('#userList tr').length === 4"));
}

void OperationTest::ownRoleChangedEndsTheSession()
{
    logIn("viewer");
    server.tell("role viewer guards");
    QVERIFY(console->waitForPage("login.html"));
    QVERIFY(console->waitFor("$('#modalRoleChanged').is(':visible') || "
                             "$('.modal.in').length === 1"));
    console->picture("operation-role-changed");
    server.tell("role viewer viewers");
}

void OperationTest::startMusic(const char* units)
{
    openTab("#playlist", "$('#playback_page').length && $('#transport').length && "
                         "$('#new').length");
    openTab("#new", "$('#source_page').length && $('#create').length && "
                    "$('.tile').length === 24 && $('#playback_type_2').length");
    click("#playback_type_2");
    QVERIFY(console->waitFor("$(\"[id^='playlist_']\").length > 0"));
    console->value("for (var depth = 0; depth < 4 && !$(\"[id^='track_']\").length; ++depth) { "
                   "$(\"[id^='playlist_']\").last().click(); }");
    QVERIFY(console->waitFor("$(\"[id^='track_']\").length > 0"));
    click("[id^='track_']");
    console->value(QStringLiteral("'%1'.split(' ').forEach(function (id) { "
                                  "$('#device_button_' + id).click(); })")
                       .arg(QLatin1String(units)));
    console->picture("operation-new");
    click("#create");
}

int OperationTest::newestPlayback() const
{
    const int count = Data::playbackList.size();
    return count == 0 ? 0 : Data::playbackList.at(count - 1)->getId();
}

/// Makes a playback's card the active one, on which the transport acts.
void OperationTest::choosePlayback(int id)
{
    QVERIFY(console->waitFor(QStringLiteral("$('#playback_page').length && $('#transport').length "
                                            "&& $('#playback_%1').length === 1")
                                 .arg(id)));
    console->value(QStringLiteral("$('#playback_%1').click()").arg(id));
}

void OperationTest::stopPlayback(int id)
{
    choosePlayback(id);
    click("#stop");
    QVERIFY(console->waitFor(QStringLiteral("$('#playback_%1').length === 0").arg(id)));
}

void OperationTest::musicFromStartToStop()
{
    logIn("operator");
    startMusic("1 3 4");
    QTRY_VERIFY(Data::getDeviceById(1)->getPlayback() != 0);
    const int id = newestPlayback();
    choosePlayback(id);
    QVERIFY(console->waitFor("$('.tile:visible').length === 3"));
    const Playback* const playback = Data::getPlaybackById(id);
    const int track = playback->getTrackId();
    const QString bar = QStringLiteral("$('#playback_timeshift_%1')[0].style.width").arg(id);
    const QString first = console->text(bar);
    QVERIFY(console->waitFor(bar + QStringLiteral(" !== '%1'").arg(first)));
    console->picture("operation-playing");
    const QString paused = QStringLiteral("$('#playback_icon_%1').hasClass('fa-pause')").arg(id);
    click("#pause");
    QVERIFY(console->waitFor(paused));
    click("#play");
    QVERIFY(console->waitFor("!" + paused));
    click("#forward");
    QTRY_VERIFY(playback->getTrackId() != track);
    click("#backward");
    QTRY_COMPARE(playback->getTrackId(), track);
    console->value("$('#volume_value').val(23).mouseup()");
    QVERIFY(console->waitFor("$('#device_volume_3')[0].style.width === '23%'"));
    stopPlayback(id);
    QCOMPARE(Data::getDeviceById(1)->getPlayback(), 0);
}

void OperationTest::busyUnitsAreAskedFor()
{
    logIn("operator");
    startMusic("1 3");
    QTRY_VERIFY(Data::getDeviceById(1)->getPlayback() != 0);
    const int first = newestPlayback();
    choosePlayback(first);
    startMusic("3 4");
    QVERIFY(console->waitFor("$('.modal.in').length === 1"));
    console->picture("operation-overlap");
    console->value("modalOverlapPartial()");
    QTRY_VERIFY(newestPlayback() != first);
    const int second = newestPlayback();
    QCOMPARE(Data::getDeviceById(3)->getPlayback(), first);
    choosePlayback(second);
    startMusic("1 3");
    QVERIFY(console->waitFor("$('.modal.in').length === 1"));
    console->value("modalOverlapAccept()");
    QTRY_VERIFY(!Data::getPlaybackById(first)); // it has lost its last unit
    stopPlayback(second);
    stopPlayback(newestPlayback());
}

void OperationTest::gongAndAlarmMessage()
{
    logIn("operator");
    click("#microphone_alarm");
    QVERIFY(console->waitFor("$('#microphone_access').hasClass('in')"));
    console->value("$('#translation_password').val('alarm'); tryMicrophoneUnblock()");
    QVERIFY(console->waitFor("$('#gongs option').length > 0 && $('.tile').length === 24 && "
                             "$('#gongRow button').length > 0 && $('#translation_start').length"));
    click("#device_button_1");
    console->picture("operation-gong");
    click("#gongRow button");
    QTRY_VERIFY(Data::gongPlaybackId != 0);
    QCOMPARE(Data::getDeviceById(1)->getPlaybackCategory(), 7);
    click("#gongRow button");
    QTRY_COMPARE(Data::gongPlaybackId, 0);
    click("#back");
    QVERIFY(console->waitFor("$('#top_menu #device_list').length && $('.tile').length === 24"));

    click("#translation");
    QVERIFY(console->waitFor("$('#warning_access').hasClass('in')"));
    console->value("$('#alarm_password').val('alarm'); tryWarningUnblock()");
    QVERIFY(console->waitFor(
        "$('#alarm_page').length && $('#create').length && "
        "$('.tile').length === 24 && $(\"[id^='playlist_'], [id^='track_']\").length"));
    console->value("for (var depth = 0; depth < 4 && !$(\"[id^='track_']\").length; ++depth) { "
                   "$(\"[id^='playlist_']\").last().click(); }");
    click("[id^='track_']");
    click("#device_button_1");
    console->picture("operation-alarm");
    click("#create");
    QTRY_COMPARE(Data::getDeviceById(1)->getPlaybackCategory(), 6);
    stopPlayback(newestPlayback());
}

void OperationTest::voiceReachesTheServer()
{
    if (!missingSound.isEmpty()) {
        QSKIP(qPrintable(missingSound));
    }
    logIn("operator");
    openTab("#microphone", "$('#broadcast_page').length && $('#translation_start').length && "
                           "$('#modalAudioTranslation').length && $('.tile').length === 24");
    click("#device_button_1");
    click("#translation_start");
    QVERIFY(console->waitFor("$('#modalAudioTranslation').hasClass('in')"));
    click("#translation_button_start");
    QVERIFY(console->waitFor("$('#translation_button_stop').is(':visible:enabled')"));
    QCOMPARE(Data::getDeviceById(1)->getPlaybackCategory(), 5);
    QTRY_VERIFY_WITH_TIMEOUT(
        server.output().contains("MPEG audio mp2 44100 Hz mono 128 kbit/s, 0 lost"), 20000);
    console->picture("operation-speaking");
    click("#translation_button_stop");
    QVERIFY(console->waitFor("$('#translation_button_start').is(':visible:enabled')"));
    QCOMPARE(Data::getDeviceById(1)->getPlaybackCategory(), 0);
    QTRY_COMPARE(sounds.captureCount(), 0);
    click("#translation_button_close");

    // An input that can't be opened ends in the dialog, and no unit stays marked.
    Data::settings->setValue("audio/input", "nobody");
    click("#translation_start");
    QVERIFY(console->waitFor("$('#modalAudioTranslation').hasClass('in')"));
    click("#translation_button_start");
    QVERIFY(console->waitFor("$('#modalAudioTranslationError').hasClass('in')", 20000));
    QTRY_COMPARE(Data::getDeviceById(1)->getPlaybackCategory(), 0);
    QVERIFY(!console->program().audio().isPlayed());
    console->picture("operation-no-input");

    // A connection that is lost while speaking closes the microphone.
    Data::settings->setValue("audio/input", "mic.monitor");
    console->value("$('#modalAudioTranslationError').modal('hide')");
    click("#translation_start");
    QVERIFY(console->waitFor("$('#modalAudioTranslation').hasClass('in')"));
    click("#translation_button_start");
    QTRY_VERIFY(console->program().audio().isPlayed() && sounds.captureCount() == 1);
    server.tell("drop");
    QVERIFY(console->waitForPage("login.html"));
    QVERIFY(!console->program().audio().isPlayed());
    QTRY_COMPARE(sounds.captureCount(), 0);
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    OperationTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "operation_test.moc"
