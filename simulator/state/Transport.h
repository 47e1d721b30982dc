#pragma once

#include "simulator/state/Installation.h"

namespace simulator
{

/// Ranks of what a unit plays from its memory, of those who speak live and of the alarm messages
/// between them; music has 0, a gong 3.
constexpr int memoryRank = 2;
constexpr int microphoneRank = 4;
constexpr int alarmMessageRank = 5;
constexpr int alarmRank = 6;

int rankOf(const Redirection& redirection);
/// How important what a unit carries is, -1 for nothing.
int rankOn(const Installation& installation, int unit);

/// What somebody wants to hear, and where.
struct StartOrder {
    int playlist = 0;
    int track = -1; ///< -1 for the first track of the folder
    QVector<int> units;
    QString strategy; ///< for busy units: "overlap" takes them, "partial" leaves them, else refuse
    Repetition repetition;
    QString by; ///< who starts it, for the log
};

/// What came of it.
struct StartResult {
    QString refusal; ///< the wire word, empty when it runs
    int playback = 0;
    int track = 0;
    QVector<int> units;    ///< those that carry it
    QVector<int> ended;    ///< playbacks that lost their last unit to it
    bool silenced = false; ///< it ended who spoke live
};

// What becomes of a playback is logged where it happens; `by` says by whose doing.

/// The importance of what lies in a folder.
int importanceOf(const Installation& installation, int playlist);

/// What is to be done with one that wants `units`, of a rank, and with what strategy: the wire word
/// of the refusal as for startPlayback(), empty when it may; `units` are then those that it gets.
QString settle(const Installation& installation, int rank, const QString& strategy,
               QVector<int>& units);

/// Starts a playback on those of the units that are connected. Refuses with "playbackError" for an
/// unknown track, "noDevices" when no unit is left, "lowPriority" when a unit plays something more
/// important, "overlap" when units are busy and the order doesn't say what to do with them. A gong
/// sounds once, and what it interrupts goes on behind it.
StartResult startPlayback(Installation& installation, const StartOrder& order);

/// Ends a playback and frees its units, or gives them back to what it interrupted. False for an
/// unknown one.
bool endPlayback(Installation& installation, int id, const QString& by);

/// Takes a unit from all that it plays, hears live or that waits on it. Gives the playbacks that
/// lost their last unit and ended by it.
QVector<int> freeUnit(Installation& installation, int unit, const QString& by);

/// Sets the track of a playback and its place in it, in seconds, and lets it run.
void playTrack(Playback& playback, int track, int position, const QString& by);

/// Halts a playback where it is, or lets it go on from there.
void setPaused(const Installation& installation, Playback& playback, bool paused,
               const QString& by);

/// The track behind the current one in the folder, nothing behind the last.
std::optional<int> followingTrack(const Installation& installation, const Playback& playback);

/// What the end of a track leads to.
enum class TrackEnd { NextTrack, Pause, Stop };

/// Moves a playback, whose track has ended, on by its repetition. On Stop it only says so.
TrackEnd finishTrack(const Installation& installation, Playback& playback);

} // namespace simulator
