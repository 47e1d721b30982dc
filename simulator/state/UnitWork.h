#pragma once

#include "simulator/state/Records.h"

namespace simulator
{

/// Begins something that takes a unit so long; what the prompt has said of its end is used up.
UnitWork beginWork(Unit& unit, int seconds);
/// Ends the applying that is over, or whose unit has gone meanwhile: then the edits still wait.
void settleApplying(Unit& unit, const QDateTime& now);
/// The same with an upgrade. True when the unit's version has changed.
bool settleUpgrade(Unit& unit, const QDateTime& now);

} // namespace simulator
