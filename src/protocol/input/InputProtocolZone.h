#pragma once

class QJsonObject;

void inputProtocolZoneCommandReloadChanges(const QJsonObject& message);
/// Puts a unit into a zone; one that isn't known is made, and everything of it asked for.
void inputProtocolZoneCommandIncludeDevice(const QJsonObject& message);
/// Takes a unit out of a zone. One that is in no zone any more, or is taken out of zone 0, has
/// gone.
void inputProtocolZoneCommandExcludeDevice(const QJsonObject& message);
