#pragma once

class QJsonObject;

void protocolZoneCommandAdd(const QJsonObject& reply);
void protocolZoneCommandEdit(const QJsonObject& reply);
/// Takes the zone away. One that still holds units is emptied, and its deletion asked for again.
void protocolZoneCommandDelete(const QJsonObject& reply);
void protocolZoneCommandIncludeDevice(const QJsonObject& reply);
void protocolZoneCommandExcludeDevice(const QJsonObject& reply);
