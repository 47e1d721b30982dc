#include "simulator/commands/CommandTable.h"
#include "simulator/commands/PlayFields.h"
#include "simulator/commands/PlaybackPushes.h"
#include "simulator/commands/UnitReport.h"
#include "simulator/state/Transport.h"

namespace simulator
{

namespace
{

/// The playback that a request names, null when there is none that the asker sees.
Playback* playbackIn(Context& context, const QJsonObject& request, const char* key)
{
    Playback* playback = context.installation().playback(request.value(key).toInt());
    return playback && context.access().sees(*playback) ? playback : nullptr;
}

QJsonObject play(Context& context, const QJsonObject& request)
{
    const Playlist* playlist = context.installation().playlist(request.value("playlistId").toInt());
    if (!playlist || !context.access().sees(*playlist)) {
        return refusal("playbackError");
    }
    StartOrder order;
    order.playlist = playlist->id;
    order.track = request.value("trackId").toInt(-1);
    order.units = context.access().seenUnits(fromArray(request.value("devices")));
    order.strategy = request.value("strategy").toString();
    order.repetition = repetitionIn(request);
    order.by = context.who();
    const StartResult started = startPlayback(context.installation(), order);
    if (!started.refusal.isEmpty()) {
        return {{"response", started.refusal}};
    }
    pushStarted(context, started, makePush("playback", "play"));
    return success({{"playbackId", started.playback},
                    {"trackId", started.track},
                    {"activeDevices", toArray(started.units)}});
}

QJsonObject stop(Context& context, const QJsonObject& request)
{
    const Playback* playback = playbackIn(context, request, "playbackId");
    if (!playback) {
        return refusal("unknownId");
    }
    const int id = playback->id;
    const QVector<int> units = context.installation().activeUnits(*playback);
    endPlayback(context.installation(), id, context.who());
    for (const Push& push : endPushes(context.installation(), id, units)) {
        // What goes on behind it is news for the one that asked, too.
        const bool news = push.message.value("action") == "play";
        news ? context.push(push) : context.pushToOthers(push);
    }
    return success();
}

QJsonObject pause(Context& context, const QJsonObject& request)
{
    Playback* playback = playbackIn(context, request, "playbackId");
    if (!playback) {
        return refusal("unknownId");
    }
    const bool paused = request.value("pause").toBool();
    setPaused(context.installation(), *playback, paused, context.who());
    // There is a push for the pause alone; what goes on is told by where it is.
    context.pushToOthers(paused ? pausedPush(playback->id)
                                : trackPush(context.installation(), *playback));
    return success();
}

QJsonObject playNext(Context& context, const QJsonObject& request)
{
    Playback* playback = playbackIn(context, request, "playbackId");
    if (!playback) {
        return refusal("unknownId");
    }
    const Installation& installation = context.installation();
    const int wanted = request.value("trackId").toInt(-1);
    const QVector<Track> tracks = installation.tracksOf(playback->playlist);
    const Track* track = wanted >= 0        ? installation.track(wanted)
                         : tracks.isEmpty() ? nullptr
                                            : &tracks.first();
    if (!track || track->playlist != playback->playlist) {
        return refusal("error");
    }
    playTrack(*playback, track->id, request.value("timeshift").toInt(), context.who());
    // The one that asked learns here which track it is, when it left the choice to the server.
    context.push(trackPush(installation, *playback));
    return success();
}

QJsonObject setVolume(Context& context, const QJsonObject& request)
{
    const int volume = request.value("volume").toInt(-1);
    if (volume < 0 || volume > 100) {
        return refusal("error");
    }
    const bool live = request.value("target") == "redirection";
    Playback* playback = live ? nullptr : playbackIn(context, request, "id");
    if (!live && !playback) {
        return refusal("unknownId");
    }
    Installation& installation = context.installation();
    QVector<int> units;
    if (playback) {
        playback->volume = volume;
        units = installation.activeUnits(*playback);
    } else if (installation.redirection) {
        units = installation.redirection->units;
    }
    for (int id : units) {
        installation.unit(id)->volume = volume;
    }
    pushUnits(context, units);
    return success();
}

} // namespace

Commands playbackControlCommands()
{
    const QLatin1String playback("playback");
    const Need control{Right::Playback, Level::Control};
    return {
        {playback, QLatin1String("play"), control, play},
        {playback, QLatin1String("stop"), control, stop},
        {playback, QLatin1String("pause"), control, pause},
        {playback, QLatin1String("playNext"), control, playNext},
        {playback, QLatin1String("setVolume"), control, setVolume},
    };
}

} // namespace simulator
