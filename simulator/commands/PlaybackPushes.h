#pragma once

#include "simulator/commands/Context.h"
#include "simulator/state/Transport.h"

namespace simulator
{

/// A playback is no more.
Push stoppedPush(int playback);
/// A playback stands still.
Push pausedPush(int playback);
/// Where a playback is: its track, its place, whether it runs.
Push trackPush(const Installation& installation, const Playback& playback);
/// Tells the other consoles what these units play now.
void pushUnits(Context& context, const QVector<int>& units);
/// The pushes of the end of a playback: the end, what goes on behind it, and its units.
std::vector<Push> endPushes(const Installation& installation, int playback,
                            const QVector<int>& units);
/// Ends a redirection that runs, and gives the pushes that tell of it.
std::vector<Push> silence(Installation& installation);
/// The pushes of a start and of the playbacks that ended by it; `starts` make the consoles look.
std::vector<Push> startPushes(const Installation& installation, const StartResult& started,
                              const std::vector<Push>& starts);
/// Tells the others of a start, and of the playbacks that ended by it. `start` is the push that
/// makes them look.
void pushStarted(Context& context, const StartResult& started, const Push& start);

} // namespace simulator
