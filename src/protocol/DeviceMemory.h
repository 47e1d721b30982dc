#pragma once

class QJsonObject;

// The contents of a unit's own memory.
void protocolDeviceCommandGetMemoryStamp(const QJsonObject& reply);
void protocolDeviceCommandGetAvailableMemory(const QJsonObject& reply);
void protocolDeviceCommandListMessages(const QJsonObject& reply);
void protocolDeviceCommandListScenarios(const QJsonObject& reply);

// What units play from it. A group may span several units.
void protocolDeviceCommandGetPlays(const QJsonObject& reply);
void protocolDeviceCommandPlayMessage(const QJsonObject& reply);
void protocolDeviceCommandPlayScenario(const QJsonObject& reply);
void protocolDeviceCommandStop(const QJsonObject& reply);
