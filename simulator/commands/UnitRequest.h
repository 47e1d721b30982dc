#pragma once

#include "simulator/commands/Context.h"

namespace simulator
{

/// The unit that a request names under `id`, null when there is none that the asker sees.
Unit* unitIn(Context& context, const QJsonObject& request);

} // namespace simulator
