#include "simulator/commands/CommandTable.h"
#include "simulator/commands/PlayFields.h"
#include "simulator/state/Rights.h"

#include <QJsonArray>

#include <algorithm>

namespace simulator
{

namespace
{

void tell(Context& context, const QString& role)
{
    context.pushToOthers(makePush("role", "reloadChanges", {{"name", role}}));
}

QJsonObject add(Context& context, const QJsonObject& request)
{
    Role role;
    role.name = request.value("name").toString();
    role.title = request.value("title").toString();
    QVector<Role>& roles = context.installation().roles;
    if (!isTitle(role.name) || role.name.contains(' ') || !isTitle(role.title) ||
        context.installation().role(role.name)) {
        return refusal("error");
    }
    if (std::any_of(roles.begin(), roles.end(),
                    [&role](const Role& other) { return other.title == role.title; })) {
        return refusal("titleExists");
    }
    roles.append(role);
    tell(context, role.name);
    return success();
}

QJsonObject edit(Context& context, const QJsonObject& request)
{
    Role* role = context.installation().role(request.value("name").toString());
    const QString title = request.value("title").toString();
    if (!role || !isTitle(title)) {
        return refusal("error");
    }
    role->title = title;
    tell(context, role->name);
    return success();
}

/// Its accounts are left without a role. The role that one works with stays.
QJsonObject remove(Context& context, const QJsonObject& request)
{
    const QString name = request.value("name").toString();
    Installation& installation = context.installation();
    if (!installation.role(name) || name == administratorName || name == context.role()->name) {
        return refusal("error");
    }
    installation.roles.erase(
        std::remove_if(installation.roles.begin(), installation.roles.end(),
                       [&name](const Role& role) { return role.name == name; }),
        installation.roles.end());
    for (Account& account : installation.accounts) {
        if (account.role == name) {
            account.role.clear();
        }
    }
    tell(context, context.role()->name);
    context.pushToOthers(reloadPush("user"));
    return success();
}

/// Ids of an array of numbers, or of objects with an `id`.
QVector<int> idsIn(const QJsonValue& array)
{
    QJsonArray ids;
    const QJsonArray values = array.toArray();
    for (const QJsonValue& value : values) {
        ids.append(value.isObject() ? value["id"] : value);
    }
    return fromArray(ids);
}

struct ListKey {
    const char* key;
    QVector<int> Role::*ids;
};

constexpr ListKey zoneKey{"zones", &Role::zoneIds};
constexpr ListKey playlistKey{"playlists", &Role::playlistIds};
constexpr ListKey presetKey{"presets", &Role::presetIds};
constexpr ListKey taskKey{"tasks", &Role::taskIds};

bool takeList(Role& role, const QJsonObject& request, const ListKey& list)
{
    // A role without limits has them all; its list says nothing.
    if (!role.seesAll) {
        role.*list.ids = idsIn(request.value(list.key));
    }
    return request.value(list.key).isArray();
}

bool takeRights(Role& role, const QJsonObject& request, const QJsonObject& known)
{
    const QStringList keys = known.keys();
    return std::all_of(keys.begin(), keys.end(), [&role, &request](const QString& key) {
        return setRight(role, key, request.value(key));
    });
}

/// Makes a change to the role of a request, all of it or, when it fails, nothing. The
/// administrators keep what they may.
template <typename Change>
QJsonObject changeRole(Context& context, const QJsonObject& request, Change change)
{
    Role* role = context.installation().role(request.value("role").toString());
    if (!role) {
        return refusal("error");
    }
    Role changed = *role;
    if (!change(changed)) {
        return refusal("error");
    }
    if (role->name == administratorName && (managementRights(*role) != managementRights(changed) ||
                                            broadcastRights(*role) != broadcastRights(changed))) {
        return refusal("forbidden");
    }
    *role = changed;
    tell(context, role->name);
    return success();
}

template <const ListKey& list> QJsonObject setList(Context& context, const QJsonObject& request)
{
    return changeRole(context, request,
                      [&request](Role& role) { return takeList(role, request, list); });
}

QJsonObject setRedirection(Context& context, const QJsonObject& request)
{
    return changeRole(context, request, [&request](Role& role) {
        return takeRights(role, request, broadcastRights(role));
    });
}

QJsonObject setServer(Context& context, const QJsonObject& request)
{
    return changeRole(context, request, [&request](Role& role) {
        return takeRights(role, request, managementRights(role));
    });
}

/// Whether a role's zones hold all that is to be played on, units by any zone that they are in.
const char* missingTarget(const Installation& installation, const Role& role,
                          const Targets& targets)
{
    const auto isForeignZone = [&role](int id) { return !role.zoneIds.contains(id); };
    const auto isForeignUnit = [&](int id) {
        return std::none_of(
            installation.zones.begin(), installation.zones.end(),
            [&](const Zone& zone) { return !isForeignZone(zone.id) && zone.units.contains(id); });
    };
    if (std::any_of(targets.zones.begin(), targets.zones.end(), isForeignZone)) {
        return "Zone";
    }
    return std::any_of(targets.units.begin(), targets.units.end(), isForeignUnit) ? "Device"
                                                                                  : nullptr;
}

/// What a role lacks of one of its presets or tasks, as the word of the refusal; empty if nothing.
QString lack(const Installation& installation, const Role& role, int playlist,
             const Targets& targets, const char* kind)
{
    const char* const missing = role.playlistIds.contains(playlist)
                                    ? missingTarget(installation, role, targets)
                                    : "Playlist";
    return missing ? QStringLiteral("forbidden%1In%2").arg(missing, kind) : QString();
}

/// The first lack among all that the role is given.
QString lackOf(const Installation& installation, const Role& role)
{
    QString word;
    for (const Preset& preset : installation.presets) {
        if (word.isEmpty() && role.presetIds.contains(preset.id)) {
            word = lack(installation, role, preset.playlist, preset.targets, "Preset");
        }
    }
    for (const Task& task : installation.tasks) {
        if (word.isEmpty() && task.play && role.taskIds.contains(task.id)) {
            word = lack(installation, role, task.target, task.targets, "Task");
        }
    }
    return word;
}

QJsonObject setPermissions(Context& context, const QJsonObject& request)
{
    QString word;
    const QJsonObject answer = changeRole(context, request, [&](Role& role) {
        const bool isWhole = takeRights(role, request, managementRights(role)) &&
                             takeList(role, request, zoneKey) &&
                             takeList(role, request, playlistKey) &&
                             takeList(role, request, presetKey) && takeList(role, request, taskKey);
        word = isWhole && !role.seesAll ? lackOf(context.installation(), role) : QString();
        return isWhole && word.isEmpty();
    });
    return word.isEmpty() ? answer : QJsonObject{{"response", word}};
}

} // namespace

Commands roleEditingCommands()
{
    const QLatin1String role("role");
    const Need need{Right::Roles, Level::Administration};
    return {
        {role, QLatin1String("add"), need, add},
        {role, QLatin1String("edit"), need, edit},
        {role, QLatin1String("delete"), need, remove},
        {role, QLatin1String("setRedirection"), need, setRedirection},
        {role, QLatin1String("setServer"), need, setServer},
        {role, QLatin1String("setZones"), need, setList<zoneKey>},
        {role, QLatin1String("setPlaylist"), need, setList<playlistKey>},
        {role, QLatin1String("setPreset"), need, setList<presetKey>},
        {role, QLatin1String("setTasks"), need, setList<taskKey>},
        {role, QLatin1String("setPermissions"), need, setPermissions},
    };
}

} // namespace simulator
