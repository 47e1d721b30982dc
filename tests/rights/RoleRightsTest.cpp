#include "rights/Rights.h"

#include <QTest>

/// What the answers about rights store, show, and ask for in turn.
class RoleRightsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void answerIsForTheNamedRole();
    void gainedRightsAskForWhatTheyOpen_data();
    void gainedRightsAskForWhatTheyOpen();
    void keptServerRightAsksOnce();
    void lostRightHidesItsEntry();
    void redirectionSetsTheBroadcastRights();
    void listIsTakenOver_data();
    void listIsTakenOver();
    void storedRightsRefreshTheOperator_data();
    void storedRightsRefreshTheOperator();
    void storedPermissionsTakeOverEverything();
    void answerAboutARoleThatHasGone_data();
    void answerAboutARoleThatHasGone();
};

namespace
{

const char* const allRights = R"({"role": "night", "serverManagement": true,
    "userManagement": true, "zoneManagement": true, "roleManagement": "administration",
    "deviceManagement": "administration", "playbackManagement": "administration",
    "taskManagement": "administration", "presetManagement": "administration",
    "zones": [4, 5], "playlists": [6], "presets": [],
    "tasks": [{"id": 8, "permission": "administration"}]})";

QStringList rightsOf(const Role& role)
{
    const QVector<QPair<QString, bool>> rights{
        {"server", role.getServerManagement()},
        {"user", role.getUserManagement()},
        {"role", role.getRoleManagement()},
        {"zone", role.getZoneManagement()},
        {"device", role.getDeviceManagement()},
        {"playback", role.getPlaybackManagement()},
        {"schedule", role.getScheduleManagement()},
        {"preset", role.getPresetManagement()},
        {"alarm", role.getBroadcastAlarmAccess()},
        {"mic", role.getBroadcastMicrophoneAccess()},
        {"drives", role.getBroadcastExternalAccess()},
    };
    QStringList result;
    for (const auto& [name, allowed] : rights) {
        if (allowed) {
            result.append(name);
        }
    }
    return result;
}

const QStringList allManagement{"server", "user",     "role",     "zone",
                                "device", "playback", "schedule", "preset"};

} // namespace

void RoleRightsTest::answerIsForTheNamedRole()
{
    const SessionFixture session;
    const Role& own = Rights::addOwnRole();
    const Role& night = Rights::addRole(1, "night");
    Fleet::answer(RoleCommand::GetServer, R"({"role": "night"})", allRights);
    QCOMPARE(rightsOf(night), allManagement);
    QCOMPARE(rightsOf(own), QStringList{"device"});
    Fleet::answer(RoleCommand::GetServer, "{}", R"({"serverManagement": false,
        "userManagement": true, "zoneManagement": false, "roleManagement": "control",
        "deviceManagement": "control", "playbackManagement": "unavailable",
        "taskManagement": "read", "presetManagement": "administration"})");
    QCOMPARE(rightsOf(own), (QStringList{"user", "preset"}));
    QCOMPARE(rightsOf(night), allManagement);
}

void RoleRightsTest::gainedRightsAskForWhatTheyOpen_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QStringList>("requests");
    const QString own = "{}";
    const QString other = R"({"role": "night"})";
    const QStringList server{"server/getNetworkInterfaceList", "server/getSettings"};
    const QStringList units{"device/getDevices", "zone/list"};
    QTest::newRow("own server") << own << R"({"serverManagement": true})"
                                << server + QStringList{"log/getLevel", "log/list"};
    QTest::newRow("other server") << other << R"({"serverManagement": true})" << server;
    QTest::newRow("own zones") << own << R"({"zoneManagement": true})" << units;
    QTest::newRow("other zones") << other << R"({"zoneManagement": true})" << units;
    QTest::newRow("own units") << own << R"({"deviceManagement": "administration"})"
                               << QStringList{"device/listFirmware"};
    QTest::newRow("units in part") << own << R"({"deviceManagement": "control"})" << QStringList();
    QTest::newRow("units not said") << own << R"({"userManagement": true})" << QStringList();
    QTest::newRow("playlists") << own << R"({"playbackManagement": "administration"})"
                               << QStringList();
    QTest::newRow("everything") << other << allRights
                                << server + units + QStringList{"device/listFirmware"};
}

void RoleRightsTest::gainedRightsAskForWhatTheyOpen()
{
    QFETCH(QString, asked);
    QFETCH(QString, reply);
    QFETCH(QStringList, requests);
    const SessionFixture session;
    Rights::addOwnRole();
    Rights::addRole(1, "night");
    Fleet::answer(RoleCommand::GetServer, qPrintable(asked), qPrintable(reply));
    QCOMPARE(Fleet::takeRequests(), requests);
}

/// The server's data are asked for at the gain, units and firmware each time.
void RoleRightsTest::keptServerRightAsksOnce()
{
    const SessionFixture session;
    Rights::addRole(1, "night");
    Fleet::answer(RoleCommand::GetServer, R"({"role": "night"})", allRights);
    Fleet::takeRequests();
    Fleet::answer(RoleCommand::GetServer, R"({"role": "night"})", allRights);
    QCOMPARE(Fleet::takeRequests(),
             (QStringList{"device/getDevices", "zone/list", "device/listFirmware"}));
}

void RoleRightsTest::lostRightHidesItsEntry()
{
    SessionFixture session;
    Role& own = Rights::addOwnRole();
    own.setDeviceManagement("read");
    own.setServerManagement(true);
    session.page.take();
    Fleet::answer(RoleCommand::GetServer, "{}", R"({"serverManagement": false})");
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_role_editServerManagement(0,"guard",0);
        wrapperInput_roleGlobal_editServerManagement(0,"guard",0);
        wrapperInput_roleGlobal_disable();)"));
    QCOMPARE(Fleet::takeRequests(), QStringList());
}

void RoleRightsTest::redirectionSetsTheBroadcastRights()
{
    SessionFixture session;
    const Role& own = Rights::addOwnRole();
    const Role& night = Rights::addRole(1, "night");
    const char* const rights =
        R"({"alarm": true, "broadcastingFromMicrophone": true, "externalDrivers": true,
            "role": "night"})";
    session.page.take();
    Fleet::answer(RoleCommand::GetRedirection, "{}", rights);
    QCOMPARE(rightsOf(own), (QStringList{"device", "alarm", "mic", "drives"}));
    QCOMPARE(session.page.take(), Fleet::lines(R"(
        wrapperInput_roleGlobal_editMicrophoneAlarm(0,"guard",1);
        wrapperInput_role_editMicrophoneAlarm(0,"guard",1);
        wrapperInput_roleGlobal_editMicrophone(0,"guard",1);
        wrapperInput_role_editMicrophone(0,"guard",1);)"));
    Fleet::answer(RoleCommand::SetRedirection, rights, "{}");
    QCOMPARE(rightsOf(night), (QStringList{"device", "alarm", "mic", "drives"}));
    QCOMPARE(session.page.take(), Fleet::lines(R"(
        wrapperInput_role_editMicrophoneAlarm(1,"night",1);
        wrapperInput_role_editMicrophone(1,"night",1);
        modalAdminEditRole();)"));
}

namespace
{

/// A list of a role with its commands and names.
struct ListRow {
    const char* field;
    const char* word;
    QVector<int> Role::*ids;
    RoleCommand get;
    RoleCommand set;
    const char* nextStep;
};

const ListRow listRows[] = {
    {"zones", "Zone", &Role::zones, RoleCommand::GetZones, RoleCommand::SetZones, "savePlaylist"},
    {"playlists", "Playlist", &Role::playlists, RoleCommand::GetPlaylist, RoleCommand::SetPlaylist,
     "savePreset"},
    {"presets", "Preset", &Role::presets, RoleCommand::GetPreset, RoleCommand::SetPreset,
     "saveTask"},
    {"tasks", "Task", &Role::tasks, RoleCommand::GetTasks, RoleCommand::SetTasks,
     "saveRoleSettings"},
};

/// The calls that untick all boxes of the list on the page, tick 4 and 5, and end as given.
QStringList fillOf(const ListRow& row, const char* end)
{
    return Fleet::lines(qPrintable(QString("wrapperInput_role_clean%1s(1);\n"
                                           "wrapperInput_role_select%1(1,4);\n"
                                           "wrapperInput_role_select%1(1,5);\n%2();")
                                       .arg(row.word, end)));
}

} // namespace

void RoleRightsTest::listIsTakenOver_data()
{
    QTest::addColumn<int>("list");
    for (int index = 0; index < 4; ++index) {
        QTest::newRow(listRows[index].field) << index;
    }
}

/// From the server's answer, and from what was stored, which goes on with the page's saving.
void RoleRightsTest::listIsTakenOver()
{
    QFETCH(int, list);
    const ListRow& row = listRows[list];
    SessionFixture session;
    Rights::addOwnRole();
    Role& night = Rights::addRole(1, "night");
    const QJsonArray objects{QJsonObject{{"id", 4}}, QJsonObject{{"id", 5}}};
    const QJsonArray stored = row.set == RoleCommand::SetTasks ? objects : QJsonArray{4, 5};
    night.*row.ids = {9};
    session.page.take();
    Fleet::answer(row.get, QJsonObject{{"role", "night"}}, {{row.field, objects}});
    QCOMPARE(night.*row.ids, (QVector<int>{4, 5}));
    QCOMPARE(session.page.take(), fillOf(row, "wrapperInput_role_reloadPermissions"));
    night.*row.ids = {9};
    Fleet::answer(row.set, QJsonObject{{"role", "night"}, {row.field, stored}}, {});
    QCOMPARE(night.*row.ids, (QVector<int>{4, 5}));
    QCOMPARE(session.page.calls(), fillOf(row, row.nextStep));
}

void RoleRightsTest::storedRightsRefreshTheOperator_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QStringList>("requests");
    const QStringList all{
        "user/list",          "user/getConnected", "server/getNetworkInterfaceList",
        "server/getSettings", "device/getDevices", "zone/list",
        "playback/list",      "playback/getPlays"};
    const auto own = [](const char* rights) {
        return QString(R"({"role": "guard", %1})").arg(rights);
    };
    QTest::newRow("other role") << QString(allRights) << QStringList();
    QTest::newRow("everything") << QString(allRights).replace("night", "guard") << all;
    QTest::newRow("users") << own(R"("userManagement": true)") << QStringList(all.mid(0, 2));
    QTest::newRow("server") << own(R"("serverManagement": true)") << QStringList(all.mid(2, 2));
    QTest::newRow("zones") << own(R"("zoneManagement": true)") << QStringList(all.mid(4, 2));
    QTest::newRow("playlists") << own(R"("playbackManagement": "administration")")
                               << QStringList(all.mid(6, 2));
    QTest::newRow("playlists in part")
        << own(R"("playbackManagement": "control")") << QStringList();
}

void RoleRightsTest::storedRightsRefreshTheOperator()
{
    QFETCH(QString, asked);
    QFETCH(QStringList, requests);
    SessionFixture session;
    Rights::addOwnRole();
    Rights::addRole(1, "night");
    Fleet::answer(RoleCommand::SetServer, qPrintable(asked), "{}");
    QCOMPARE(Fleet::takeRequests(), requests);
    // The same behind the lists, with the server's versions.
    Fleet::answer(RoleCommand::SetPermissions, qPrintable(asked), "{}");
    const int server = requests.indexOf("server/getSettings");
    if (server >= 0) {
        requests.insert(server + 1, "helper/checkServerUpdate");
        requests.insert(server + 1, "helper/getCurrentServerVersion");
    }
    QCOMPARE(Fleet::takeRequests(), requests);
}

void RoleRightsTest::storedPermissionsTakeOverEverything()
{
    SessionFixture session;
    Rights::addOwnRole();
    Role& night = Rights::addRole(1, "night");
    night.presets = {9};
    session.page.take();
    Fleet::answer(RoleCommand::SetPermissions, allRights, "{}");
    QCOMPARE(night.zones, (QVector<int>{4, 5}));
    QCOMPARE(night.playlists, QVector<int>{6});
    QCOMPARE(night.presets, QVector<int>());
    QCOMPARE(night.tasks, QVector<int>{8});
    QCOMPARE(rightsOf(night), allManagement);
    QCOMPARE(session.page.calls(), Fleet::lines(R"(
        wrapperInput_role_cleanZones(1);
        wrapperInput_role_selectZone(1,4);
        wrapperInput_role_selectZone(1,5);
        wrapperInput_role_cleanPlaylists(1);
        wrapperInput_role_selectPlaylist(1,6);
        wrapperInput_role_cleanPresets(1);
        wrapperInput_role_cleanTasks(1);
        wrapperInput_role_selectTask(1,8);
        wrapperInput_role_editServerManagement(1,"night",1);
        wrapperInput_role_editUserManagement(1,"night",1);
        wrapperInput_role_editRoleManagement(1,"night",1);
        wrapperInput_role_editZoneManagement(1,"night",1,0);
        wrapperInput_role_editDeviceManagement(1,"night",1);
        wrapperInput_role_editPlaybackManagement(1,"night",1,0);
        wrapperInput_role_editScheduleManagement(1,"night",1,0);
        wrapperInput_role_editPresetManagement(1,"night",1,0);
        wrapperInput_role_reloadPermissions();
        saveRoleTranslationSettings();)"));
}

void RoleRightsTest::answerAboutARoleThatHasGone_data()
{
    QTest::addColumn<int>("command");
    for (int command = 0; command < static_cast<int>(RoleCommand::Count); ++command) {
        const auto which = static_cast<RoleCommand>(command);
        if (which != RoleCommand::Add && which != RoleCommand::GetInfo &&
            which != RoleCommand::List) {
            QTest::addRow("%d", command) << command;
        }
    }
}

void RoleRightsTest::answerAboutARoleThatHasGone()
{
    QFETCH(int, command);
    SessionFixture session;
    Rights::addOwnRole();
    QJsonObject asked = Fleet::json(allRights);
    asked.insert("name", "night");
    asked.insert("user", "boris");
    session.page.take();
    Fleet::answer(static_cast<RoleCommand>(command), asked, asked);
    QCOMPARE(session.page.calls(), QStringList());
    QCOMPARE(Fleet::takeRequests(), QStringList());
    QVERIFY(session.log.hasLineWith("Ignored reply: unknown"));
}

QTEST_GUILESS_MAIN(RoleRightsTest)
#include "RoleRightsTest.moc"
