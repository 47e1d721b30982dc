#include "protocol/input/ProtocolLog.h"

#include "protocol/Request.h"

void inputProtocolLogCommandReloadChanges(const QJsonObject&)
{
    send(LogCommand::GetLevel);
}
