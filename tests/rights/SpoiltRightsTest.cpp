#include "rights/Rights.h"

#include <QJsonDocument>
#include <QTest>

#include <algorithm>
#include <tuple>

/// Every field of every message about roles and users, missing or with a value that it can't have.
class SpoiltRightsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void spoiltFieldChangesNothing_data();
    void spoiltFieldChangesNothing();
};

namespace
{

template <class Command>
void addRow(const char* name, Command command, const char* asked, const char* reply)
{
    const bool isRole = std::is_same_v<Command, RoleCommand>;
    QTest::newRow(name) << isRole << static_cast<int>(command) << Fleet::json(asked)
                        << Fleet::json(reply);
}

void give(bool isRole, int command, const QJsonObject& asked, const QJsonObject& reply)
{
    if (isRole) {
        Fleet::answer(static_cast<RoleCommand>(command), asked, reply);
    } else {
        Fleet::answer(static_cast<UserCommand>(command), asked, reply);
    }
}

/// What the mirror has of its first roles and users, but for the lists of ids.
QStringList mirror()
{
    QStringList result;
    for (const char* const name : {"guard", "night"}) {
        const Role& role = *Data::getRoleByName(name);
        result.append(role.getName() + role.getTitle() + role.users.join(','));
        for (const bool right :
             {role.getServerManagement(), role.getUserManagement(), role.getZoneManagement(),
              role.getRoleManagement(), role.getDeviceManagement(), role.getPlaybackManagement(),
              role.getScheduleManagement(), role.getPresetManagement(),
              role.getBroadcastAlarmAccess(), role.getBroadcastMicrophoneAccess()}) {
            result.append(QString::number(right));
        }
    }
    for (const char* const name : {"anna", "boris"}) {
        const User& user = *Data::getUserByName(name);
        result.append(user.getName() + user.getTitle() + user.getRole() + user.getValue("tab"));
    }
    return result;
}

/// Whether the role's lists hold nothing but what the good messages name.
bool hasOnlyGoodIds(const Role& role)
{
    for (const QVector<int>& ids : {role.zones, role.playlists, role.presets, role.tasks}) {
        if (std::any_of(ids.begin(), ids.end(), [](int id) { return id != 4 && id != 5; })) {
            return false;
        }
    }
    return true;
}

const char* const rights = R"({"role": "night", "serverManagement": true, "userManagement": true,
    "zoneManagement": true, "roleManagement": "administration",
    "deviceManagement": "administration", "playbackManagement": "administration",
    "taskManagement": "administration", "presetManagement": "administration"})";
const char* const night = R"({"role": "night"})";

/// The role "night" and the user "boris" as the good messages leave them.
void fillMirror()
{
    Rights::addOwnUser().setValue("tab", "zones");
    Rights::addUser(1, "boris", "night").setTitle("Boris");
    Rights::addOwnRole();
    Role& role = Rights::addRole(1, "night");
    role.setTitle("Night");
    role.users = QStringList{"boris"};
    Fleet::answer(RoleCommand::GetServer, night, rights);
    Fleet::answer(
        RoleCommand::GetRedirection, night,
        R"({"alarm": true, "broadcastingFromMicrophone": true, "externalDrivers": true})");
    Fleet::takeRequests();
}

} // namespace

void SpoiltRightsTest::spoiltFieldChangesNothing_data()
{
    QTest::addColumn<bool>("isRole");
    QTest::addColumn<int>("command");
    QTest::addColumn<QJsonObject>("asked");
    QTest::addColumn<QJsonObject>("reply");
    addRow("getServer", RoleCommand::GetServer, night, rights);
    addRow("getRedirection", RoleCommand::GetRedirection, night,
           R"({"alarm": true, "broadcastingFromMicrophone": true, "externalDrivers": true})");
    addRow("role getInfo", RoleCommand::GetInfo, "{}", R"({"name": "night", "title": "Night"})");
    addRow("role list", RoleCommand::List, "{}", R"({"roles": [
        {"name": "guard", "title": "", "users": []},
        {"name": "night", "title": "Night", "users": [{"name": "boris"}]},
        {"name": "new", "title": "New", "users": [{"name": "boris"}]}]})");
    addRow("user list", UserCommand::List, "{}", R"({"users": [
        {"name": "anna", "title": "Anna", "role": "guard"},
        {"name": "boris", "title": "Boris", "role": "night"}]})");
    addRow("longer user list", UserCommand::List, "{}", R"({"users": [
        {"name": "anna", "title": "Anna", "role": "guard"},
        {"name": "vera", "title": "Vera", "role": "night"},
        {"name": "boris", "title": "Boris", "role": "night"}]})");
    addRow("getConnected", UserCommand::GetConnected, "{}", R"({"users": ["boris"]})");
    addRow("user getInfo", UserCommand::GetInfo, "{}",
           R"({"name": "anna", "title": "Anna", "role": "guard"})");
    addRow("loadValue", UserCommand::LoadValue, R"({"key": "tab"})", R"({"value": "zones"})");
    for (const auto& [name, command, field] :
         {std::tuple("getZones", RoleCommand::GetZones, "zones"),
          std::tuple("getPlaylist", RoleCommand::GetPlaylist, "playlists"),
          std::tuple("getPreset", RoleCommand::GetPreset, "presets"),
          std::tuple("getTasks", RoleCommand::GetTasks, "tasks")}) {
        addRow(name, command, night,
               qPrintable(QString(R"({"%1": [{"id": 4}, {"id": 5}]})").arg(field)));
    }
}

/// The mirror has taken the good message over already, so that a spoilt one has nothing to tell.
void SpoiltRightsTest::spoiltFieldChangesNothing()
{
    QFETCH(bool, isRole);
    QFETCH(int, command);
    QFETCH(QJsonObject, asked);
    QFETCH(QJsonObject, reply);
    for (const QJsonObject& spoilt : Rights::spoiltVersions(reply)) {
        SessionFixture session;
        fillMirror();
        const QStringList before = mirror();
        session.page.take();
        give(isRole, command, asked, spoilt);
        const QString text = QJsonDocument(spoilt).toJson(QJsonDocument::Compact);
        QVERIFY2(mirror() == before, qPrintable(text));
        QVERIFY2(hasOnlyGoodIds(*Data::getRoleByName("night")), qPrintable(text));
        QCOMPARE(session.endCount(), 0);
        for (const QString& call : session.page.calls()) {
            QVERIFY2(!call.contains("seven") && !call.contains(",7"), qPrintable(text + call));
        }
    }
}

QTEST_GUILESS_MAIN(SpoiltRightsTest)
#include "SpoiltRightsTest.moc"
