#pragma once

#include "simulator/state/Installation.h"

namespace simulator
{

/// The server's root zone, in which a unit sits while it sits in no other.
constexpr int rootZone = 1;

/// Adds the zone tree and the units to the installation.
void addFleet(Installation& installation, int deviceCount, quint32 seed);

} // namespace simulator
