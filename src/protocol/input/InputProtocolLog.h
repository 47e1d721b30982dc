#pragma once

class QJsonObject;

void inputProtocolLogCommandReloadChanges(const QJsonObject& message);
