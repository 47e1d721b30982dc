#include "simulator/commands/PlaybackPushes.h"

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

void pushStarted(Context& context, const StartResult& started, Push start)
{
    for (int id : started.ended) {
        context.pushToOthers(stoppedPush(id));
    }
    context.pushToOthers(std::move(start));
}

} // namespace simulator
