#pragma once

#include "simulator/state/Installation.h"

namespace simulator
{

/// What a command asks for. `Anyone` needs no login, `Session` only a login.
enum class Right {
    Anyone,
    Session,
    Server,
    Users,
    Roles,
    Zones,
    Devices,
    Playback,
    Tasks,
    Presets,
    Microphone,
    Alarm,
};

/// A right, and how much of it; the level counts for the rights that have levels.
struct Need {
    Right right = Right::Session;
    Level level = Level::Administration;
};

/// What one role may do and see. Holds references: use it and let it go.
class Access
{
public:
    Access(const Installation& whole, const Role& role);

    bool allows(Need need) const;

    bool sees(const Unit& unit) const;
    bool sees(const Zone& zone) const;
    bool sees(const Playlist& playlist) const;
    bool sees(const Track& track) const;
    /// Its folder and at least one of its units.
    bool sees(const Playback& playback) const;
    bool sees(const Preset& preset) const;
    bool sees(const Task& task) const;
    bool sees(const Account& account) const;
    bool sees(const Role& role) const;
    /// Which kind of thing it doesn't see of a folder and where that is to be played: "Zone",
    /// "Playlist", "Device", null for none.
    const char* lacks(int playlist, const Targets& targets) const;
    /// Those of the units that it sees; unknown ids fall out.
    QVector<int> seenUnits(const QVector<int>& units) const;

private:
    bool lists(const QVector<int>& ids, int id) const { return own.seesAll || ids.contains(id); }

    const Installation& installation;
    const Role& own;
};

} // namespace simulator
