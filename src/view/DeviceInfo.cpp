#include "view/WebView.h"

#include "app/Data.h"
#include "model/Device.h"
#include "model/DeviceMemory.h"
#include "model/MemoryEntries.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Track.h"
#include "page/ScriptCall.h"
#include "protocol/CurrentRole.h"
#include "protocol/DeviceState.h"
#include "protocol/ZoneMembership.h"
#include "view/SlotLog.h"

namespace
{

void showLink(const Device& device)
{
    switch (device.getStatus()) {
    case DeviceOnline:
        Page::call("wrapperInput_device_linkOn", device.getId());
        break;
    case DeviceIncoming:
        Page::call("wrapperInput_device_linkIncoming", device.getId());
        break;
    case DeviceOffline:
        Page::call("wrapperInput_device_linkOff", device.getId());
        break;
    }
}

void showZones(const Device& device)
{
    Page::call("deviceInfo_clearZones");
    for (const int zoneId : device.getZoneList()) {
        ZoneMembership::showIncluded(zoneId, device.getId());
    }
}

void showSource(const QString& playlist, const QString& track)
{
    Page::call("deviceInfo_setAudioPlaylist", playlist);
    Page::call("deviceInfo_setAudioTrack", track);
}

/// The titles of the playback that runs on the unit; false if they aren't all known.
bool showPlaybackTitles(const Device& device)
{
    const Playback* const running = Data::getPlaybackById(device.getPlayback());
    const Playlist* const list =
        running ? Data::getPlaylistById(running->getPlaylistId()) : nullptr;
    const Track* const track = running ? Data::getTrackById(running->getTrackId()) : nullptr;
    if (list && track) {
        showSource(list->getTitle(), track->getTitle());
    }
    return list && track;
}

/// Every label is written: the page still shows those of the unit before.
void showPlaying(const Device& device)
{
    const QString nothing = QStringLiteral("--");
    const int category = device.getPlaybackCategory();
    Page::call("deviceInfo_changePlaying", device.getId(), device.getPlaybackGroupId());
    const bool isPlaying = category != PlaybackCategory::None;
    const bool isTold =
        isPlaying && ((category > 0 && showPlaybackTitles(device)) || device.showCategoryTitles());
    if (!isTold) {
        showSource(nothing, nothing);
    }
    const bool hasTask = isPlaying && Data::getTaskById(device.getTaskId()) != nullptr;
    device.showTask(hasTask ? device.getTaskId() : 0);
}

void showLines(const Device& device)
{
    Page::call("deviceInfo_cleanLines");
    for (const auto& [lineId, line] : device.getLines()) {
        line.addToPage(device.isLinesEditable());
    }
}

void showState(const Device& device)
{
    const int id = device.getId();
    device.updateLinesStatus();
    Page::call("wrapperInput_device_setBatteryLevel", id, device.getBatteryLevel());
    Page::call("wrapperInput_device_setHull", id, device.getHull());
    Page::call("wrapperInput_device_setPower", id, device.getPower());
    device.showVolume();
    device.showEqualizer();
}

/// The entries of one list of the unit's memory; the group is shown at the one that plays.
template <class Entry>
void showMemory(const QVector<Entry>& entries, int playingPosition, int groupId)
{
    for (const Entry& entry : entries) {
        entry.addToPage(entry.position == playingPosition ? groupId : 0);
    }
}

} // namespace

void WebView::menu_loadDeviceInfoList()
{
    const SlotLog log("menu_loadDeviceInfoList");
    replayDevices([](const Device& device) { DeviceState::addToPage(device); });
}

void WebView::menu_loadDeviceInfo(int id)
{
    const SlotLog log("deviceList_loadDeviceInfo", QStringLiteral(": %1").arg(id));
    const Device* const known = Data::getDeviceById(id);
    if (!known) {
        return;
    }
    const Device& device = *known;
    Data::shownDeviceId = id;
    Page::call("wrapperInput_device_setId", id);
    showLink(device);
    Page::call("wrapperInput_device_setName", id, device.getName());
    Page::call("wrapperInput_device_setLineJoined", id, device.getLineJoined());
    showZones(device);
    showPlaying(device);
    device.showVersion();
    showLines(device);
    showState(device);
    DeviceState::showRead(device);
    if (device.getStatus() == DeviceIncoming) {
        showDeviceManagement();
    }
    Page::call("deviceInfo_cleanMessageList");
    showMemory(MemoryEntries::getDeviceMessages(id), device.getMessagePlaying(),
               device.getPlaybackGroupId());
    Page::call("deviceInfo_cleanScenarioList");
    showMemory(MemoryEntries::getDeviceScenarios(id), device.getScenarioPlaying(),
               device.getPlaybackGroupId());
}

void WebView::deviceInfo_includeToZone(int deviceId, int zoneId)
{
    const SlotLog log("deviceInfo_includeToZone");
    ZoneMembership::requestInclusion(deviceId, zoneId);
}

void WebView::deviceInfo_excludeFromZone(int deviceId, int zoneId)
{
    const SlotLog log("deviceInfo_excludeFromZone");
    ZoneMembership::requestExclusion(deviceId, zoneId);
}
