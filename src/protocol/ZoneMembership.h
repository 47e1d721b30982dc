#pragma once

#include "model/Device.h"
#include "model/Zone.h"
#include "protocol/Commands.h"

/// Which unit is in which zone: the mirror's two sides of it, and the requests that change it.
namespace ZoneMembership
{

/// Notes on both sides that the unit is in the zone, and tells the page.
void include(Zone& zone, Device& device);
/// Takes the unit out of the mirror, out of every zone, and off the page. The unit is destroyed.
void forget(int deviceId);

/// Tells the page alone.
void showIncluded(int zoneId, int deviceId);
void showExcluded(int zoneId, int deviceId);

/// Asks for the unit to be in that zone, or out of it.
void request(ZoneCommand command, int deviceId, int zoneId);

// The server keeps a unit in its root only while the unit is in no other zone; these two keep to
// that.
/// Asks for the unit to be in the zone, and no longer in the root where that was its only one.
void requestInclusion(int deviceId, int zoneId);
/// Asks for the unit to leave the zone, and first to be in the root where it was its only one.
void requestExclusion(int deviceId, int zoneId);

} // namespace ZoneMembership
