#include "protocol/input/ProtocolZone.h"

#include "protocol/Request.h"

void inputProtocolZoneCommandReloadChanges(const QJsonObject&)
{
    send(ZoneCommand::List);
}
