#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Playlist.h"
#include "model/Preset.h"
#include "model/RoleLists.h"
#include "model/Task.h"
#include "model/Zone.h"
#include "page/ScriptCall.h"
#include "protocol/PlayFields.h"
#include "protocol/Request.h"
#include "view/ScriptPipe.h"
#include "view/SlotLog.h"

#include <QSet>

namespace
{

using Right = Role::Right;

constexpr int operatorRoleId = 0;
constexpr int alarmPlaylistId = 6;

/// Ticks the boxes of one list, but for entries that aren't there any more.
template <class Known> void showList(const Role& role, const RoleList& list, Known isKnown)
{
    Page::call(list.clearScript);
    for (const int id : role.*list.ids) {
        if (isKnown(id)) {
            Page::call(list.selectScript, role.getId(), id);
        }
    }
}

void showLists(const Role& role)
{
    const auto any = [](int) { return true; };
    showList(role, RoleLists::zones, any);
    showList(role, RoleLists::playlists, any);
    showList(role, RoleLists::presets, Data::getPresetById);
    showList(role, RoleLists::tasks, Data::getTaskById);
    Page::call("wrapperInput_role_reloadPermissions");
}

/// The right to the server is told as text wherever it is replayed.
void showServerRight(const Role& role, const char* script)
{
    Page::call(script, role.getId(), role.getName(), QString::number(role.getServerManagement()));
}

QJsonObject named(const QString& role)
{
    return {{QStringLiteral("role"), role}};
}

QJsonObject withIds(QJsonObject fields, const RoleList& list, const QList<int>& ids)
{
    fields.insert(QLatin1String(list.field), PlayFields::idArray(ids.toVector()));
    return fields;
}

/// Tasks go with a level each.
QJsonObject withTasks(QJsonObject fields, const QList<int>& ids)
{
    QJsonArray tasks;
    for (const int id : ids) {
        tasks.append(QJsonObject{{QStringLiteral("id"), id},
                                 {QStringLiteral("permission"), QStringLiteral("administration")}});
    }
    fields.insert(QStringLiteral("tasks"), tasks);
    return fields;
}

/// The management rights as they travel: what isn't the right itself stays a part of it.
QJsonObject withRights(QJsonObject fields, const QVariantMap& rights)
{
    for (const char* const flag : {"serverManagement", "userManagement", "zoneManagement"}) {
        fields.insert(QLatin1String(flag), rights.value(QLatin1String(flag)).toBool());
    }
    const struct {
        const char* key;
        const char* part;
    } levels[] = {{"roleManagement", "control"},
                  {"playbackManagement", "control"},
                  {"deviceManagement", "control"},
                  {"taskManagement", "read"},
                  {"presetManagement", "read"}};
    for (const auto& level : levels) {
        const bool isOn = rights.value(QLatin1String(level.key)).toBool();
        fields.insert(QLatin1String(level.key),
                      isOn ? QStringLiteral("administration") : QString(level.part));
    }
    return fields;
}

/// What a role has to have for presets or tasks, each zone and playlist once.
struct Locks {
    QVector<int> zones;
    QVector<int> playlists;
    QSet<int> knownZones;
    QSet<int> knownPlaylists;

    void addZone(int id)
    {
        if (!knownZones.contains(id)) {
            knownZones.insert(id);
            zones.append(id);
        }
    }

    /// One without targets reaches everything.
    void add(const PlayDefinition& entry)
    {
        if (!knownPlaylists.contains(entry.getPlaylist())) {
            knownPlaylists.insert(entry.getPlaylist());
            playlists.append(entry.getPlaylist());
        }
        if (entry.isForAll()) {
            reachesAll = true;
            return;
        }
        for (const int id : entry.getDeviceList()) {
            const Device* const device = Data::getDeviceById(id);
            for (const int zone : device ? device->getZoneList() : QVector<int>()) {
                addZone(zone);
            }
        }
        for (const int zone : entry.getZoneList()) {
            addZone(zone);
        }
    }

    void completeAll()
    {
        for (const Zone& zone : Data::zoneList) {
            if (reachesAll) {
                addZone(zone.getId());
            }
        }
    }

    bool reachesAll = false;
};

/// Ticks the entries that count, and adds what they lock.
template <class Entry>
void lockFor(const ModelList<Entry>& entries, bool all, const QList<int>& ids, int roleId,
             const char* selectScript, Locks& locks)
{
    const QSet<int> chosen(ids.begin(), ids.end());
    for (const Entry& entry : entries) {
        if (all || chosen.contains(entry.getId())) {
            Page::call(selectScript, roleId, entry.getId());
            locks.add(entry);
        }
    }
}

} // namespace

void WebView::load_permissions()
{
    if (const Role* const role = Data::getCurrentRole()) {
        for (const Right right :
             {Right::Device, Right::Zone, Right::Microphone, Right::MicrophoneAlarm}) {
            role->showToOperator(right);
        }
    }
    Page::call("wrapperInput_playbackGlobal_editAlarm",
               Data::getPlaylistById(alarmPlaylistId) != nullptr);
}

void WebView::admin_loadPermissions()
{
    const SlotLog log("admin_loadPermissions");
    const Role* const role = Data::getCurrentRole();
    if (!role) {
        return;
    }
    showServerRight(*role, "wrapperInput_roleGlobal_editServerManagement");
    for (const Right right : {Right::Device, Right::Zone, Right::User, Right::Role, Right::Playback,
                              Right::Preset, Right::Schedule}) {
        role->showToOperator(right);
    }
}

void WebView::admin_loadRoleList()
{
    const SlotLog log("admin_loadRoleList", {}, LogLevel::RoleSettings);
    const Role* const own = Data::getCurrentRole();
    for (const Role& role : Data::roleList) {
        Log::message(QStringLiteral("Load role: ") + role.getName(), LogLevel::RoleSettings);
        const bool isKept =
            (own && role.getName() == own->getName()) || role.getName() == QLatin1String("admin");
        role.addToPage(isKept);
    }
    if (!Data::roleList.isEmpty()) {
        admin_selectRole(operatorRoleId);
    }
}

void WebView::admin_selectRole(int id)
{
    const SlotLog log("admin_selectRole", QStringLiteral(": %1").arg(id), LogLevel::RoleSettings);
    const Role* const role = Data::getRoleById(id);
    if (!role) {
        Log::message(QStringLiteral("Unknown role: %1").arg(id), LogLevel::RoleSettings);
        return;
    }
    Page::call("wrapperInput_role_select", id);
    Page::call("wrapperInput_role_edit", id, role->getName(), role->getTitle());
    showServerRight(*role, "wrapperInput_role_editServerManagement");
    for (const Right right :
         {Right::Device, Right::Zone, Right::User, Right::Role, Right::Playback, Right::Preset,
          Right::Schedule, Right::Microphone, Right::MicrophoneAlarm}) {
        role->showOnPage(right);
    }
    showLists(*role);
}

void WebView::admin_addRole(const QString& name, const QString& title)
{
    const SlotLog log("admin_addRole", QStringLiteral(": ") + name, LogLevel::RoleSettings);
    send(RoleCommand::Add, {{QStringLiteral("name"), name}, {QStringLiteral("title"), title}});
}

void WebView::admin_editRole(int id, const QString& name, const QString& title)
{
    const SlotLog log("admin_editRole", QStringLiteral(": %1, ").arg(id) + name,
                      LogLevel::RoleSettings);
    send(RoleCommand::Edit, {{QStringLiteral("name"), name}, {QStringLiteral("title"), title}});
}

void WebView::admin_deleteRole(int id)
{
    const SlotLog log("admin_deleteRole", QStringLiteral(": %1").arg(id), LogLevel::RoleSettings);
    if (const Role* const role = Data::getRoleById(id)) {
        send(RoleCommand::Delete, {{QStringLiteral("name"), role->getName()}});
    }
}

void WebView::admin_editRoleSettings(const QString& name, bool server, bool user, bool role,
                                     bool zone, bool device, bool playback, bool task, bool preset)
{
    const SlotLog log("admin_editRoleSettings", QStringLiteral(": ") + name,
                      LogLevel::RoleSettings);
    send(RoleCommand::SetServer,
         withRights(named(name), {{QStringLiteral("serverManagement"), server},
                                  {QStringLiteral("userManagement"), user},
                                  {QStringLiteral("roleManagement"), role},
                                  {QStringLiteral("zoneManagement"), zone},
                                  {QStringLiteral("deviceManagement"), device},
                                  {QStringLiteral("playbackManagement"), playback},
                                  {QStringLiteral("taskManagement"), task},
                                  {QStringLiteral("presetManagement"), preset}}));
}

void WebView::admin_editRoleTranslation(const QString& name, bool microphone, bool alarm)
{
    const SlotLog log("admin_editRoleTranslation", QStringLiteral(": ") + name,
                      LogLevel::RoleSettings);
    QJsonObject fields = named(name);
    fields.insert(QStringLiteral("broadcastingFromMicrophone"), microphone);
    fields.insert(QStringLiteral("alarm"), alarm);
    fields.insert(QStringLiteral("externalDrivers"), false);
    send(RoleCommand::SetRedirection, fields);
}

void WebView::admin_saveZones(const QString& name, const QList<int>& list)
{
    const SlotLog log("admin_saveZones", QStringLiteral(": ") + name, LogLevel::RoleSettings);
    send(RoleCommand::SetZones, withIds(named(name), RoleLists::zones, list));
}

void WebView::admin_savePlaylists(const QString& name, const QList<int>& list)
{
    const SlotLog log("admin_savePlaylists", QStringLiteral(": ") + name, LogLevel::RoleSettings);
    send(RoleCommand::SetPlaylist, withIds(named(name), RoleLists::playlists, list));
}

void WebView::admin_savePresets(const QString& name, const QList<int>& list)
{
    const SlotLog log("admin_savePresets", QStringLiteral(": ") + name, LogLevel::RoleSettings);
    send(RoleCommand::SetPreset, withIds(named(name), RoleLists::presets, list));
}

void WebView::admin_saveTasks(const QString& name, const QList<int>& list)
{
    const SlotLog log("admin_saveTasks", QStringLiteral(": ") + name, LogLevel::RoleSettings);
    send(RoleCommand::SetTasks, withTasks(named(name), list));
}

void WebView::admin_savePermissions(const QString& name, const QList<int>& zones,
                                    const QList<int>& playlists, const QList<int>& presets,
                                    const QList<int>& tasks, const QVariantMap& rights)
{
    const SlotLog log("admin_savePermissions", QStringLiteral(": ") + name, LogLevel::RoleSettings);
    QJsonObject fields = withRights(named(name), rights);
    fields = withIds(fields, RoleLists::zones, zones);
    fields = withIds(fields, RoleLists::playlists, playlists);
    fields = withIds(fields, RoleLists::presets, presets);
    send(RoleCommand::SetPermissions, withTasks(fields, tasks));
}

void WebView::admin_reloadBlocksForRole(const QString& name, bool isPresetAdmin,
                                        const QList<int>& presetList, bool isTaskAdmin,
                                        const QList<int>& taskList)
{
    const SlotLog log("admin_reloadBlocksForRole", QStringLiteral(": ") + name,
                      LogLevel::RoleSettings);
    const Role* const role = Data::getRoleByName(name);
    if (!role) {
        return;
    }
    {
        const ScriptPipe::Gathering boxes(scripts);
        Page::call("wrapperInput_role_unblockZones");
        Page::call("wrapperInput_role_unblockPlaylists");
        Locks locks;
        lockFor(Data::presetList, isPresetAdmin, presetList, role->getId(),
                RoleLists::presets.selectScript, locks);
        lockFor(Data::tasks, isTaskAdmin, taskList, role->getId(), RoleLists::tasks.selectScript,
                locks);
        locks.completeAll();
        for (const int playlist : qAsConst(locks.playlists)) {
            Page::call("wrapperInput_role_blockPlaylist", role->getId(), playlist);
        }
        for (const int zone : qAsConst(locks.zones)) {
            Page::call("wrapperInput_role_blockZone", role->getId(), zone);
        }
    }
    scripts.flush();
}
