#pragma once

#include "simulator/state/Records.h"

namespace simulator
{

/// Whether date, time, kind of repeats and days of an event are what they have to be.
bool isDatable(const Task& event);

/// Whether an event happens in this minute. Days are those of UTC: a month or a year without the
/// day of the start has none. The end of the repeats is the last day of a play event, and the day
/// behind it that of its stop, which may follow past midnight.
bool isDue(const Task& event, const QDateTime& minute);

} // namespace simulator
