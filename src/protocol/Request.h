#pragma once

#include "protocol/Commands.h"

#include <QJsonObject>

/// Sends one request, and remembers it for its reply: `fields` are the command's own, the names of
/// protocol and command and the `order` are put in here.
void sendRequest(ProtocolId protocol, int command, QJsonObject fields);

/// The one way to the server: `send(DeviceCommand::SetVolume, {{"id", id}, {"volume", volume}})`.
template <class Command> void send(Command command, const QJsonObject& fields = {})
{
    sendRequest(protocolOf(command), static_cast<int>(command), fields);
}
