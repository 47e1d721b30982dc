#pragma once

#include "protocol/Commands.h"

#include <QJsonObject>

/// Sends one request, and remembers it for its reply: `fields` are the command's own, its names and
/// the `order` are put in on the way.
void sendRequest(ProtocolId protocol, int command, const QJsonObject& fields);

/// The one way to the server: `send(DeviceCommand::SetVolume, {{"id", id}, {"volume", volume}})`.
/// What an operator does, and what its reply causes, goes ahead of the console's own reading.
template <class Command> void send(Command command, const QJsonObject& fields = {})
{
    sendRequest(protocolOf(command), static_cast<int>(command), fields);
}

/// Whether a request of that kind is under way.
bool isRequestWaiting(ProtocolId protocol, int command);
template <class Command> bool isWaiting(Command command)
{
    return isRequestWaiting(protocolOf(command), static_cast<int>(command));
}
