#pragma once

class QJsonObject;

/// Makes the mirror's images those of the list.
void protocolDeviceCommandListFirmware(const QJsonObject& reply);
void protocolDeviceCommandSaveFirmware(const QJsonObject& reply);
/// Tells which units have refused; the end of the others comes by their progress.
void protocolDeviceCommandUpgradeFirmware(const QJsonObject& reply);
void protocolDeviceCommandGetProgressOfUpgrading(const QJsonObject& reply);
