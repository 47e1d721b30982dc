#include "simulator/state/Transport.h"

#include <algorithm>
#include <array>

namespace simulator
{

namespace
{

/// Importance of the category roots, from 1 on: alarms before gongs before announcements before
/// advertising before everything else.
constexpr std::array<int, 7> importances{0, 0, 1, 2, 0, 4, 3};

int importanceOf(const Installation& installation, int playlist)
{
    const Playlist* folder = installation.playlist(playlist);
    const int group = folder ? folder->group : 0;
    return group >= 1 && group <= int(importances.size()) ? importances[std::size_t(group) - 1] : 0;
}

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

/// Why the units can't be taken, empty when they can; leaves in `units` those that will be.
QString settle(const Installation& installation, const StartOrder& order, QVector<int>& units)
{
    const int importance = importanceOf(installation, order.playlist);
    QVector<int> free;
    bool outranked = false;
    for (int id : units) {
        const Playback* running = installation.playback(installation.unit(id)->playback);
        if (!running) {
            free.append(id);
        } else {
            outranked = outranked || importanceOf(installation, running->playlist) > importance;
        }
    }
    if (order.strategy == "partial") {
        units = free;
    } else if (outranked) {
        return "lowPriority";
    } else if (order.strategy != "overlap" && free.size() < units.size()) {
        return "overlap";
    }
    return units.isEmpty() ? "noDevices" : "";
}

} // namespace

StartResult startPlayback(Installation& installation, const StartOrder& order)
{
    StartResult result;
    const auto track = trackOf(installation, order);
    if (!track || !installation.playlist(order.playlist)) {
        result.refusal = "playbackError";
        return result;
    }
    for (int id : order.units) {
        const Unit* unit = installation.unit(id);
        if (unit && unit->link == Link::Bidirectional && !result.units.contains(id)) {
            result.units.append(id);
        }
    }
    result.refusal = settle(installation, order, result.units);
    if (!result.refusal.isEmpty()) {
        return result;
    }
    result.playback = ++installation.lastPlayback;
    result.track = *track;
    for (int id : result.units) {
        if (const auto ended = freeUnit(installation, id)) {
            result.ended.append(*ended);
        }
        installation.unit(id)->playback = result.playback;
    }
    Playback playback;
    playback.id = result.playback;
    playback.playlist = order.playlist;
    playback.repetition = order.repetition;
    playback.units = result.units;
    playTrack(playback, *track, 0);
    installation.playbacks.append(playback);
    return result;
}

bool endPlayback(Installation& installation, int id)
{
    const auto place = std::find_if(installation.playbacks.begin(), installation.playbacks.end(),
                                    [id](const Playback& playback) { return playback.id == id; });
    if (place == installation.playbacks.end()) {
        return false;
    }
    for (int unitId : place->units) {
        installation.unit(unitId)->playback = 0;
    }
    installation.playbacks.erase(place);
    return true;
}

std::optional<int> freeUnit(Installation& installation, int unit)
{
    Unit* occupied = installation.unit(unit);
    Playback* running = occupied ? installation.playback(occupied->playback) : nullptr;
    if (!running) {
        return std::nullopt;
    }
    occupied->playback = 0;
    running->units.removeAll(unit);
    if (!running->units.isEmpty()) {
        return std::nullopt;
    }
    const int ended = running->id;
    endPlayback(installation, ended);
    return ended;
}

void playTrack(Playback& playback, int track, int position)
{
    playback.track = track;
    playback.position = position;
    playback.since = QDateTime::currentDateTimeUtc();
    playback.playing = true;
}

void setPaused(const Installation& installation, Playback& playback, bool paused)
{
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
    const bool wholeList = playback.repetition.target == "list";
    if (const auto next = followingTrack(installation, playback); wholeList && next) {
        playTrack(playback, *next, 0);
        return TrackEnd::NextTrack;
    }
    const int again = wholeList
                          ? firstTrack(installation, playback.playlist).value_or(playback.track)
                          : playback.track;
    const bool repeats = playback.pass < playback.repetition.repeats;
    if (!repeats && playback.repetition.atEnd == "stop") {
        return TrackEnd::Stop;
    }
    playTrack(playback, again, 0);
    playback.pass = repeats ? playback.pass + 1 : 0;
    playback.playing = repeats;
    return repeats ? TrackEnd::NextTrack : TrackEnd::Pause;
}

} // namespace simulator
