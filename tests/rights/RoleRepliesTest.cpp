#include "rights/Rights.h"

#include <QTest>

/// How roles come into the mirror, change and go.
class RoleRepliesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void firstInformationMakesTheOwnRole();
    void laterInformationRefreshes();
    void longerListTakesRolesIn();
    void listAheadOfTheOwnRoleAsksForNothing();
    void shorterListTakesRolesOut();
    void listOfTheSameLengthChangesNothing();
    void addedRoleGetsItsFirstRights();
    void addedRoleThatIsKnownAlready();
    void editTellsTheNewTitle();
    void deletedRoleLeavesItsUsers();
    void userMovesBetweenRoles();
    void pushAsksForWhatChanged_data();
    void pushAsksForWhatChanged();
    void idsDoNotCollide();
    void refusals_data();
    void refusals();
};

namespace
{

QStringList contentOf(const char* role)
{
    QStringList result;
    for (const char* const action :
         {"getRedirection", "getServer", "getZones", "getPlaylist", "getPreset", "getTasks"}) {
        result.append(QString("role/%1 {\"role\":\"%2\"}").arg(action, role));
    }
    return result;
}

} // namespace

void RoleRepliesTest::firstInformationMakesTheOwnRole()
{
    const SessionFixture session;
    Fleet::answer(RoleCommand::GetInfo, "{}", R"({"name": "guard", "title": "Guards"})");
    QCOMPARE(Fleet::takeRequests(), contentOf("guard"));
    const Role* const role = Data::getCurrentRole();
    QVERIFY(role);
    QCOMPARE(Rights::roles(), QStringList{"0 guard"});
    QCOMPARE(role->getTitle(), QString("Guards"));
}

void RoleRepliesTest::laterInformationRefreshes()
{
    const SessionFixture session;
    Rights::addOwnRole();
    Fleet::answer(RoleCommand::GetInfo, "{}", R"({"name": "guard", "title": "Guards"})");
    Fleet::answer(RoleCommand::GetInfo, "{}", R"({"response": "error", "name": "x", "title": ""})");
    QCOMPARE(Fleet::takeRequests(), QStringList());
    QCOMPARE(Rights::roles(), QStringList{"0 guard"});
    QCOMPARE(Data::getCurrentRole()->getTitle(), QString("Guards"));
}

void RoleRepliesTest::longerListTakesRolesIn()
{
    const SessionFixture session;
    Rights::addOwnRole().users = QStringList{"anna"};
    Fleet::answer(RoleCommand::List, "{}", R"({"roles": [
        {"name": "night", "title": "Night", "users": [{"name": "boris"}, {"name": "vera"}]},
        {"name": "guard", "title": "Guards", "users": [{"name": "anna"}, {"name": "gleb"}]},
        {"name": "admin", "title": "All", "users": []}]})");
    QCOMPARE(Rights::roles(), (QStringList{"0 guard", "1 night", "2 admin"}));
    QCOMPARE(Data::getRoleById(1)->users, (QStringList{"boris", "vera"}));
    QCOMPARE(Data::getRoleById(0)->users, (QStringList{"anna", "gleb"}));
    QCOMPARE(Data::getRoleById(0)->getTitle(), QString("Guards"));
    QCOMPARE(Fleet::takeRequests(), contentOf("night") + contentOf("admin"));
}

void RoleRepliesTest::listAheadOfTheOwnRoleAsksForNothing()
{
    const SessionFixture session;
    Fleet::answer(RoleCommand::List, "{}", R"({"roles": [{"name": "night", "users": []}]})");
    QCOMPARE(Fleet::takeRequests(), QStringList());
    Fleet::answer(RoleCommand::GetInfo, "{}", R"({"name": "guard", "title": ""})");
    QCOMPARE(Data::getRoleById(0), Data::getCurrentRole());
}

void RoleRepliesTest::shorterListTakesRolesOut()
{
    SessionFixture session;
    Rights::addOwnRole();
    Rights::addRole(1, "night");
    Rights::addRole(2, "day");
    Rights::addRole(3, "dusk");
    session.page.take();
    Fleet::answer(RoleCommand::List, "{}",
                  R"({"roles": [{"name": "day", "title": "new"}, {"name": "guard"}]})");
    QCOMPARE(Rights::roles(), (QStringList{"0 guard", "2 day"}));
    QCOMPARE(session.page.calls(),
             (QStringList{"wrapperInput_role_delete(1);", "wrapperInput_role_delete(3);"}));
    QVERIFY(session.log.contains("Founded role remove"));
    QVERIFY(session.log.contains("Deleted role: 3"));
}

void RoleRepliesTest::listOfTheSameLengthChangesNothing()
{
    SessionFixture session;
    Rights::addOwnRole();
    session.page.take();
    Fleet::answer(RoleCommand::List, "{}",
                  R"({"roles": [{"name": "night", "title": "N", "users": [{"name": "x"}]}]})");
    Fleet::answer(RoleCommand::List, "{}",
                  R"({"roles": [{"name": "guard", "title": "N", "users": [{"name": "x"}]}]})");
    QCOMPARE(Rights::roles(), QStringList{"0 guard"});
    QVERIFY(Data::getCurrentRole()->users.isEmpty());
    QCOMPARE(session.page.calls(), QStringList());
}

void RoleRepliesTest::addedRoleGetsItsFirstRights()
{
    SessionFixture session;
    Rights::addOwnRole();
    session.page.take();
    Fleet::answer(RoleCommand::Add, R"({"name": "night", "title": "Night"})", "{}");
    QCOMPARE(Rights::roles(), (QStringList{"0 guard", "1 night"}));
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_role_edit(1,"night","Night");
        wrapperInput_role_add(1,"night","Night",0);
        modalAdminAddRoleHide();)"));
    QCOMPARE(Fleet::takeRequests(),
             QStringList{"role/setServer {\"deviceManagement\":\"control\","
                         "\"playbackManagement\":\"control\",\"presetManagement\":\"read\","
                         "\"role\":\"night\",\"roleManagement\":\"unavailable\","
                         "\"serverManagement\":false,\"taskManagement\":\"read\","
                         "\"userManagement\":false,\"zoneManagement\":false}"});
}

/// The push about it may come first; the dialog still closes and nothing stands there twice.
void RoleRepliesTest::addedRoleThatIsKnownAlready()
{
    SessionFixture session;
    Rights::addOwnRole();
    Fleet::push(R"({"request": "role", "action": "reloadChanges", "name": "night", "order": 1})");
    session.page.take();
    Fleet::answer(RoleCommand::Add, R"({"name": "night", "title": "Night"})", "{}");
    QCOMPARE(Rights::roles(), (QStringList{"0 guard", "1 night"}));
    QVERIFY(session.page.calls().contains("modalAdminAddRoleHide();"));
    QCOMPARE(Data::getRoleById(1)->getTitle(), QString("Night"));
    QCOMPARE(Fleet::takeActions(), QStringList{"setServer"});
}

void RoleRepliesTest::editTellsTheNewTitle()
{
    SessionFixture session;
    Rights::addRole(3, "night");
    session.page.take();
    const char* const asked = R"({"name": "night", "title": "Night"})";
    Fleet::answer(RoleCommand::Edit, asked, R"({"response": "error"})");
    QCOMPARE(session.page.calls(), QStringList());
    Fleet::answer(RoleCommand::Edit, asked, "{}");
    QCOMPARE(session.page.calls(), QStringList{"wrapperInput_role_edit(3,\"night\",\"Night\");"});
}

void RoleRepliesTest::deletedRoleLeavesItsUsers()
{
    SessionFixture session;
    Rights::addOwnRole();
    Rights::addRole(1, "night");
    const User& anna = Rights::addUser(0, "anna", "guard");
    const User& boris = Rights::addUser(1, "boris", "night");
    session.page.take();
    Fleet::answer(RoleCommand::Delete, R"({"name": "night"})", R"({"response": "error"})");
    QCOMPARE(Data::roleList.size(), 2);
    Fleet::answer(RoleCommand::Delete, R"({"name": "night"})", "{}");
    QCOMPARE(Rights::roles(), QStringList{"0 guard"});
    QCOMPARE(session.page.calls(), (QStringList{R"(wrapperInput_role_exclude(1,"night");)",
                                                "wrapperInput_role_delete(1);"}));
    QCOMPARE(boris.getRole(), QString());
    QCOMPARE(anna.getRole(), QString("guard"));
}

void RoleRepliesTest::userMovesBetweenRoles()
{
    const SessionFixture session;
    const User& boris = Rights::addUser(1, "boris");
    const char* const asked = R"({"user": "boris", "role": "night"})";
    Fleet::answer(RoleCommand::Include, asked, R"({"response": "error"})");
    QCOMPARE(boris.getRole(), QString());
    Fleet::answer(RoleCommand::Include, asked, "{}");
    QCOMPARE(boris.getRole(), QString("night"));
    Fleet::answer(RoleCommand::Exclude, R"({"user": "boris"})", R"({"response": "error"})");
    QCOMPARE(boris.getRole(), QString("night"));
    Fleet::answer(RoleCommand::Exclude, R"({"user": "boris"})", "{}");
    QCOMPARE(boris.getRole(), QString());
    Fleet::answer(RoleCommand::Include, R"({"user": "gone", "role": "night"})", "{}");
    QVERIFY(session.log.contains("Ignored reply: unknown user gone"));
}

void RoleRepliesTest::pushAsksForWhatChanged_data()
{
    QTest::addColumn<QStringList>("requests");
    QTest::addColumn<QStringList>("calls");
    const auto other = [](const char* role) {
        const QString asked = QString(" {\"role\":\"%1\"}").arg(role);
        return QStringList{"role/list", "role/getServer" + asked, "role/getRedirection" + asked};
    };
    QTest::newRow("guard") << QStringList{"role/getInfo",        "role/getServer",
                                          "role/getRedirection", "device/getDevices",
                                          "zone/list",           "playback/list",
                                          "playback/getPlays",   "preset/list",
                                          "task/list",           "task/getPlays"}
                           << QStringList();
    QTest::newRow("night") << other("night") << QStringList();
    QTest::newRow("new") << other("new") << QStringList{"wrapperInput_role_add(2,\"new\",\"\",0);"};
}

void RoleRepliesTest::pushAsksForWhatChanged()
{
    QFETCH(QStringList, requests);
    QFETCH(QStringList, calls);
    SessionFixture session;
    Rights::addOwnRole();
    Rights::addRole(1, "night");
    session.page.take();
    Fleet::push(QJsonObject{{"request", "role"},
                            {"action", "reloadChanges"},
                            {"order", 1},
                            {"name", QTest::currentDataTag()}});
    QCOMPARE(Fleet::takeRequests(), requests);
    QCOMPARE(session.page.calls(), calls);
    QVERIFY(Data::getRoleByName(QTest::currentDataTag()));
}

/// A role takes the id behind the last one's, and never one that is taken.
void RoleRepliesTest::idsDoNotCollide()
{
    const SessionFixture session;
    const auto add = [](const char* name) {
        Fleet::answer(RoleCommand::Add, QJsonObject{{"name", name}, {"title", ""}}, {});
    };
    Rights::addOwnRole();
    add("one");
    add("two");
    Fleet::answer(RoleCommand::Delete, R"({"name": "one"})", "{}");
    add("three");
    QCOMPARE(Rights::roles(), (QStringList{"0 guard", "2 two", "3 three"}));
    Data::roleList.clear();
    Rights::addRole(1, "early");
    Rights::addOwnRole();
    add("late");
    QCOMPARE(Rights::roles(), (QStringList{"1 early", "0 guard", "2 late"}));
}

void RoleRepliesTest::refusals_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("calls");
    const auto row = [](const char* name, RoleCommand command, const QStringList& words,
                        const QStringList& calls) {
        QTest::newRow(name) << static_cast<int>(command) << words << calls;
    };
    const QStringList uses{"forbiddenZoneInTask",    "forbiddenPlaylistInTask",
                           "forbiddenZoneInPreset",  "forbiddenPlaylistInPreset",
                           "forbiddenDeviceInZone",  "forbiddenDeviceInTask",
                           "forbiddenDeviceInPreset"};
    const QStringList general{"forbidden", "error"};
    const QStringList unknown{"busy", ""};
    const QString inUse = "modalAdminEditRoleError();";
    const QString refused = "modalAdminEditRoleForbiddenError();";
    const QString reload = "wrapperInput_role_reloadPermissions();";
    const std::pair<const char*, RoleCommand> lists[] = {
        {"permissions", RoleCommand::SetPermissions},
        {"zones", RoleCommand::SetZones},
        {"playlists", RoleCommand::SetPlaylist},
        {"presets", RoleCommand::SetPreset},
        {"tasks", RoleCommand::SetTasks},
    };
    for (const auto& [name, command] : lists) {
        row(qPrintable(QString(name) + " in use"), command, uses, {inUse, reload});
        row(qPrintable(QString(name) + " refused"), command, general, {refused, reload});
        row(qPrintable(QString(name) + " unknown"), command, unknown, {reload});
    }
    row("server in use", RoleCommand::SetServer, uses, {inUse});
    row("server refused", RoleCommand::SetServer, general, {refused});
    row("server unknown", RoleCommand::SetServer, unknown, {});
    row("redirection refused", RoleCommand::SetRedirection, general, {refused});
    row("redirection unknown", RoleCommand::SetRedirection, uses + unknown, {});
    row("add error", RoleCommand::Add, {"error"}, {"modalAdminAddRoleError();"});
    row("add title", RoleCommand::Add, {"titleExists"}, {"modalAdminTitleExists();"});
    row("add unknown", RoleCommand::Add, unknown, {});
    row("edit", RoleCommand::Edit, QStringList{"error"} + unknown, {});
    row("delete", RoleCommand::Delete, QStringList{"error"} + unknown, {});
    row("delete forbidden", RoleCommand::Delete, {"forbidden"}, {"modalForbiddenShow();"});
    row("getServer", RoleCommand::GetServer, general + unknown, {});
    row("getZones", RoleCommand::GetZones, general + unknown, {});
}

/// A refusal shows its dialog and leaves the mirror alone, whatever the request held.
void RoleRepliesTest::refusals()
{
    QFETCH(int, command);
    QFETCH(QStringList, words);
    QFETCH(QStringList, calls);
    SessionFixture session;
    Role& role = Rights::addRole(1, "night");
    role.zones = {7};
    const QJsonObject full = Fleet::json(R"({"role": "night", "name": "night", "title": "T",
        "zones": [1], "playlists": [1], "presets": [1], "tasks": [{"id": 1}],
        "serverManagement": true, "userManagement": true, "roleManagement": "administration",
        "zoneManagement": true, "deviceManagement": "control", "alarm": true,
        "broadcastingFromMicrophone": true, "externalDrivers": true})");
    for (const QString& word : words) {
        session.page.take();
        QJsonObject reply = full;
        reply.insert("response", word);
        Fleet::answer(static_cast<RoleCommand>(command), full, reply);
        QCOMPARE(session.page.take(), calls);
        QCOMPARE(Rights::roles(), QStringList{"1 night"});
        QCOMPARE(role.getTitle(), QString());
        QCOMPARE(role.zones, QVector<int>{7});
        QVERIFY(!role.getServerManagement() && role.getDeviceManagement());
        QVERIFY(!role.getBroadcastAlarmAccess());
    }
}

QTEST_GUILESS_MAIN(RoleRepliesTest)
#include "RoleRepliesTest.moc"
