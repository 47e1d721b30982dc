#include "protocol/RoleAccess.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/RoleLists.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/Reply.h"
#include "protocol/RoleRights.h"

namespace
{

void takeList(const QJsonObject& reply, const RoleList& list)
{
    Role* const role = succeeded(reply) ? roleOfReply(reply) : nullptr;
    if (role && fillList(*role, reply, list)) {
        Page::call("wrapperInput_role_reloadPermissions");
    }
}

/// A list is stored, and the page goes on with the next step of its saving.
void storeList(const QJsonObject& reply, const RoleList& list, const char* nextStep)
{
    if (!succeeded(reply)) {
        showListRefusal(reply);
    } else if (Role* const role = roleOfReply(reply)) {
        fillList(*role, request(reply), list);
        Page::call(nextStep);
    }
}

} // namespace

bool fillList(Role& role, const QJsonObject& source, const RoleList& list)
{
    const auto elements = Fields::array(source, list.field);
    if (!elements) {
        Log::dropped(QStringLiteral("Ignored list of a role: no ") + QLatin1String(list.field));
        return false;
    }
    Page::call(list.clearScript, role.getId());
    QVector<int>& ids = role.*list.ids;
    ids.clear();
    for (const QJsonValue& element : *elements) {
        // The server names its entries as objects, the console stores some as bare ids.
        const auto id = element.isObject() ? Fields::integer(element.toObject(), "id")
                                           : Fields::integer(element);
        if (!id) {
            Log::dropped(QStringLiteral("Dropped element of a role's ") +
                         QLatin1String(list.field));
            continue;
        }
        ids.append(*id);
        Page::call(list.selectScript, role.getId(), *id);
    }
    return true;
}

void showListRefusal(const QJsonObject& reply)
{
    showRightsRefusal(reply);
    Page::call("wrapperInput_role_reloadPermissions");
}

void protocolRoleCommandGetZones(const QJsonObject& reply)
{
    takeList(reply, RoleLists::zones);
}

void protocolRoleCommandGetPlaylist(const QJsonObject& reply)
{
    takeList(reply, RoleLists::playlists);
}

void protocolRoleCommandGetPreset(const QJsonObject& reply)
{
    takeList(reply, RoleLists::presets);
}

void protocolRoleCommandGetTasks(const QJsonObject& reply)
{
    takeList(reply, RoleLists::tasks);
}

void protocolRoleCommandSetZones(const QJsonObject& reply)
{
    storeList(reply, RoleLists::zones, "savePlaylist");
}

void protocolRoleCommandSetPlaylist(const QJsonObject& reply)
{
    storeList(reply, RoleLists::playlists, "savePreset");
}

void protocolRoleCommandSetPreset(const QJsonObject& reply)
{
    storeList(reply, RoleLists::presets, "saveTask");
}

void protocolRoleCommandSetTasks(const QJsonObject& reply)
{
    storeList(reply, RoleLists::tasks, "saveRoleSettings");
}
