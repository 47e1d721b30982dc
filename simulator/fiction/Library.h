#pragma once

#include "simulator/state/Installation.h"

namespace simulator
{

/// Adds the category roots, the folders and their tracks.
void addLibrary(Installation& installation);

} // namespace simulator
