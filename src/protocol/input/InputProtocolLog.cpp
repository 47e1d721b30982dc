#include "protocol/input/InputProtocolLog.h"

#include "protocol/Request.h"

void inputProtocolLogCommandReloadChanges(const QJsonObject&)
{
    send(LogCommand::GetLevel);
}
