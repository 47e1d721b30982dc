#pragma once

#include "simulator/state/Words.h"

#include <QByteArray>
#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace simulator
{

/// A supervised line or terminal device of a unit.
struct Line {
    int tipId = 0; ///< 0 to 255, unique in the unit
    QString title;
    bool inOrder = true;
    bool isNew = false; ///< reported by the unit, not adopted yet
};

/// A sound fragment in a unit's own memory; its position is its index.
struct MemoryMessage {
    QString title;
    int size = 0; ///< bytes
};

/// An announcement in a unit's own memory; its position is its index.
struct MemoryScenario {
    QString title;
    int priority = 0;
    int positionGong = 0;    ///< position of a MemoryMessage
    int positionMessage = 0; ///< position of a MemoryMessage
    int repeat = 0;          ///< seconds between two repeats
};

/// What a unit keeps in its own memory.
struct UnitMemory {
    QVector<MemoryMessage> messages;
    QVector<MemoryScenario> scenarios;
    int available = 0; ///< bytes
};

/// Something that a unit is busy with for a while.
struct UnitWork {
    QDateTime since;
    int seconds = 0;
    bool fails = false;

    /// 100 once it is over.
    int percent(const QDateTime& now) const;
};

/// A firmware that a unit takes over.
struct Upgrade {
    UnitWork work;
    QString version;
};

/// What a unit plays from its own memory.
struct MemoryRun {
    int group = 0;
    bool message = true; ///< else an announcement, which repeats until it is stopped
    int position = 0;
    QDateTime since;
};

/// One network loudspeaker unit.
struct Unit {
    int id = 0;
    QString title;
    Link link = Link::Bidirectional;
    Battery battery = Battery::Ok;
    int batteryLevel = 100; ///< percent
    Case housing = Case::Close;
    int volume = 50; ///< 0 to 100
    QString versionText;
    QString versionMain;
    QString versionPss; ///< a first component above 0 marks the newer generation
    QString versionLineControl;
    QString mac;
    QVector<Line> lines;
    bool equalizerEnabled = false;
    QVector<double> equalizer; ///< ten bands on the newer generation, bass and treble before it
    QJsonObject config;        ///< settings by their wire keys
    int playback = 0;          ///< id of the Playback addressed to it, 0 for none
    UnitMemory memory;         ///< with the edits that wait
    std::optional<UnitMemory> unedited; ///< what the unit still holds while edits wait
    std::optional<MemoryRun> memoryRun;
    std::optional<UnitWork> applying;
    bool applyFailed = false;
    std::optional<Upgrade> upgrade;
    bool upgradeFailed = false;
    bool failsNext = false; ///< set at the prompt: its next apply or upgrade ends badly
    QString memoryStamp;
    /// Whether its line has terminal devices, and its equaliser ten bands.
    bool isNewGeneration() const { return versionPss.section('.', 0, 0).toInt() > 0; }
    bool linkByHand = false;  ///< set at the prompt, so life leaves the link as it is
    bool powerByHand = false; ///< the same for battery and mains
};

/// A node of the zone tree.
struct Zone {
    int id = 0;
    QString title;
    bool physical = true;
    int parent = 0;     ///< 0 at the top
    QVector<int> units; ///< ids; a unit is in at most one physical zone
};

/// A folder of the audio library. Ids 1 to 7 are the category roots.
struct Playlist {
    int id = 0;
    QString title;
    int parent = 0;
    int position = 0;
    int group = 0; ///< category root it hangs under, 1 to 7
    int volume = 50;
};

/// One audio item.
struct Track {
    int id = 0;
    int playlist = 0;
    QString title;
    int position = 0;
    int duration = 0; ///< seconds, -1 for a live stream
    QString file;     ///< its name on the server, or the address of a stream
};

/// What is played again, and what follows.
struct Repetition {
    QString target = "list"; ///< "list" or "track"
    int repeats = 0;         ///< after the first pass
    QString atEnd = "stop";  ///< "pause" or "stop"
};

/// Where something is to be played; both empty stand for all units.
struct Targets {
    QVector<int> zones;
    QVector<int> units;
};

/// One audio run.
struct Playback {
    int id = 0;
    int playlist = 0;
    int track = 0;
    int volume = 50;
    bool playing = true;
    Repetition repetition;
    int position = 0; ///< seconds into the track at `since`
    QDateTime since;
    QVector<int> units; ///< ids it is addressed to
    int pass = 0;       ///< repeats that are done
    int task = 0;       ///< id of the task that started it, 0 for none
};

/// Somebody speaks live. There is one at a time.
struct Redirection {
    QString type;       ///< "microphone" or "alarm"
    QVector<int> units; ///< ids
    int speaker = 0;    ///< number of the session that speaks
};

/// A scheduled event: a play event, or the stop event that belongs to one.
struct Task {
    int id = 0;
    QString title;
    bool enabled = true;
    bool play = true;
    int target = 0; ///< playlist of a play event, play event of a stop event
    int track = 0;
    QString frequency; ///< "once", "daily", "weekly", "monthly", "annually"
    QString days;      ///< English day names with commas, for "weekly"
    QString startDate; ///< "yyyy-MM-dd", UTC
    QString startTime; ///< "HH:mm", UTC
    QString endDate;   ///< empty for open
    Repetition repetition;
    Targets targets;
};

/// A stored start of a playback.
struct Preset {
    int id = 0;
    QString title;
    QString type = "playlist";
    int playlist = 0;
    int track = -1; ///< -1 for the first track of the folder
    int position = 0;
    Repetition repetition;
    Targets targets;
};

/// A firmware image that lies on the server.
struct FirmwareImage {
    QString fileName;
    QString version;
    QByteArray digest = {}; ///< of its content, empty for one that the fiction brought along
};

/// The rights of a group of accounts, and what they may see.
struct Role {
    QString name;
    QString title;
    bool server = false;
    bool users = false;
    bool zoneTree = false;
    Level roles = Level::Unavailable;
    Level devices = Level::Unavailable;
    Level playback = Level::Unavailable;
    Level tasks = Level::Unavailable;
    Level presets = Level::Unavailable;
    bool microphone = false;
    bool alarm = false;
    bool externalDrives = false;
    bool seesAll = false; ///< the four lists below do not limit it
    QVector<int> zoneIds;
    QVector<int> playlistIds;
    QVector<int> presetIds;
    QVector<int> taskIds;
};

/// An account. Passwords are kept as they travel: MD5 in 32 lower-case hexadecimal digits.
struct Account {
    QString name;
    QString title;
    QString role;
    QString password;
    QString alarmPassword;
};

/// A network interface of the server.
struct NetworkInterface {
    QString ip;
    QString description;
};

/// What the server says about itself.
struct ServerSettings {
    QString version;
    QVector<NetworkInterface> interfaces;
    QString networkInterface; ///< ip of the selected one, empty for the default
    QString multicastIp;
    int commandPort = 0;
    bool maximumLogLevel = false;
    int logMegabytes = 0;   ///< least size of today's log
    QString offeredVersion; ///< an update, empty without one
    bool internet = true;
    int timezone = 0; ///< hours east of UTC
};

} // namespace simulator
