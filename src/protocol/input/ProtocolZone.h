#pragma once

class QJsonObject;

void inputProtocolZoneCommandReloadChanges(const QJsonObject& message);
