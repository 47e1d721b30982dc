#include "model/Device.h"

#include "app/Data.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Task.h"
#include "model/Track.h"
#include "page/ScriptCall.h"

#include <QStringList>

#include <algorithm>

namespace
{

constexpr int shownComponents = 3;

/// The titles shown for what no playlist of the server holds.
struct CategoryTitles {
    int category;
    const char* playlist;
    const char* track;
};

constexpr CategoryTitles categoryTitles[] = {
    {PlaybackCategory::Alarm, "Тревожное вещание", "--"},
    {PlaybackCategory::MemoryScenario, "Внутренняя память", "Сообщение"},
    {PlaybackCategory::MemoryMessage, "Внутренняя память", "Фрагмент"},
    {PlaybackCategory::CivilDefence, "ГОЧС", "--"},
    {PlaybackCategory::None, "--", "--"},
    {PlaybackCategory::Microphone, "Вещание с микрофона", "--"},
};

/// The first three components of a version; one with fewer stays whole.
QString shortVersion(const QString& version)
{
    return version.section(QLatin1Char('.'), 0, shownComponents - 1);
}

bool isPlaybackOfTask(int playbackId, int taskId)
{
    const Task* const task = Data::getTaskById(taskId);
    return task && task->getPlayback() == playbackId;
}

int unitsInAlarm = 0;

void countAlarm(int step)
{
    unitsInAlarm += step;
    Page::call("wrapperInput_global_setAlarmUnits", unitsInAlarm);
}

} // namespace

/// The setter of most fields: tells the page of a change, where it shows the field at all.
template <class Value>
void Device::change(Value& field, const Value& value, const char* script, bool shown)
{
    if (field == value) {
        return;
    }
    field = value;
    if (shown) {
        Page::call(script, id, field);
    }
}

void Device::setName(const QString& deviceName)
{
    change(name, deviceName, "wrapperInput_device_setName");
}

void Device::setStatus(DeviceStatus deviceStatus)
{
    status = deviceStatus;
    switch (status) {
    case DeviceOnline:
        Page::call("wrapperInput_device_linkOn", id, 2);
        break;
    case DeviceIncoming:
        Page::call("wrapperInput_device_linkIncoming", id, 1);
        Page::call("wrapperInput_device_setAvailableMemory", id, availableMemory);
        break;
    case DeviceOffline:
        Page::call("wrapperInput_device_linkOff", id, 0);
        break;
    }
}

void Device::setRead()
{
    if (!read) {
        read = true;
        Page::call("wrapperInput_device_setRead", id);
    }
}

void Device::setBatteryStatus(int number)
{
    change(batteryStatus, number, "wrapperInput_device_setBattery");
}

void Device::setBatteryLevel(int percent)
{
    change(batteryLevel, percent, "wrapperInput_device_setBatteryLevel");
}

void Device::setPower(bool present)
{
    change(power, present, "wrapperInput_device_setPower");
}

void Device::setHull(bool closed)
{
    change(hull, closed, "wrapperInput_device_setHull");
}

bool Device::getLinesStatus() const
{
    return status == DeviceOnline && std::none_of(lines.begin(), lines.end(), [](const auto& line) {
               return line.second.isFaulty();
           });
}

void Device::updateLinesStatus() const
{
    Page::call("wrapperInput_device_setLinesStatus", id, getLinesStatus());
}

void Device::setVolume(int percent)
{
    change(volume, percent, "wrapperInput_device_setVolume");
}

void Device::setEqualizerEnabled(bool enabled)
{
    change(equalizerEnabled, enabled, "wrapperInput_device_setEqualizerEnabled");
}

double Device::getEqualizer(int band) const
{
    return band >= 0 && band < bandCount ? equalizer[static_cast<std::size_t>(band)] : 0.0;
}

void Device::setEqualizer(int band, double value)
{
    if (band < 0 || band >= bandCount || getEqualizer(band) == value) {
        return;
    }
    equalizer[static_cast<std::size_t>(band)] = value;
    Page::call("wrapperInput_device_setEqualizer", id, band, value);
}

void Device::setPlayback(int playbackId)
{
    const int oldId = playback;
    playback = playbackId;
    if (taskId != 0 && !isPlaybackOfTask(playbackId, taskId)) {
        setTaskId(0);
    }
    Page::call("wrapperInput_device_setPlayback", id, oldId, playback);
    const Playback* const running = Data::getPlaybackById(playback);
    const Playlist* const list =
        running ? Data::getPlaylistById(running->getPlaylistId()) : nullptr;
    const Track* const track = running ? Data::getTrackById(running->getTrackId()) : nullptr;
    if (list && track) {
        Page::call("wrapperInput_device_setPlaybackInfo", id, list->getTitle(), track->getTitle());
    }
}

Device::~Device()
{
    if (isInAlarm()) {
        countAlarm(-1);
    }
}

int Device::getAlarmCount()
{
    return unitsInAlarm;
}

bool Device::isInAlarm() const
{
    return playbackCategory == PlaybackCategory::Alarm ||
           playbackCategory == PlaybackCategory::AlarmMessage;
}

void Device::setPlaybackCategory(int category)
{
    const bool wasInAlarm = isInAlarm();
    playbackCategory = category;
    if (isInAlarm() != wasInAlarm) {
        countAlarm(wasInAlarm ? -1 : 1);
    }
    Page::call("wrapperInput_device_setPlaybackCategory", id, playbackCategory);
    showCategoryTitles();
}

bool Device::showCategoryTitles() const
{
    const auto titles = std::find_if(
        std::begin(categoryTitles), std::end(categoryTitles),
        [this](const CategoryTitles& row) { return row.category == playbackCategory; });
    if (titles == std::end(categoryTitles)) {
        return false;
    }
    Page::call("wrapperInput_device_setPlaybackInfo", id, titles->playlist, titles->track);
    return true;
}

void Device::setPlaybackGroupId(int groupId)
{
    playbackGroupId = groupId;
    Page::call("deviceInfo_changePlaying", id, qMax(playbackGroupId, 0));
}

void Device::setTaskId(int newTaskId)
{
    showTask(newTaskId);
    taskId = newTaskId;
}

void Device::showTask(int shownTaskId) const
{
    const Task* const task = shownTaskId != 0 ? Data::getTaskById(shownTaskId) : nullptr;
    Page::call("wrapperInput_device_setTask", id, shownTaskId,
               task ? task->getTitle() : QStringLiteral("--"));
}

void Device::setAvailableMemory(int bytes)
{
    availableMemory = bytes;
    Page::call("wrapperInput_device_setAvailableMemory", id, availableMemory);
}

void Device::setVersionMain(const QString&, const QString& pss)
{
    const int generation = pss.section(QLatin1Char('.'), 0, 0).toInt();
    if (generation >= 0) {
        versionMain = generation > 0 ? 3 : 0;
    }
}

void Device::setVersionMainText(const QString& text)
{
    const QString cleaned = QString(text).replace(QLatin1Char('\''), QLatin1Char(','));
    const QStringList words = cleaned.split(QLatin1Char(' '));
    versionMainText = words.size() < 3 ? cleaned : shortVersion(words.at(1));
    showVersion();
}

void Device::setVersionPss(const QString& version)
{
    versionPss = shortVersion(version);
    showVersion();
}

void Device::setVersionLnCtrl(const QString& version)
{
    versionLnCtrl = shortVersion(version);
    showVersion();
}

void Device::showVersion() const
{
    Page::call("wrapperInput_device_setVersion", id, versionMain, versionPss, versionLnCtrl,
               versionMainText);
}

void Device::showVolume() const
{
    Page::call("wrapperInput_device_setVolume", id, volume);
}

void Device::showEqualizer() const
{
    Page::call("wrapperInput_device_setEqualizerEnabled", id, equalizerEnabled);
    for (int band = 0; band < bandCount; ++band) {
        Page::call("wrapperInput_device_setEqualizer", id, band, getEqualizer(band));
    }
}

void Device::setDHCP(bool on)
{
    Page::call("wrapperInput_device_setDHCP", id, on, static_cast<int>(status));
    dhcp = on;
}

void Device::setIp(const QString& address)
{
    change(ip, address, "wrapperInput_device_setIp", dhcp);
}

void Device::setNetworkMask(const QString& mask)
{
    change(networkMask, mask, "wrapperInput_device_setNetworkMask", dhcp);
}

void Device::setGateway(const QString& address)
{
    change(gateway, address, "wrapperInput_device_setGateway", dhcp);
}

void Device::setStaticIp(const QString& address)
{
    change(staticIp, address, "wrapperInput_device_setIp", !dhcp);
}

void Device::setStaticNetworkMask(const QString& mask)
{
    change(staticNetworkMask, mask, "wrapperInput_device_setNetworkMask", !dhcp);
}

void Device::setStaticGateway(const QString& address)
{
    change(staticGateway, address, "wrapperInput_device_setGateway", !dhcp);
}

void Device::setMac(const QString& address)
{
    change(mac, address, "wrapperInput_device_setMac");
}

void Device::setMulticastIp(const QString& address)
{
    change(multicastIp, address, "wrapperInput_device_setMulticastIp");
}

void Device::setCommandPort(int port)
{
    change(commandPort, port, "wrapperInput_device_setCommandPort");
}

void Device::setAllowedCommandIp(const QString& address)
{
    change(allowedCommandIp, address, "wrapperInput_device_setAllowedCommandIp");
}

void Device::setTavrinRelayControl(bool on)
{
    change(tavrinRelayControl, on, "wrapperInput_device_setTavrinRelayControl");
}

void Device::setLineJoined(bool joined)
{
    change(lineJoined, joined, "wrapperInput_device_setLineJoined");
}

void Device::setTavrinAddress(int address)
{
    change(tavrinAddress, address, "wrapperInput_device_setTavrinAddress");
}

void Device::setTavrinRelayEvent(bool on)
{
    change(tavrinRelayEvent, on, "wrapperInput_device_setTavrinRelayEvent");
}

void Device::setTavrinErrorIndication(bool on)
{
    change(tavrinErrorIndication, on, "wrapperInput_device_setTavrinErrorIndication");
}

void Device::setMulticastListen(bool on)
{
    change(multicastListen, on, "wrapperInput_device_setMulticastListen");
}

void Device::setMulticastAIN0(bool on)
{
    change(multicastAIN0, on, "wrapperInput_device_setMulticastAIN0");
}

void Device::setMulticastAIN1(bool on)
{
    change(multicastAIN1, on, "wrapperInput_device_setMulticastAIN1");
}

void Device::setPriorityAIN0(int priority)
{
    change(priorityAIN0, priority, "wrapperInput_device_setPriorityAIN0");
}

void Device::setPriorityAIN1(int priority)
{
    change(priorityAIN1, priority, "wrapperInput_device_setPriorityAIN1");
}

void Device::setPriorityScenario(int priority)
{
    change(priorityScenario, priority, "wrapperInput_device_setPriorityScenario");
}

void Device::setPriorityListen(int priority)
{
    change(priorityListen, priority, "wrapperInput_device_setPriorityListen");
}

void Device::setPriorityStream(int priority)
{
    change(priorityStream, priority, "wrapperInput_device_setPriorityStream");
}
