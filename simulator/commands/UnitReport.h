#pragma once

#include "simulator/commands/Context.h"
#include "simulator/state/Installation.h"

#include <QJsonObject>

namespace simulator
{

/// The fields by which a unit's condition is told, the same in the `getState` reply and in the
/// state push: versions, supply, case, lines.
QJsonObject conditionOf(const Unit& unit);

/// The push `device` / "setState" about a unit, for those who see it.
Push unitPush(const Installation& installation, const Unit& unit);

} // namespace simulator
