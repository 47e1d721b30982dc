#pragma once

#include "simulator/state/Installation.h"

namespace simulator
{

/// The server's root zone, in which a unit sits while it sits in no other.
constexpr int rootZone = 1;

/// Puts a unit into a zone. Gives the wire word why not, empty when it is done: "error" for an
/// unknown one, "alreadyIncluded", "onePhysical" when it sits in another physical zone.
QString includeUnit(Installation& installation, int unit, int zone);

/// Takes a unit out of a zone. Gives the wire word why not, as above: "notIncluded", "hasPlayback"
/// while it plays.
QString excludeUnit(Installation& installation, int unit, int zone);

/// Why a zone can't be deleted, empty when it can: "nestedZones", "includedInPresets",
/// "includedInTasks", "busyPlaying", "nestedDevices", "error" for the root and unknown ones.
QString objectionToDeletingZone(const Installation& installation, int zone);

/// Why a unit can't be taken out of the installation, empty when it can; "error" for an unknown
/// one, "hasPlayback", "forbiddenDeviceInPreset", "forbiddenDeviceInTask". `force` takes it out of
/// the presets and tasks too.
QString objectionToDeletingUnit(const Installation& installation, int unit, bool force);

} // namespace simulator
