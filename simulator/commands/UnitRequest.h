#pragma once

#include "simulator/commands/Context.h"

namespace simulator
{

/// The unit that a request names under `id`, null when there is none that the asker sees.
Unit* unitIn(Context& context, const QJsonObject& request);
/// The same, if it can be told something: null too while it isn't connected.
Unit* reachableUnitIn(Context& context, const QJsonObject& request);

} // namespace simulator
