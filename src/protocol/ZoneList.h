#pragma once

class QJsonObject;
class Zone;

/// Brings the tree of zones, the list of units and the membership of both in line with the server.
void protocolZoneCommandList(const QJsonObject& reply);

/// Makes or updates all zones of `zones` in the reply that lie below the parent. Ends on a cycle.
void zoneParseChilds(Zone* parent, const QJsonObject& reply);
