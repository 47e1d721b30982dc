#include "simulator/state/Transport.h"

#include "simulator/EventLog.h"

#include <algorithm>
#include <array>

namespace simulator
{

namespace
{

/// Importance of the category roots, from 1 on: alarms before gongs before announcements before
/// advertising before everything else. Between them rank those who speak live.
constexpr std::array<int, 7> importances{0, 0, 1, 2, 0, alarmMessageRank, 3};

std::optional<int> firstTrack(const Installation& installation, int playlist)
{
    const QVector<Track> tracks = installation.tracksOf(playlist);
    return tracks.isEmpty() ? std::nullopt : std::optional<int>(tracks.first().id);
}

std::optional<int> trackOf(const Installation& installation, const StartOrder& order)
{
    if (order.track < 0) {
        return firstTrack(installation, order.playlist);
    }
    const Track* track = installation.track(order.track);
    return track ? std::optional<int>(track->id) : std::nullopt;
}

/// Those of the units that are connected, each once.
QVector<int> reachable(const Installation& installation, const QVector<int>& units)
{
    QVector<int> connected;
    for (int id : units) {
        const Unit* unit = installation.unit(id);
        if (unit && unit->link == Link::Bidirectional && !connected.contains(id)) {
            connected.append(id);
        }
    }
    return connected;
}

/// The latest playback that is addressed to a unit, 0 for none.
int addressing(const Installation& installation, int unit)
{
    int latest = 0;
    for (const Playback& playback : installation.playbacks) {
        latest = playback.units.contains(unit) ? playback.id : latest;
    }
    return latest;
}

bool isGong(const Installation& installation, int playlist)
{
    constexpr int gongs = 7;
    const Playlist* folder = installation.playlist(playlist);
    return folder && folder->group == gongs;
}

/// A gong leaves what it interrupts in place, but for another gong.
QVector<int> makeRoom(Installation& installation, int unit, bool forGong, const QString& by)
{
    const Playback* running = installation.playback(installation.unit(unit)->playback);
    return forGong && running && !isGong(installation, running->playlist)
               ? QVector<int>()
               : freeUnit(installation, unit, by);
}

void say(int playback, const QString& what, const QString& by)
{
    qCInfo(events).noquote() << "Playback" << playback << what << "by" << by;
}

/// A playback's next track, without a word about it.
void setTrack(Playback& playback, int track, int position)
{
    playback.track = track;
    playback.position = position;
    playback.since = QDateTime::currentDateTimeUtc();
    playback.playing = true;
}

} // namespace

int rankOf(const Redirection& redirection)
{
    return redirection.type == "alarm" ? alarmRank : microphoneRank;
}

int rankOn(const Installation& installation, int unit)
{
    if (installation.redirection && installation.redirection->units.contains(unit)) {
        return rankOf(*installation.redirection);
    }
    if (installation.unit(unit)->memoryRun) {
        return memoryRank;
    }
    const Playback* running = installation.playback(installation.unit(unit)->playback);
    return running ? importanceOf(installation, running->playlist) : -1;
}

int importanceOf(const Installation& installation, int playlist)
{
    const Playlist* folder = installation.playlist(playlist);
    const int group = folder ? folder->group : 0;
    return group >= 1 && group <= int(importances.size()) ? importances[std::size_t(group) - 1] : 0;
}

QString settle(const Installation& installation, int rank, const QString& strategy,
               QVector<int>& units)
{
    units = reachable(installation, units);
    QVector<int> free;
    bool outranked = false;
    for (int id : units) {
        const int there = rankOn(installation, id);
        outranked = outranked || there > rank;
        if (there < 0) {
            free.append(id);
        }
    }
    if (strategy == "partial") {
        units = free;
    } else if (outranked) {
        return "lowPriority";
    } else if (strategy != "overlap" && free.size() < units.size()) {
        return "overlap";
    }
    return units.isEmpty() ? "noDevices" : "";
}

StartResult startPlayback(Installation& installation, const StartOrder& order)
{
    StartResult result;
    const auto track = trackOf(installation, order);
    if (!track || !installation.playlist(order.playlist)) {
        result.refusal = "playbackError";
        return result;
    }
    result.units = order.units;
    result.refusal = settle(installation, importanceOf(installation, order.playlist),
                            order.strategy, result.units);
    if (!result.refusal.isEmpty()) {
        return result;
    }
    result.playback = ++installation.lastPlayback;
    result.track = *track;
    const bool gong = isGong(installation, order.playlist);
    const bool live = installation.redirection.has_value();
    for (int id : result.units) {
        result.ended += makeRoom(installation, id, gong, order.by);
        installation.unit(id)->playback = result.playback;
    }
    result.silenced = live && !installation.redirection;
    Playback playback;
    playback.id = result.playback;
    playback.playlist = order.playlist;
    playback.repetition = gong ? Repetition{"track", 0, "stop"} : order.repetition;
    playback.units = result.units;
    setTrack(playback, *track, 0);
    installation.playbacks.append(playback);
    say(playback.id,
        QString("started with track %1 of folder %2 on %3 units")
            .arg(*track)
            .arg(order.playlist)
            .arg(result.units.size()),
        order.by);
    return result;
}

bool endPlayback(Installation& installation, int id, const QString& by)
{
    const auto place = std::find_if(installation.playbacks.begin(), installation.playbacks.end(),
                                    [id](const Playback& playback) { return playback.id == id; });
    if (place == installation.playbacks.end()) {
        return false;
    }
    const QVector<int> units = place->units;
    installation.playbacks.erase(place);
    say(id, "ended", by);
    for (int unit : units) {
        if (installation.unit(unit)->playback == id) {
            installation.unit(unit)->playback = addressing(installation, unit);
        }
    }
    return true;
}

QVector<int> freeUnit(Installation& installation, int unit, const QString& by)
{
    QVector<int> ended;
    for (Playback& playback : installation.playbacks) {
        if (playback.units.removeAll(unit) > 0 && playback.units.isEmpty()) {
            ended.append(playback.id);
        }
    }
    for (int id : ended) {
        endPlayback(installation, id, by);
    }
    std::optional<Redirection>& live = installation.redirection;
    if (live && live->units.removeAll(unit) > 0 && live->units.isEmpty()) {
        live.reset();
    }
    if (Unit* freed = installation.unit(unit)) {
        freed->playback = 0;
        freed->memoryRun.reset();
    }
    return ended;
}

void playTrack(Playback& playback, int track, int position, const QString& by)
{
    setTrack(playback, track, position);
    say(playback.id, QString("put on track %1 at %2 s").arg(track).arg(position), by);
}

void setPaused(const Installation& installation, Playback& playback, bool paused, const QString& by)
{
    say(playback.id, paused ? "paused" : "resumed", by);
    const QDateTime now = QDateTime::currentDateTimeUtc();
    playback.position = installation.positionOf(playback, now);
    playback.since = now;
    playback.playing = !paused;
}

std::optional<int> followingTrack(const Installation& installation, const Playback& playback)
{
    const QVector<Track> tracks = installation.tracksOf(playback.playlist);
    const auto current =
        std::find_if(tracks.begin(), tracks.end(),
                     [&playback](const Track& track) { return track.id == playback.track; });
    if (current == tracks.end() || current + 1 == tracks.end()) {
        return std::nullopt;
    }
    return (current + 1)->id;
}

TrackEnd finishTrack(const Installation& installation, Playback& playback)
{
    const QString itself = "the end of its track";
    const bool wholeList = playback.repetition.target == "list";
    if (const auto next = followingTrack(installation, playback); wholeList && next) {
        playTrack(playback, *next, 0, itself);
        return TrackEnd::NextTrack;
    }
    const int again = wholeList
                          ? firstTrack(installation, playback.playlist).value_or(playback.track)
                          : playback.track;
    const bool repeats = playback.pass < playback.repetition.repeats;
    if (!repeats && playback.repetition.atEnd == "stop") {
        return TrackEnd::Stop;
    }
    playTrack(playback, again, 0, itself);
    playback.pass = repeats ? playback.pass + 1 : 0;
    if (repeats) {
        return TrackEnd::NextTrack;
    }
    setPaused(installation, playback, true, itself);
    return TrackEnd::Pause;
}

} // namespace simulator
