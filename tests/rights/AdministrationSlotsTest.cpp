#include "rights/Rights.h"

#include "log/Log.h"
#include "log/LogSettings.h"
#include "model/Playlist.h"
#include "model/Preset.h"
#include "model/Task.h"
#include "view/WebView.h"

#include <QTest>
#include <QWebView>

/// What the slots of the administration's pages replay, and what they send.
class AdministrationSlotsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void permissionsAreReplayed();
    void permissionsWithoutARole();
    void frameGetsTheAdministrationEntry();
    void sideMenuIsReplayed();
    void rolesAreReplayed();
    void unknownRoleAndUserShowNothing();
    void usersAreReplayed();
    void newUserIsSentWithItsRole();
    void editedUserSendsWhatChanged_data();
    void editedUserSendsWhatChanged();
    void passwordsStayOutOfTheLog();
    void deletedUserIsSent();
};

namespace
{

const QString digestOfAbc = "900150983cd24fb0d6963f7d28e17f72";
const QString digestOfNothing = "d41d8cd98f00b204e9800998ecf8427e";

template <class Item> void add(ModelList<Item>& list, int id)
{
    auto item = std::make_unique<Item>();
    item->setId(id);
    list.append(std::move(item));
}

} // namespace

void AdministrationSlotsTest::permissionsAreReplayed()
{
    SessionFixture session;
    WebView view;
    Role& own = Rights::addOwnRole();
    own.setBroadcastAlarmAccess(true);
    session.page.take();
    view.load_permissions();
    QCOMPARE(session.page.take(), Fleet::lines(R"(
        wrapperInput_roleGlobal_editDeviceManagement(0,"guard",1);
        wrapperInput_roleGlobal_editZoneManagement(0,"guard",0);
        wrapperInput_roleGlobal_editMicrophone(0,"guard",0);
        wrapperInput_roleGlobal_editMicrophoneAlarm(0,"guard",1);
        wrapperInput_playbackGlobal_editAlarm(0);)"));
    add(Data::playlistList, 6);
    view.load_permissions();
    QCOMPARE(session.page.calls().last(), QString("wrapperInput_playbackGlobal_editAlarm(1);"));
}

void AdministrationSlotsTest::permissionsWithoutARole()
{
    SessionFixture session;
    WebView view;
    Rights::addRole(1, "night");
    view.load_permissions();
    view.admin_loadPermissions();
    QCOMPARE(session.page.calls(), QStringList{"wrapperInput_playbackGlobal_editAlarm(0);"});
}

void AdministrationSlotsTest::frameGetsTheAdministrationEntry()
{
    SessionFixture session;
    WebView view;
    Role& own = Rights::addOwnRole();
    view.global_loadFrame();
    QVERIFY(session.page.take().contains("wrapperInput_roleGlobal_enable();"));
    own.setDeviceManagement("control");
    session.page.take();
    view.global_loadFrame();
    QVERIFY(session.page.take().contains("wrapperInput_roleGlobal_disable();"));
}

void AdministrationSlotsTest::sideMenuIsReplayed()
{
    SessionFixture session;
    WebView view;
    Role& own = Rights::addOwnRole();
    own.setServerManagement(true);
    own.setPresetManagement("administration");
    session.page.take();
    view.admin_loadPermissions();
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_roleGlobal_editServerManagement(0,"guard","1");
        wrapperInput_roleGlobal_editDeviceManagement(0,"guard",1);
        wrapperInput_roleGlobal_editZoneManagement(0,"guard",0);
        wrapperInput_roleGlobal_editUserManagement(0,"guard",0);
        wrapperInput_roleGlobal_editRoleManagement(0,"guard",0);
        wrapperInput_roleGlobal_editPlaybackManagement(0,"guard",0);
        wrapperInput_roleGlobal_editPresetManagement(0,"guard",1);
        wrapperInput_roleGlobal_editScheduleManagement(0,"guard",0);)"));
    QVERIFY(session.log.contains("admin_loadPermissions"));
    QVERIFY(session.log.contains("admin_loadPermissionsEnd"));
}

/// The operator's own role comes up, with the entries that are still there.
void AdministrationSlotsTest::rolesAreReplayed()
{
    SessionFixture session;
    WebView view;
    view.admin_loadRoleList();
    QCOMPARE(session.page.take(), QStringList());
    Rights::addRole(1, "night").setTitle("Night");
    Rights::addRole(2, "admin");
    Role& own = Rights::addOwnRole();
    own.setTitle("Guards");
    own.zones = {3, 4};
    own.playlists = {20};
    own.presets = {30, 31};
    own.tasks = {40, 41};
    add(Data::presetList, 31);
    add(Data::tasks, 40);
    session.page.take();
    view.admin_loadRoleList();
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_role_add(1,"night","Night",0);
        wrapperInput_role_add(2,"admin","",1);
        wrapperInput_role_add(0,"guard","Guards",1);
        wrapperInput_role_select(0);
        wrapperInput_role_edit(0,"guard","Guards");
        wrapperInput_role_editServerManagement(0,"guard","0");
        wrapperInput_role_editDeviceManagement(0,"guard",1);
        wrapperInput_role_editZoneManagement(0,"guard",0,0);
        wrapperInput_role_editUserManagement(0,"guard",0);
        wrapperInput_role_editRoleManagement(0,"guard",0);
        wrapperInput_role_editPlaybackManagement(0,"guard",0,0);
        wrapperInput_role_editPresetManagement(0,"guard",0,0);
        wrapperInput_role_editScheduleManagement(0,"guard",0,0);
        wrapperInput_role_editMicrophone(0,"guard",0);
        wrapperInput_role_editMicrophoneAlarm(0,"guard",0);
        wrapperInput_role_cleanZones();
        wrapperInput_role_selectZone(0,3);
        wrapperInput_role_selectZone(0,4);
        wrapperInput_role_cleanPlaylists();
        wrapperInput_role_selectPlaylist(0,20);
        wrapperInput_role_cleanPresets();
        wrapperInput_role_selectPreset(0,31);
        wrapperInput_role_cleanTasks();
        wrapperInput_role_selectTask(0,40);
        wrapperInput_role_reloadPermissions();)"));
}

void AdministrationSlotsTest::unknownRoleAndUserShowNothing()
{
    SessionFixture session;
    WebView view;
    Rights::addRole(1, "night");
    Rights::addUser(1, "boris");
    session.page.take();
    view.admin_selectRole(7);
    view.admin_selectUser(7);
    QCOMPARE(session.page.calls(), QStringList());
}

void AdministrationSlotsTest::usersAreReplayed()
{
    SessionFixture session;
    WebView view;
    view.admin_loadUserList();
    QCOMPARE(session.page.take(), QStringList());
    Rights::addUser(3, "boris", "night").setStatus(true);
    Rights::addOwnUser();
    session.page.take();
    view.admin_loadUserList();
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_user_add(3,"boris","",1,0);
        wrapperInput_user_add(0,"anna","Anna",0,1);
        wrapperInput_user_edit(3,"boris","");
        wrapperInput_user_login(3);
        wrapperInput_role_include(3,"night");)"));
}

void AdministrationSlotsTest::newUserIsSentWithItsRole()
{
    const SessionFixture session;
    WebView view;
    Fleet::takeRequests();
    view.admin_addUser("boris", "Boris", "abc", "", "night");
    const QStringList added{QString(R"(user/add {"name":"boris","password":"%1",)"
                                    R"("passwordForAlarm":"%2","title":"Boris"})")
                                .arg(digestOfAbc, digestOfNothing)};
    QCOMPARE(Fleet::takeRequests(), added);
    // The name may be another account's, whose role stays.
    Fleet::answer(UserCommand::Add, R"({"name": "boris", "title": "Boris"})",
                  R"({"response": "error"})");
    QCOMPARE(Fleet::takeRequests(), QStringList());
    view.admin_addUser("boris", "Boris", "abc", "", "night");
    QCOMPARE(Fleet::takeRequests(), added);
    Fleet::answer(UserCommand::Add, R"({"name": "boris", "title": "Boris"})", "{}");
    QCOMPARE(Fleet::takeRequests(), QStringList{R"(role/include {"role":"night","user":"boris"})"});
}

void AdministrationSlotsTest::editedUserSendsWhatChanged_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("requests");
    const QString password = QString(R"("password":"%1",)").arg(digestOfAbc);
    const QString alarm = QString(R"("passwordForAlarm":"%1",)").arg(digestOfAbc);
    const auto edit = [](const QString& name, const QString& fields, const QString& title) {
        return QString(R"(user/edit {"name":"%1",%2"title":"%3"})").arg(name, fields, title);
    };
    const auto row = [](const char* name, const QStringList& arguments,
                        const QStringList& requests) {
        QTest::newRow(name) << arguments << requests;
    };
    row("title", {"boris", "B", "", "", "night"}, {edit("boris", "", "B")});
    row("password", {"boris", "B", "abc", "", "night"}, {edit("boris", password, "B")});
    row("alarm password", {"boris", "B", "", "abc", "night"}, {edit("boris", alarm, "B")});
    row("admin", {"admin", "A", "abc", "", "admin"}, {edit("admin", password, "")});
    row("role", {"boris", "B", "", "", "day"},
        {edit("boris", "", "B"), R"(role/exclude {"user":"boris"})",
         R"(role/include {"role":"day","user":"boris"})"});
    row("user that has gone", {"vera", "V", "", "", "day"}, {edit("vera", "", "V")});
}

void AdministrationSlotsTest::editedUserSendsWhatChanged()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, requests);
    SessionFixture session;
    WebView view;
    Rights::addUser(1, "boris", "night").setTitle("Boris");
    Rights::addUser(2, "admin", "admin");
    session.page.take();
    Fleet::takeRequests();
    view.admin_editUser(arguments.at(0), arguments.at(1), arguments.at(2), arguments.at(3),
                        arguments.at(4));
    QCOMPARE(Fleet::takeRequests(), requests);
    QCOMPARE(session.page.calls(), QStringList()); // the reply changes the page, not the click
    QCOMPARE(Data::getUserByName("boris")->getTitle(), QString("Boris"));
}

void AdministrationSlotsTest::passwordsStayOutOfTheLog()
{
    const SessionFixture session;
    LogSettings switches;
    switches.setUserSettings(true);
    Log::logger().setSettings(&switches);
    WebView view;
    view.admin_addUser("boris", "Boris", "secret", "secret", "night");
    view.admin_editUser("boris", "Boris", "secret", "secret", "night");
    Log::logger().setSettings(nullptr);
    QVERIFY(session.log.contains("admin_addUser: boris, Boris, night"));
    QVERIFY(session.log.contains("admin_editUser: boris, Boris, night"));
    QVERIFY(session.log.contains("admin_editUserEnd"));
    QVERIFY(!session.log.hasLineWith("secret"));
}

void AdministrationSlotsTest::deletedUserIsSent()
{
    const SessionFixture session;
    WebView view;
    Rights::addUser(1, "boris");
    Fleet::takeRequests();
    view.admin_deleteUser("boris");
    QCOMPARE(Fleet::takeRequests(), QStringList{R"(user/delete {"name":"boris"})"});
    QCOMPARE(Rights::users(), QStringList{"1 boris"});
}

QTEST_MAIN(AdministrationSlotsTest)
#include "AdministrationSlotsTest.moc"
