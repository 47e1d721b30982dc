#include "protocol/input/InputProtocolRole.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Role.h"
#include "network/Fields.h"
#include "protocol/ProtocolRole.h"
#include "protocol/Request.h"

namespace
{

/// The rights of the operator have changed, and with them what the server shows.
void reloadOwn()
{
    send(RoleCommand::GetInfo);
    send(RoleCommand::GetServer);
    send(RoleCommand::GetRedirection);
    send(DeviceCommand::GetDevices);
    send(ZoneCommand::List);
    send(PlaybackCommand::List);
    send(PlaybackCommand::GetPlays);
    send(PresetCommand::List);
    send(TaskCommand::List);
    send(TaskCommand::GetPlays);
}

} // namespace

void inputProtocolRoleCommandReloadChanges(const QJsonObject& message)
{
    const auto name = Fields::text(message, "name");
    if (!name) {
        Log::dropped(QStringLiteral("Ignored change of a role: no name"));
        return;
    }
    const Role* const known = Data::getRoleByName(*name);
    if (known && known->getCurrent()) {
        reloadOwn();
        return;
    }
    if (!known) {
        appendRole(*name).addToPage(false);
    }
    const QJsonObject role{{QStringLiteral("role"), *name}};
    send(RoleCommand::List);
    send(RoleCommand::GetServer, role);
    send(RoleCommand::GetRedirection, role);
}
