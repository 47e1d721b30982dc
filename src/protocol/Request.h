#pragma once

#include "network/LongTexts.h"
#include "protocol/Commands.h"

#include <QJsonObject>

#include <optional>

/// Sends one request, and remembers it for its reply: `fields` are the command's own, its names and
/// the `order` are put in on the way.
void sendRequest(ProtocolId protocol, int command, const QJsonObject& fields,
                 const Attachment& attachment = {});

/// The one way to the server: `send(DeviceCommand::SetVolume, {{"id", id}, {"volume", volume}})`.
/// What an operator does, and what its reply causes, goes ahead of the console's own reading.
template <class Command>
void send(Command command, const QJsonObject& fields = {}, const Attachment& attachment = {})
{
    sendRequest(protocolOf(command), static_cast<int>(command), fields, attachment);
}

/// A text field of the reply whose handler is running, however long, in UTF-8; nothing where it has
/// none. To be asked for once.
std::optional<QByteArray> takeText(const QJsonObject& reply, const char* name);

/// Whether a request of that kind is under way.
bool isRequestWaiting(ProtocolId protocol, int command);
template <class Command> bool isWaiting(Command command)
{
    return isRequestWaiting(protocolOf(command), static_cast<int>(command));
}
