#pragma once

class QJsonObject;

void inputProtocolUserCommandReloadChanges(const QJsonObject& message);
