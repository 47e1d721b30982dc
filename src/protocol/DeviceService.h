#pragma once

class QJsonObject;

// What an administrator does to a unit beside its settings; a reply about a unit or a line that
// isn't in the mirror changes nothing.

void protocolDeviceCommandReboot(const QJsonObject& reply);
void protocolDeviceCommandExchangeHardwareAddresses(const QJsonObject& reply);
void protocolDeviceCommandGetDebugInfo(const QJsonObject& reply);
void protocolDeviceCommandMeasureLine(const QJsonObject& reply);

// Terminal devices on the line of a unit: adopting one or all, taking that back, naming one.

void protocolDeviceCommandAddTipDevice(const QJsonObject& reply);
void protocolDeviceCommandAddTipDevices(const QJsonObject& reply);
void protocolDeviceCommandRemoveTipDevice(const QJsonObject& reply);
void protocolDeviceCommandRemoveTipDevices(const QJsonObject& reply);
void protocolDeviceCommandSetTipDeviceTitle(const QJsonObject& reply);
