#include "protocol/input/InputProtocolUser.h"

#include "protocol/Request.h"

void inputProtocolUserCommandReloadChanges(const QJsonObject&)
{
    send(UserCommand::GetInfo);
    send(UserCommand::List);
    send(UserCommand::GetConnected);
}
