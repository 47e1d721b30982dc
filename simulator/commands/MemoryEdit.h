#pragma once

#include "simulator/commands/CommandTable.h"
#include "simulator/commands/Context.h"

namespace simulator
{

/// What an announcement takes of a unit's memory, in bytes.
constexpr int scenarioSize = 64;

/// Why the memory of a unit can't be changed now, null when it can.
const char* editRefusal(Context& context, const Unit* unit);
/// Keeps what the unit holds until the edits are applied, and makes the other consoles read anew.
void beginEdit(Context& context, Unit& unit);
/// Whether an announcement is complete and names fragments that are there.
bool isScenario(const UnitMemory& memory, const MemoryScenario& scenario);
/// What all entries take, in bytes.
qint64 usedBy(const UnitMemory& memory);

} // namespace simulator
