#pragma once

#include "model/LineControl.h"

#include <QString>
#include <QVector>

#include <array>
#include <map>

/// The link between the server and a unit. Only an online unit takes settings.
enum DeviceStatus : int { DeviceOffline = 0, DeviceIncoming = 1, DeviceOnline = 2 };

/// What a unit plays, by the numbers that the pages know. From 1 to 7 they are the ids of the
/// library's root playlists.
namespace PlaybackCategory
{
enum Number : int {
    Alarm = -4,
    MemoryScenario = -3,
    MemoryMessage = -2,
    CivilDefence = -1,
    None = 0,
    Radio = 1,
    Playlist = 2,
    Advertising = 3,
    ServiceMessage = 4,
    Microphone = 5,
    AlarmMessage = 6,
    Gong = 7
};
} // namespace PlaybackCategory

/// What has still to be asked of a unit that hasn't come by the list of units, once that list says
/// whether it is online.
enum class UnreadPart { None, Memory, Everything };

/// The mirror of one loudspeaker unit. All values come from the server. A setter stores the value
/// and tells the page: most of them only of a change, some on every call, and a few store alone.
class Device
{
public:
    static constexpr int bandCount = 10;

    Device() = default;
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// Of all units, those on which an alarm is on air, by voice or by message. The page is told of
    /// each change.
    static int getAlarmCount();

    int getId() const { return id; }
    /// Only before the unit is in the mirror's list.
    void setId(int deviceId) { id = deviceId; }
    const QString& getName() const { return name; }
    void setName(const QString& deviceName);

    UnreadPart getUnread() const { return unread; }
    void setUnread(UnreadPart part) { unread = part; }

    // Link and health.
    DeviceStatus getStatus() const { return status; }
    /// Tells the page on every call.
    void setStatus(DeviceStatus deviceStatus);
    /// Whether a state of the unit has come, or a refusal of it: before that its health is unknown.
    bool isRead() const { return read; }
    /// Tells the page once.
    void setRead();
    /// 2 full, 1 in between, 0 none or broken.
    int getBatteryStatus() const { return batteryStatus; }
    void setBatteryStatus(int number);
    /// Percent, 0 to 100.
    int getBatteryLevel() const { return batteryLevel; }
    void setBatteryLevel(int percent);
    /// Whether mains is present.
    bool getPower() const { return power; }
    void setPower(bool present);
    /// Whether the case is closed.
    bool getHull() const { return hull; }
    void setHull(bool closed);

    // Lines, by their address.
    std::map<quint8, LineControl>& getLines() { return lines; }
    const std::map<quint8, LineControl>& getLines() const { return lines; }
    /// Whether the unit is online and none of its adopted lines is at fault.
    bool getLinesStatus() const;
    void updateLinesStatus() const;
    /// Whether the unit has addressable terminal devices; an older one has built-in lines only.
    bool isLinesEditable() const { return versionMain > 2; }

    // Sound. Volume 0 to 100. Bands 0 and 1 are bass and treble of a unit without ten bands.
    int getVolume() const { return volume; }
    void setVolume(int percent);
    bool isEqualizerEnabled() const { return equalizerEnabled; }
    void setEqualizerEnabled(bool enabled);
    /// The gain of a band from 0 to `bandCount` - 1; 0 for any other.
    double getEqualizer(int band) const;
    /// A band that the unit doesn't have is left out.
    void setEqualizer(int band, double value);
    bool hasTenBands() const { return versionMain > 2; }

    // What it plays. All four tell the page on every call.
    /// The id of the `Playback` running on it, 0 for none.
    int getPlayback() const { return playback; }
    /// Takes back the task whose playback it no longer is.
    void setPlayback(int playbackId);
    int getPlaybackCategory() const { return playbackCategory; }
    void setPlaybackCategory(int category);
    /// Above 0 while the unit plays from its own memory.
    int getPlaybackGroupId() const { return playbackGroupId; }
    void setPlaybackGroupId(int groupId);
    /// The id of the `Task` running on it, 0 for none.
    int getTaskId() const { return taskId; }
    void setTaskId(int newTaskId);
    /// Sends the page the titles of a category that has fixed ones; false for any other.
    bool showCategoryTitles() const;
    /// Sends the page the titles of the task with that id, "--" without one.
    void showTask(int shownTaskId) const;

    // Its own memory.
    /// Free bytes; 0 also means not asked yet.
    int getAvailableMemory() const { return availableMemory; }
    /// Tells the page on every call.
    void setAvailableMemory(int bytes);
    const QString& getMemoryStamp() const { return memoryStamp; }
    void setMemoryStamp(const QString& stamp) { memoryStamp = stamp; }
    /// Positions of what plays from memory, -1 for none.
    int getScenarioPlaying() const { return scenarioPlaying; }
    void setScenarioPlaying(int position) { scenarioPlaying = position; }
    int getMessagePlaying() const { return messagePlaying; }
    void setMessagePlaying(int position) { messagePlaying = position; }

    // Zones that include it, by id.
    QVector<int>& getZoneList() { return zoneList; }
    const QVector<int>& getZoneList() const { return zoneList; }
    void includeToZone(int zoneId) { zoneList.append(zoneId); }
    void excludeFromZone(int zoneId) { zoneList.removeAll(zoneId); }
    void clearZoneList() { zoneList.clear(); }

    // Versions. All tell the page on every call, but `setVersionMain`.
    /// The hardware generation: 3 with a switching unit of its own, 0 without.
    int getVersionMain() const { return versionMain; }
    /// `pss` decides: a first component above 0 means generation 3, one that is 0 or no number
    /// generation 0; a negative one changes nothing. `main` has no influence.
    void setVersionMain(const QString& main, const QString& pss);
    const QString& getVersionMainText() const { return versionMainText; }
    /// Keeps three components of the second word, where there are three words or more.
    void setVersionMainText(const QString& text);
    const QString& getVersionPss() const { return versionPss; }
    /// These two keep the first three components.
    void setVersionPss(const QString& version);
    const QString& getVersionLnCtrl() const { return versionLnCtrl; }
    void setVersionLnCtrl(const QString& version);
    void showVersion() const;
    /// Tell the page again, which has a slider where the operator has left it.
    void showVolume() const;
    void showEqualizer() const;

    // Network. The page shows the addresses in force under DHCP, the static ones without.
    bool getDHCP() const { return dhcp; }
    /// Tells the page on every call.
    void setDHCP(bool on);
    const QString& getIp() const { return ip; }
    void setIp(const QString& address);
    const QString& getNetworkMask() const { return networkMask; }
    void setNetworkMask(const QString& mask);
    const QString& getGateway() const { return gateway; }
    void setGateway(const QString& address);
    const QString& getStaticIp() const { return staticIp; }
    void setStaticIp(const QString& address);
    const QString& getStaticNetworkMask() const { return staticNetworkMask; }
    void setStaticNetworkMask(const QString& mask);
    const QString& getStaticGateway() const { return staticGateway; }
    void setStaticGateway(const QString& address);
    const QString& getMac() const { return mac; }
    void setMac(const QString& address);
    const QString& getMulticastIp() const { return multicastIp; }
    void setMulticastIp(const QString& address);
    int getcommandPort() const { return commandPort; }
    void setCommandPort(int port);
    const QString& getAllowedCommandIp() const { return allowedCommandIp; }
    void setAllowedCommandIp(const QString& address);

    // Alarm network and sources.
    bool getTavrinRelayControl() const { return tavrinRelayControl; }
    void setTavrinRelayControl(bool on);
    bool getLineJoined() const { return lineJoined; }
    void setLineJoined(bool joined);
    int getTavrinAddress() const { return tavrinAddress; }
    void setTavrinAddress(int address);
    bool getTavrinRelayEvent() const { return tavrinRelayEvent; }
    void setTavrinRelayEvent(bool on);
    bool getTavrinErrorIndication() const { return tavrinErrorIndication; }
    void setTavrinErrorIndication(bool on);
    bool getMulticastListen() const { return multicastListen; }
    void setMulticastListen(bool on);
    bool getMulticastAIN0() const { return multicastAIN0; }
    void setMulticastAIN0(bool on);
    bool getMulticastAIN1() const { return multicastAIN1; }
    void setMulticastAIN1(bool on);
    int getPriorityAIN0() const { return priorityAIN0; }
    void setPriorityAIN0(int priority);
    int getPriorityAIN1() const { return priorityAIN1; }
    void setPriorityAIN1(int priority);
    int getPriorityScenario() const { return priorityScenario; }
    void setPriorityScenario(int priority);
    int getPriorityListen() const { return priorityListen; }
    void setPriorityListen(int priority);
    int getPriorityStream() const { return priorityStream; }
    void setPriorityStream(int priority);

private:
    template <class Value>
    void change(Value& field, const Value& value, const char* script, bool shown = true);

    int id = 0;
    QString name;
    int volume = 0;
    int batteryStatus = 0;
    int batteryLevel = 0;
    int playback = 0;
    bool isInAlarm() const;

    int playbackCategory = 0;
    std::map<quint8, LineControl> lines;
    bool equalizerEnabled = false;
    std::array<double, bandCount> equalizer{};
    bool power = false;
    bool hull = false;
    int scenarioPlaying = -1;
    int messagePlaying = -1;
    int playbackGroupId = 0;
    QVector<int> zoneList;
    bool dhcp = false;
    QString ip = QStringLiteral("0.0.0.0");
    QString networkMask = QStringLiteral("0.0.0.0");
    QString gateway = QStringLiteral("0.0.0.0");
    QString staticIp = QStringLiteral("0.0.0.0");
    QString staticNetworkMask = QStringLiteral("0.0.0.0");
    QString staticGateway = QStringLiteral("0.0.0.0");
    QString mac;
    int versionMain = 0;
    QString versionMainText;
    QString versionPss;
    QString versionLnCtrl;
    UnreadPart unread = UnreadPart::None;
    DeviceStatus status = DeviceOffline;
    bool read = false;
    QString multicastIp = QStringLiteral("224.0.224.1");
    int commandPort = 11990;
    QString allowedCommandIp = QStringLiteral("0.0.0.0");
    bool tavrinRelayControl = true;
    bool lineJoined = false;
    int tavrinAddress = 127;
    bool tavrinRelayEvent = true;
    bool tavrinErrorIndication = false;
    int availableMemory = 0;
    QString memoryStamp;
    int taskId = 0;
    bool multicastListen = false;
    bool multicastAIN0 = false;
    bool multicastAIN1 = false;
    int priorityAIN0 = 5;
    int priorityAIN1 = 4;
    int priorityScenario = 2;
    int priorityListen = 3;
    int priorityStream = 1;
};
