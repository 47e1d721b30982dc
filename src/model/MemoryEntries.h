#pragma once

#include "model/DeviceMemory.h"

#include <QVector>

/// The entries of one unit's own memory in the mirror. Deleting one moves those behind it up by
/// one, and tells the page; deleting all tells it of each.
namespace MemoryEntries
{

QVector<Message> getDeviceMessages(int deviceId);
QVector<Scenario> getDeviceScenarios(int deviceId);
void deleteDeviceMessage(int deviceId, int position);
void deleteDeviceScenario(int deviceId, int position);
void deleteDeviceMessages(int deviceId);
void deleteDeviceScenarios(int deviceId);

} // namespace MemoryEntries
