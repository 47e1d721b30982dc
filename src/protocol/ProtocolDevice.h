#pragma once

class QJsonObject;

/// Makes the units that the mirror doesn't know yet, refreshes the others, and asks for all that a
/// new one has not told.
void protocolDeviceCommandGetDevices(const QJsonObject& reply);
void protocolDeviceCommandGetState(const QJsonObject& reply);
void protocolDeviceCommandGetTitle(const QJsonObject& reply);
/// Takes over the new title, and lets the page send the rest of the settings.
void protocolDeviceCommandSetTitle(const QJsonObject& reply);
