#include "simulator/commands/CommandTable.h"
#include "simulator/state/Rights.h"

#include <QJsonArray>

namespace simulator
{

namespace
{

/// The role that a request names, the asker's own when it names none, null when the asker may not
/// know of it.
const Role* roleIn(Context& context, const QJsonObject& request)
{
    const QJsonValue name = request.value("role");
    const Role* role =
        name.isUndefined() ? context.role() : context.installation().role(name.toString());
    return role && context.access().sees(*role) ? role : nullptr;
}

QJsonObject getInfo(Context& context, const QJsonObject&)
{
    return success({{"name", context.role()->name}, {"title", context.role()->title}});
}

QJsonObject list(Context& context, const QJsonObject&)
{
    QJsonArray roles;
    for (const Role& role : context.installation().roles) {
        if (!context.access().sees(role)) {
            continue;
        }
        QJsonArray users;
        for (const QString& name : context.installation().accountsOf(role.name)) {
            users.append(QJsonObject{{"name", name}});
        }
        roles.append(QJsonObject{{"name", role.name}, {"title", role.title}, {"users", users}});
    }
    return success({{"roles", roles}});
}

QJsonObject getRedirection(Context& context, const QJsonObject& request)
{
    const Role* role = roleIn(context, request);
    return role ? success(broadcastRights(*role)) : refusal("error");
}

QJsonObject getServer(Context& context, const QJsonObject& request)
{
    const Role* role = roleIn(context, request);
    return role ? success(managementRights(*role)) : refusal("error");
}

/// One of a role's four lists under `key`: all records of the kind for a role without limits.
template <typename Records>
QJsonObject idList(Context& context, const QJsonObject& request, const char* key,
                   const Records& records, QVector<int> Role::*listed)
{
    const Role* role = roleIn(context, request);
    if (!role) {
        return refusal("error");
    }
    QJsonArray ids;
    for (const auto& record : records) {
        if (role->seesAll || (role->*listed).contains(record.id)) {
            ids.append(QJsonObject{{"id", record.id}});
        }
    }
    return success({{key, ids}});
}

QJsonObject getZones(Context& context, const QJsonObject& request)
{
    return idList(context, request, "zones", context.installation().zones, &Role::zoneIds);
}

QJsonObject getPlaylist(Context& context, const QJsonObject& request)
{
    return idList(context, request, "playlists", context.installation().playlists,
                  &Role::playlistIds);
}

QJsonObject getPreset(Context& context, const QJsonObject& request)
{
    return idList(context, request, "presets", context.installation().presets, &Role::presetIds);
}

QJsonObject getTasks(Context& context, const QJsonObject& request)
{
    QVector<Task> plays; // a stop event goes with its play event
    for (const Task& task : context.installation().tasks) {
        if (task.play) {
            plays.append(task);
        }
    }
    return idList(context, request, "tasks", plays, &Role::taskIds);
}

} // namespace

Commands roleCommands()
{
    const QLatin1String role("role");
    return {
        {role, QLatin1String("getInfo"), {Right::Session}, getInfo},
        {role, QLatin1String("list"), {Right::Session}, list},
        {role, QLatin1String("getRedirection"), {Right::Session}, getRedirection},
        {role, QLatin1String("getServer"), {Right::Session}, getServer},
        {role, QLatin1String("getZones"), {Right::Session}, getZones},
        {role, QLatin1String("getPlaylist"), {Right::Session}, getPlaylist},
        {role, QLatin1String("getPreset"), {Right::Session}, getPreset},
        {role, QLatin1String("getTasks"), {Right::Session}, getTasks},
    };
}

} // namespace simulator
