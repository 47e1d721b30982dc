#pragma once

#include "simulator/state/Installation.h"

namespace simulator
{

/// Adds the roles and their accounts. Each account's password is its name, each alarm password is
/// "alarm". Zones, library, presets and tasks must stand already: some roles list them.
void addPeople(Installation& installation);

} // namespace simulator
