#pragma once

#include "simulator/state/Installation.h"

namespace simulator
{

/// A unit of the newer generation as it leaves the factory, in no zone.
Unit makeNewUnit(int id, const QString& title);

/// Adds the zone tree and the units to the installation.
void addFleet(Installation& installation, int deviceCount, quint32 seed);

} // namespace simulator
