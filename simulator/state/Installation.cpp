#include "simulator/state/Installation.h"

#include <algorithm>
#include <array>

namespace simulator
{

namespace
{

/// Words by category root, from 1 on.
constexpr std::array<const char*, 7> categoryWords{
    "radio", "playlist", "ad", "service_message", "record", "alarm_message", "gong",
};

/// The first record for which the test holds, or null.
template <typename List, typename Test>
auto firstOf(List& list, Test test) -> decltype(&*list.begin())
{
    const auto found = std::find_if(list.begin(), list.end(), test);
    return found == list.end() ? nullptr : &*found;
}

template <typename List> auto byId(List& list, int id)
{
    return firstOf(list, [id](const auto& record) { return record.id == id; });
}

template <typename List> auto byName(List& list, const QString& name)
{
    return firstOf(list, [&name](const auto& record) { return record.name == name; });
}

} // namespace

void Installation::addUnit(const Unit& unit)
{
    unitIndex.insert(unit.id, units.size());
    units.append(unit);
}

bool Installation::removeUnit(int id)
{
    const auto place = unitIndex.constFind(id);
    if (place == unitIndex.constEnd()) {
        return false;
    }
    units.removeAt(*place);
    unitIndex.clear();
    for (int index = 0; index < units.size(); ++index) {
        unitIndex.insert(units.at(index).id, index);
    }
    for (Zone& zone : zones) {
        zone.units.removeAll(id);
    }
    for (Playback& playback : playbacks) {
        playback.units.removeAll(id);
    }
    if (redirection) {
        redirection->units.removeAll(id);
    }
    for (Preset& preset : presets) {
        preset.targets.units.removeAll(id);
    }
    for (Task& task : tasks) {
        task.targets.units.removeAll(id);
    }
    return true;
}

Unit* Installation::unit(int id)
{
    const auto place = unitIndex.constFind(id);
    return place == unitIndex.constEnd() ? nullptr : &units[*place];
}

const Unit* Installation::unit(int id) const
{
    const auto place = unitIndex.constFind(id);
    return place == unitIndex.constEnd() ? nullptr : &units.at(*place);
}

Zone* Installation::zone(int id)
{
    return byId(zones, id);
}

const Zone* Installation::zone(int id) const
{
    return byId(zones, id);
}

Playlist* Installation::playlist(int id)
{
    return byId(playlists, id);
}

const Playlist* Installation::playlist(int id) const
{
    return byId(playlists, id);
}

Track* Installation::track(int id)
{
    return byId(tracks, id);
}

const Track* Installation::track(int id) const
{
    return byId(tracks, id);
}

Playback* Installation::playback(int id)
{
    return byId(playbacks, id);
}

const Playback* Installation::playback(int id) const
{
    return byId(playbacks, id);
}

Preset* Installation::preset(int id)
{
    return byId(presets, id);
}

Task* Installation::task(int id)
{
    return byId(tasks, id);
}

Role* Installation::role(const QString& name)
{
    return byName(roles, name);
}

const Role* Installation::role(const QString& name) const
{
    return byName(roles, name);
}

Account* Installation::account(const QString& name)
{
    return byName(accounts, name);
}

const Account* Installation::account(const QString& name) const
{
    return byName(accounts, name);
}

QVector<Track> Installation::tracksOf(int playlist) const
{
    QVector<Track> result;
    std::copy_if(tracks.begin(), tracks.end(), std::back_inserter(result),
                 [playlist](const Track& track) { return track.playlist == playlist; });
    return result;
}

int Installation::durationOf(int playlist) const
{
    int seconds = 0;
    for (const Track& track : tracksOf(playlist)) {
        seconds += std::max(track.duration, 0);
    }
    return seconds;
}

int Installation::positionOf(const Playback& playback, const QDateTime& now) const
{
    const qint64 elapsed = playback.playing ? playback.since.secsTo(now) : 0;
    const int position = playback.position + int(std::max<qint64>(elapsed, 0));
    const Track* current = track(playback.track);
    return current && current->duration >= 0 ? std::min(position, current->duration) : position;
}

QVector<int> Installation::activeUnits(const Playback& playback) const
{
    QVector<int> active;
    for (int id : playback.units) {
        const Unit* target = unit(id);
        if (target && target->link == Link::Bidirectional && target->playback == playback.id) {
            active.append(id);
        }
    }
    return active;
}

QString Installation::playbackWord(const Unit& unit) const
{
    if (unit.link != Link::Bidirectional) {
        return "none";
    }
    if (redirection && redirection->units.contains(unit.id)) {
        return redirection->type;
    }
    if (unit.memoryRun) {
        return unit.memoryRun->message ? "message" : "scenario";
    }
    const Playback* running = playback(unit.playback);
    const Playlist* folder = running ? playlist(running->playlist) : nullptr;
    if (!folder || folder->group < 1 || folder->group > int(categoryWords.size())) {
        return "none";
    }
    return categoryWords[std::size_t(folder->group) - 1];
}

QVector<int> Installation::unitsOf(const Targets& targets) const
{
    QVector<int> named = targets.units;
    for (int id : targets.zones) {
        if (const Zone* known = zone(id)) {
            named += known->units;
        }
    }
    if (targets.zones.isEmpty() && targets.units.isEmpty()) {
        for (const Unit& unit : units) {
            named.append(unit.id);
        }
    }
    return named;
}

QVector<int> Installation::zonesOf(int unit) const
{
    QVector<int> holding;
    for (const Zone& zone : zones) {
        if (zone.units.contains(unit)) {
            holding.append(zone.id);
        }
    }
    return holding;
}

QStringList Installation::accountsOf(const QString& role) const
{
    QStringList names;
    for (const Account& account : accounts) {
        if (account.role == role) {
            names.append(account.name);
        }
    }
    return names;
}

} // namespace simulator
