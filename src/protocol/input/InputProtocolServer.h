#pragma once

class QJsonObject;

void inputProtocolServerCommandReloadChanges(const QJsonObject& message);
