#pragma once

#include "simulator/state/Installation.h"

namespace simulator
{

/// The fictional installation: an office centre with `deviceCount` units, 0 and up. The first two
/// dozen have names of their own; behind them come whole buildings. The same seed gives the same
/// installation.
Installation buildInstallation(int deviceCount, quint32 seed);

} // namespace simulator
