#include "protocol/input/ProtocolServer.h"

#include "protocol/Request.h"

void inputProtocolServerCommandReloadChanges(const QJsonObject&)
{
    send(ServerCommand::GetSettings);
}
