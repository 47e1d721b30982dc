#pragma once

#include "simulator/state/Records.h"

#include <QHash>

namespace simulator
{

/// The whole state of the fictional installation. Plain lists in the order in which they are told,
/// and lookups that give null for an unknown id. A pointer from a lookup holds until the list it
/// points into changes its length.
class Installation
{
public:
    QVector<Zone> zones;
    QVector<Playlist> playlists;
    QVector<Track> tracks;
    QVector<Playback> playbacks;
    int lastPlayback = 0;    ///< the highest id given so far
    int lastMemoryGroup = 0; ///< the highest id given so far
    std::optional<Redirection> redirection;
    QVector<Task> tasks;
    QVector<Preset> presets;
    QVector<FirmwareImage> firmware;
    QVector<Role> roles;
    QVector<Account> accounts;
    ServerSettings server;

    /// Appends a unit; its id must be new.
    void addUnit(const Unit& unit);
    /// Takes a unit out of the zones, presets, tasks and what plays on it. False for an unknown
    /// one.
    bool removeUnit(int id);
    const QVector<Unit>& allUnits() const { return units; }

    Unit* unit(int id);
    const Unit* unit(int id) const;
    Zone* zone(int id);
    const Zone* zone(int id) const;
    Playlist* playlist(int id);
    const Playlist* playlist(int id) const;
    Track* track(int id);
    const Track* track(int id) const;
    Playback* playback(int id);
    const Playback* playback(int id) const;
    Preset* preset(int id);
    Task* task(int id);
    Role* role(const QString& name);
    const Role* role(const QString& name) const;
    Account* account(const QString& name);
    const Account* account(const QString& name) const;

    /// Tracks of a folder in their order.
    QVector<Track> tracksOf(int playlist) const;
    /// Sum of the tracks' durations in seconds; live streams count as nothing.
    int durationOf(int playlist) const;
    /// Seconds into the current track, never past its end.
    int positionOf(const Playback& playback, const QDateTime& now) const;
    /// The units that really carry the playback: those of its targets that are connected.
    QVector<int> activeUnits(const Playback& playback) const;
    /// The wire word for what a unit plays now, "none" while it is not connected.
    QString playbackWord(const Unit& unit) const;
    /// Names of the accounts that belong to a role.
    QStringList accountsOf(const QString& role) const;
    /// The units of targets, which may name one more than once; targets without any mean all units.
    QVector<int> unitsOf(const Targets& targets) const;
    /// Ids of the zones that hold a unit.
    QVector<int> zonesOf(int unit) const;

private:
    QVector<Unit> units;
    QHash<int, int> unitIndex; ///< id to place in `units`
};

} // namespace simulator
