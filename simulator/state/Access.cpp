#include "simulator/state/Access.h"

#include <algorithm>

namespace simulator
{

Access::Access(const Installation& whole, const Role& role) : installation(whole), own(role)
{
}

bool Access::allows(Need need) const
{
    switch (need.right) {
    case Right::Anyone:
    case Right::Session:
        return true;
    case Right::Server:
        return own.server;
    case Right::Users:
        return own.users;
    case Right::Zones:
        return own.zoneTree;
    case Right::Microphone:
        return own.microphone;
    case Right::Alarm:
        return own.alarm;
    case Right::Roles:
        return own.roles >= need.level;
    case Right::Devices:
        return own.devices >= need.level;
    case Right::Playback:
        return own.playback >= need.level;
    case Right::Tasks:
        return own.tasks >= need.level;
    case Right::Presets:
        return own.presets >= need.level;
    }
    return false;
}

bool Access::sees(const Unit& unit) const
{
    return own.seesAll || std::any_of(installation.zones.begin(), installation.zones.end(),
                                      [this, &unit](const Zone& zone) {
                                          return sees(zone) && zone.units.contains(unit.id);
                                      });
}

bool Access::sees(const Zone& zone) const
{
    return lists(own.zoneIds, zone.id);
}

bool Access::sees(const Playlist& playlist) const
{
    return lists(own.playlistIds, playlist.id);
}

bool Access::sees(const Track& track) const
{
    return lists(own.playlistIds, track.playlist);
}

bool Access::sees(const Playback& playback) const
{
    return lists(own.playlistIds, playback.playlist) && !seenUnits(playback.units).isEmpty();
}

bool Access::sees(const Preset& preset) const
{
    return lists(own.presetIds, preset.id);
}

bool Access::sees(const Task& task) const
{
    return lists(own.taskIds, task.play ? task.id : task.target);
}

bool Access::sees(const Account& account) const
{
    return own.users || account.role == own.name;
}

bool Access::sees(const Role& role) const
{
    return own.users || own.roles >= Level::Read || role.name == own.name;
}

const char* Access::lacks(int playlist, const Targets& targets) const
{
    if (!lists(own.playlistIds, playlist)) {
        return "Playlist";
    }
    if (std::any_of(targets.zones.begin(), targets.zones.end(),
                    [this](int id) { return !lists(own.zoneIds, id); })) {
        return "Zone";
    }
    return seenUnits(targets.units).size() < targets.units.size() ? "Device" : nullptr;
}

QVector<int> Access::seenUnits(const QVector<int>& units) const
{
    QVector<int> seen;
    for (int id : units) {
        const Unit* unit = installation.unit(id);
        if (unit && sees(*unit)) {
            seen.append(id);
        }
    }
    return seen;
}

} // namespace simulator
