#pragma once

class QJsonObject;

/// Asks again for what has changed; a role that the console doesn't know is taken in first.
void inputProtocolRoleCommandReloadChanges(const QJsonObject& message);
