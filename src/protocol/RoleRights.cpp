#include "protocol/RoleRights.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Role.h"
#include "model/RoleLists.h"
#include "page/ScriptCall.h"
#include "protocol/FieldSetter.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"
#include "protocol/RoleAccess.h"

namespace
{

constexpr Refusal rightsRefusals[] = {
    {"forbiddenZoneInTask", "modalAdminEditRoleError"},
    {"forbiddenPlaylistInTask", "modalAdminEditRoleError"},
    {"forbiddenZoneInPreset", "modalAdminEditRoleError"},
    {"forbiddenPlaylistInPreset", "modalAdminEditRoleError"},
    {"forbiddenDeviceInZone", "modalAdminEditRoleError"},
    {"forbiddenDeviceInTask", "modalAdminEditRoleError"},
    {"forbiddenDeviceInPreset", "modalAdminEditRoleError"},
    {"forbidden", "modalAdminEditRoleForbiddenError"},
    {"error", "modalAdminEditRoleForbiddenError"},
};

constexpr Refusal redirectionRefusals[] = {
    {"forbidden", "modalAdminEditRoleForbiddenError"},
    {"error", "modalAdminEditRoleForbiddenError"},
};

void takeManagement(Role& role, const QJsonObject& source)
{
    FieldSetter<Role> set(role, source, "role management");
    set.boolean("serverManagement", &Role::setServerManagement);
    set.boolean("userManagement", &Role::setUserManagement);
    set.text("roleManagement", &Role::setRoleManagement);
    set.boolean("zoneManagement", &Role::setZoneManagement);
    set.text("deviceManagement", &Role::setDeviceManagement);
    set.text("playbackManagement", &Role::setPlaybackManagement);
    set.text("taskManagement", &Role::setScheduleManagement);
    set.text("presetManagement", &Role::setPresetManagement);
}

void takeRedirection(Role& role, const QJsonObject& source)
{
    FieldSetter<Role> set(role, source, "role redirection");
    set.boolean("alarm", &Role::setBroadcastAlarmAccess);
    set.boolean("broadcastingFromMicrophone", &Role::setBroadcastMicrophoneAccess);
    set.boolean("externalDrivers", &Role::setBroadcastExternalAccess);
}

void askForServer()
{
    send(ServerCommand::GetNetworkInterfaceList);
    send(ServerCommand::GetSettings);
}

void askForUnits()
{
    send(DeviceCommand::GetDevices);
    send(ZoneCommand::List);
}

enum class Versions { Known, Ask };

/// Asks again for what the operator's role may see, after it has been changed from here.
void refresh(const Role& role, Versions versions)
{
    if (!role.getCurrent()) {
        return;
    }
    if (role.getUserManagement()) {
        send(UserCommand::List);
        send(UserCommand::GetConnected);
    }
    if (role.getServerManagement()) {
        askForServer();
        if (versions == Versions::Ask) {
            send(HelperCommand::GetCurrentServerVersion);
            send(HelperCommand::CheckServerUpdate);
        }
    }
    if (role.getZoneManagement()) {
        askForUnits();
    }
    if (role.getPlaybackManagement()) {
        send(PlaybackCommand::List);
        send(PlaybackCommand::GetPlays);
    }
}

} // namespace

Role* roleOfReply(const QJsonObject& reply)
{
    const auto name = Fields::text(request(reply), "role");
    Role* const role = name ? Data::getRoleByName(*name) : Data::getCurrentRole();
    if (!role) {
        Log::dropped(QStringLiteral("Ignored reply: unknown role ") + name.value_or(QString()));
    }
    return role;
}

void showRightsRefusal(const QJsonObject& reply)
{
    showRefusal(reply, rightsRefusals);
}

void protocolRoleCommandGetServer(const QJsonObject& reply)
{
    Role* const role = succeeded(reply) ? roleOfReply(reply) : nullptr;
    if (!role) {
        return;
    }
    const bool managedServer = role->getServerManagement();
    takeManagement(*role, reply);
    if (!managedServer && role->getServerManagement()) {
        askForServer();
        if (role->getCurrent()) {
            send(LogCommand::GetLevel);
            send(LogCommand::List);
        }
    }
    // Asked of the reply: each role that manages zones or units may open some more of them.
    if (Fields::boolean(reply, "zoneManagement").value_or(false)) {
        askForUnits();
    }
    if (Role::isGranted(Fields::text(reply, "deviceManagement").value_or(QString()))) {
        send(DeviceCommand::ListFirmware);
    }
}

void protocolRoleCommandSetServer(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        showRightsRefusal(reply);
    } else if (Role* const role = roleOfReply(reply)) {
        takeManagement(*role, request(reply));
        refresh(*role, Versions::Known);
    }
}

void protocolRoleCommandGetRedirection(const QJsonObject& reply)
{
    if (Role* const role = succeeded(reply) ? roleOfReply(reply) : nullptr) {
        takeRedirection(*role, reply);
    }
}

void protocolRoleCommandSetRedirection(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        showRefusal(reply, redirectionRefusals);
    } else if (Role* const role = roleOfReply(reply)) {
        takeRedirection(*role, request(reply));
        Page::call("modalAdminEditRole");
    }
}

void protocolRoleCommandSetPermissions(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        showListRefusal(reply);
        return;
    }
    Role* const role = roleOfReply(reply);
    if (!role) {
        return;
    }
    const QJsonObject asked = request(reply);
    for (const RoleList& list :
         {RoleLists::zones, RoleLists::playlists, RoleLists::presets, RoleLists::tasks}) {
        fillList(*role, asked, list);
    }
    takeManagement(*role, asked);
    refresh(*role, Versions::Ask);
    Page::call("wrapperInput_role_reloadPermissions");
    Page::call("saveRoleTranslationSettings");
}
