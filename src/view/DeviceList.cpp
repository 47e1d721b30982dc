#include "view/WebView.h"

#include "app/Data.h"
#include "log/LogSettings.h"
#include "model/Device.h"
#include "model/Library.h"
#include "model/ModelList.h"
#include "page/ScriptCall.h"
#include "protocol/DeviceState.h"
#include "protocol/Request.h"
#include "protocol/ZoneMembership.h"
#include "view/EqualizerLevels.h"
#include "view/ScriptPipe.h"
#include "view/SlotLog.h"

namespace
{

/// What every list of units shows of one behind its entry: the category, then `showMore`'s part,
/// the task and the zones.
template <class ShowMore> void showDetails(const Device& device, ShowMore showMore)
{
    const int id = device.getId();
    Page::call("wrapperInput_device_setPlaybackCategory", id, device.getPlaybackCategory());
    showMore();
    DeviceState::showRead(device);
    if (device.getPlayback() > 0 && Data::getTaskById(device.getTaskId())) {
        device.showTask(device.getTaskId());
    }
    for (const int zoneId : device.getZoneList()) {
        ZoneMembership::showIncluded(zoneId, id);
    }
}

void showHealth(const Device& device)
{
    const int id = device.getId();
    Page::call("wrapperInput_device_setHull", id, device.getHull());
    Page::call("wrapperInput_device_setPower", id, device.getPower());
    Page::call("wrapperInput_device_setBatteryLevel", id, device.getBatteryLevel());
    Page::call("wrapperInput_device_setBattery", id, device.getBatteryStatus());
    device.updateLinesStatus();
}

} // namespace

void WebView::replayDevices(const std::function<void(const Device&)>& show)
{
    QVector<int> ids;
    for (const Device& device : Data::deviceList) {
        ids.append(device.getId());
    }
    scripts.replay("units", std::move(ids), [show](int id) {
        if (const Device* const device = Data::getDeviceById(id)) {
            show(*device);
        }
    });
}

void WebView::deviceList_listLoad()
{
    const SlotLog log("deviceList_listLoad", QStringLiteral("()"));
    replayDevices([](const Device& device) {
        DeviceState::addToPage(device);
        showDetails(device, [&] { showHealth(device); });
    });
}

void WebView::deviceList_listSelectLoad()
{
    const SlotLog log("deviceList_listSelectLoad", QStringLiteral("()"));
    replayDevices([](const Device& device) {
        DeviceState::addToPage(device, Library::getPlaybackClass(device.getPlayback()));
        showDetails(device, [] {});
    });
}

void WebView::deviceList_setDeviceVolume(int id, int volume)
{
    const SlotLog log("deviceList_setDeviceVolume", {}, LogLevel::DeviceControl);
    send(DeviceCommand::SetVolume,
         {{QStringLiteral("id"), id}, {QStringLiteral("volume"), volume}});
}

void WebView::deviceList_playAudio(int id, int position, int type)
{
    const SlotLog log("deviceList_playAudio");
    if (type == 0 || type == 1) {
        send(type == 0 ? DeviceCommand::PlayMessage : DeviceCommand::PlayScenario,
             {{QStringLiteral("id"), id}, {QStringLiteral("position"), position}});
    }
}

void WebView::deviceList_stopAudio(int id)
{
    const SlotLog log("deviceList_stopAudio");
    if (const Device* const device = Data::getDeviceById(id)) {
        send(DeviceCommand::Stop,
             {{QStringLiteral("id"), id},
              {QStringLiteral("playbackGroupId"), device->getPlaybackGroupId()}});
    }
}

void WebView::deviceInfo_setDeviceEqualizer(int id, const QVariantList& levels)
{
    const SlotLog log("deviceInfo_setDeviceEqualizer", {}, LogLevel::DeviceControl);
    const Device* const device = Data::getDeviceById(id);
    // Bass and treble of a unit without ten bands have no switch: setting them turns them on.
    const bool enabled = device && (!device->hasTenBands() || device->isEqualizerEnabled());
    sendEqualizer(id, enabled, levels);
}
