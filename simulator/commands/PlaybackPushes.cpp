#include "simulator/commands/PlaybackPushes.h"

#include "simulator/commands/UnitReport.h"

#include <algorithm>

namespace simulator
{

Push stoppedPush(int playback)
{
    return makePush("playback", "stop", {{"id", playback}});
}

Push pausedPush(int playback)
{
    return makePush("playback", "pause", {{"id", playback}, {"playbackId", playback}});
}

Push trackPush(const Installation& installation, const Playback& playback)
{
    return makePush(
        "playback", "playNext",
        {{"playbackId", playback.id},
         {"playlistId", playback.playlist},
         {"trackId", playback.track},
         {"timeshift", installation.positionOf(playback, QDateTime::currentDateTimeUtc())},
         {"playing", playback.playing}});
}

void pushUnits(Context& context, const QVector<int>& units)
{
    for (int id : units) {
        context.pushToOthers(unitPush(context.installation(), *context.installation().unit(id)));
    }
}

std::vector<Push> endPushes(const Installation& installation, int playback,
                            const QVector<int>& units)
{
    std::vector<Push> pushes{stoppedPush(playback)};
    for (int id : units) {
        pushes.push_back(unitPush(installation, *installation.unit(id)));
    }
    // Behind a gong the consoles have to find again what it interrupted.
    if (std::any_of(units.begin(), units.end(),
                    [&](int id) { return installation.unit(id)->playback > 0; })) {
        pushes.push_back(makePush("playback", "play"));
    }
    return pushes;
}

std::vector<Push> silence(Installation& installation)
{
    const QVector<int> units = installation.redirection->units;
    installation.redirection.reset();
    std::vector<Push> pushes{makePush("playback", "stopRedirection")};
    for (int id : units) {
        pushes.push_back(unitPush(installation, *installation.unit(id)));
    }
    return pushes;
}

std::vector<Push> startPushes(const Installation& installation, const StartResult& started,
                              const std::vector<Push>& starts)
{
    std::vector<Push> pushes;
    for (int id : started.ended) {
        pushes.push_back(stoppedPush(id));
    }
    if (started.silenced) {
        pushes.push_back(makePush("playback", "stopRedirection"));
    }
    pushes.insert(pushes.end(), starts.begin(), starts.end());
    for (int id : started.units) {
        pushes.push_back(unitPush(installation, *installation.unit(id)));
    }
    return pushes;
}

void pushStarted(Context& context, const StartResult& started, const Push& start)
{
    for (const Push& push : startPushes(context.installation(), started, {start})) {
        // The end of who spoke live is news for the one that asked, too.
        const bool news = push.message.value("action") == "stopRedirection";
        news ? context.push(push) : context.pushToOthers(push);
    }
}

} // namespace simulator
