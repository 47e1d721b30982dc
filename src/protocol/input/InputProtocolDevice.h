#pragma once

class QJsonObject;

/// Takes over the state of a unit, makes one that isn't known, and asks for what the push doesn't
/// carry.
void inputProtocolDeviceCommandSetState(const QJsonObject& message);
/// Asks for everything of a unit again.
void inputProtocolDeviceCommandReloadChanges(const QJsonObject& message);
/// Asks what plays from the unit's own memory.
void inputProtocolDeviceCommandStartTranslation(const QJsonObject& message);
