#include "simulator/commands/CommandTable.h"
#include "simulator/commands/PlayFields.h"

namespace simulator
{

namespace
{

QJsonObject list(Context& context, const QJsonObject&)
{
    const Installation& installation = context.installation();
    const Access access = context.access();
    QJsonArray playlists;
    QJsonArray tracks;
    for (const Playlist& playlist : installation.playlists) {
        if (access.sees(playlist)) {
            playlists.append(QJsonObject{{"id", playlist.id},
                                         {"title", playlist.title},
                                         {"parentId", playlist.parent},
                                         {"position", playlist.position},
                                         {"duration", installation.durationOf(playlist.id)},
                                         {"volume", playlist.volume},
                                         {"groupId", playlist.group}});
        }
    }
    for (const Track& track : installation.tracks) {
        if (access.sees(track)) {
            tracks.append(QJsonObject{{"id", track.id},
                                      {"parentId", track.playlist},
                                      {"title", track.title},
                                      {"position", track.position},
                                      {"duration", track.duration}});
        }
    }
    return success({{"playlists", playlists}, {"tracks", tracks}});
}

/// A playback as one role sees it. Its units are never an empty list: that would mean all units.
QJsonObject describe(const Installation& installation, const Access& access,
                     const Playback& playback)
{
    QJsonObject fields{
        {"playbackId", playback.id},
        {"playlistId", playback.playlist},
        {"trackId", playback.track},
        {"volume", playback.volume},
        {"playing", playback.playing},
        {"timeshift", installation.positionOf(playback, QDateTime::currentDateTimeUtc())},
        {"devices", toArray(access.seenUnits(playback.units))},
        {"zones", QJsonArray()},
        {"activeDevices", toArray(access.seenUnits(installation.activeUnits(playback)))}};
    insert(fields, playback.repetition);
    return fields;
}

QJsonObject getPlays(Context& context, const QJsonObject&)
{
    const Access access = context.access();
    QJsonArray list;
    for (const Playback& playback : context.installation().playbacks) {
        if (access.sees(playback)) {
            list.append(describe(context.installation(), access, playback));
        }
    }
    return success({{"list", list}});
}

} // namespace

Commands playbackCommands()
{
    const QLatin1String playback("playback");
    return {
        {playback, QLatin1String("list"), {Right::Session}, list},
        {playback, QLatin1String("getPlays"), {Right::Session}, getPlays},
    };
}

} // namespace simulator
