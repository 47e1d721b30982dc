#pragma once

class QJsonObject;

void protocolDeviceCommandGetConfig(const QJsonObject& reply);
/// Takes over the settings that were sent, and says how the saving of the whole page went.
void protocolDeviceCommandSetConfig(const QJsonObject& reply);
void protocolDeviceCommandGetVolume(const QJsonObject& reply);
void protocolDeviceCommandSetVolume(const QJsonObject& reply);
void protocolDeviceCommandGetEqualizer(const QJsonObject& reply);
void protocolDeviceCommandSetEqualizer(const QJsonObject& reply);
