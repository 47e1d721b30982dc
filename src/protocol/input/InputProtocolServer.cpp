#include "protocol/input/InputProtocolServer.h"

#include "protocol/Request.h"

void inputProtocolServerCommandReloadChanges(const QJsonObject&)
{
    send(ServerCommand::GetSettings);
}
