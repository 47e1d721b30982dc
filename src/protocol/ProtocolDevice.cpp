#include "protocol/ProtocolDevice.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/DeviceWords.h"
#include "model/ModelList.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/Commands.h"
#include "protocol/DeviceFirmware.h"
#include "protocol/DeviceMemory.h"
#include "protocol/DeviceMemoryEditing.h"
#include "protocol/DeviceService.h"
#include "protocol/DeviceSettings.h"
#include "protocol/DeviceState.h"
#include "protocol/FieldSetter.h"
#include "protocol/Protocols.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"

namespace
{

constexpr CommandRow commands[] = {
    {"getDevices", protocolDeviceCommandGetDevices},
    {"findLostDevices", ignoreReply},
    {"getState", protocolDeviceCommandGetState},
    {"getTitle", protocolDeviceCommandGetTitle},
    {"setTitle", protocolDeviceCommandSetTitle},
    {"getVolume", protocolDeviceCommandGetVolume},
    {"setVolume", protocolDeviceCommandSetVolume},
    {"getChannel", ignoreReply},
    {"setEqualizer", protocolDeviceCommandSetEqualizer},
    {"getEqualizer", protocolDeviceCommandGetEqualizer},
    {"reboot", protocolDeviceCommandReboot},
    {"saveFirmware", protocolDeviceCommandSaveFirmware},
    {"deleteFirmware", ignoreReply},
    {"listFirmware", protocolDeviceCommandListFirmware},
    {"upgradeFirmware", protocolDeviceCommandUpgradeFirmware},
    {"getProgressOfUpgrading", protocolDeviceCommandGetProgressOfUpgrading},
    {"getMemoryStamp", protocolDeviceCommandGetMemoryStamp},
    {"addMessage", protocolDeviceCommandAddMessage},
    {"deleteMessage", protocolDeviceCommandDeleteMessage},
    {"listMessages", protocolDeviceCommandListMessages},
    {"addScenario", protocolDeviceCommandAddScenario},
    {"deleteScenario", protocolDeviceCommandDeleteScenario},
    {"listScenarios", protocolDeviceCommandListScenarios},
    {"revertChanges", protocolDeviceCommandRevertChanges},
    {"getAvailableMemory", protocolDeviceCommandGetAvailableMemory},
    {"uploadImage", protocolDeviceCommandUploadImage},
    {"downloadImage", protocolDeviceCommandDownloadImage},
    {"clearMemory", ignoreReply},
    {"applyToDevice", protocolDeviceCommandApplyToDevice},
    {"getProgressOfApplying", protocolDeviceCommandGetProgressOfApplying},
    {"playMessage", protocolDeviceCommandPlayMessage},
    {"playScenario", protocolDeviceCommandPlayScenario},
    {"getPlays", protocolDeviceCommandGetPlays},
    {"stop", protocolDeviceCommandStop},
    {"getConfig", protocolDeviceCommandGetConfig},
    {"setConfig", protocolDeviceCommandSetConfig},
    {"measureLine", protocolDeviceCommandMeasureLine},
    {"exchangeHardwareAddresses", protocolDeviceCommandExchangeHardwareAddresses},
    {"addTipDevice", protocolDeviceCommandAddTipDevice},
    {"addTipDevices", protocolDeviceCommandAddTipDevices},
    {"removeTipDevice", protocolDeviceCommandRemoveTipDevice},
    {"removeTipDevices", protocolDeviceCommandRemoveTipDevices},
    {"setTipDeviceTitle", protocolDeviceCommandSetTipDeviceTitle},
    {"getDebugInfo", protocolDeviceCommandGetDebugInfo},
};

/// What an element says of a unit's playback. The kinds of category -1 are heard of a new unit
/// only; those of the unit's own memory ask what it is that plays.
void takePlayback(FieldSetter<Device>& element, bool isNew)
{
    Device& device = element.object();
    const std::optional<int> category = DeviceState::readPlayback(element);
    if (!category || (*category == PlaybackCategory::CivilDefence && !isNew)) {
        return;
    }
    if (*category == PlaybackCategory::None) {
        device.setPlayback(0);
    }
    device.setPlaybackCategory(*category);
    if (DeviceState::isFromMemory(*category)) {
        send(DeviceCommand::GetPlays, {{QStringLiteral("id"), device.getId()}});
    }
}

/// Asks for what the list of units doesn't tell of a new one.
void requestRest(const Device& device)
{
    const QJsonObject id{{QStringLiteral("id"), device.getId()}};
    send(DeviceCommand::GetState, id);
    if (device.getStatus() != DeviceOnline) {
        return;
    }
    DeviceState::requestMemory(device.getId());
    send(DeviceCommand::GetEqualizer, id);
    send(DeviceCommand::GetConfig, id);
    if (DeviceState::isFromMemory(device.getPlaybackCategory())) {
        send(DeviceCommand::GetPlays, id);
    }
}

void requestUnread(Device& device)
{
    const UnreadPart unread = device.getUnread();
    device.setUnread(UnreadPart::None);
    if (unread == UnreadPart::Everything) {
        requestRest(device);
    } else if (unread == UnreadPart::Memory && device.getStatus() == DeviceOnline) {
        DeviceState::requestMemory(device.getId());
    }
}

void refreshDevice(Device& device, const QJsonObject& element)
{
    FieldSetter set(device, element, "getDevices");
    set.text("title", &Device::setName);
    DeviceState::readVolume(set);
    const DeviceStatus before = device.getStatus();
    DeviceState::readLink(set);
    if (device.getStatus() != before) {
        device.updateLinesStatus(); // the lines of a unit that isn't online count as at fault
    }
    takePlayback(set, device.getUnread() != UnreadPart::None);
    requestUnread(device);
}

void addDevice(int id, const QJsonObject& element)
{
    auto made = std::make_unique<Device>();
    made->setId(id);
    Log::message(QStringLiteral("Founded new device: ") + QString::number(id));
    FieldSetter set(*made, element, "getDevices");
    DeviceState::readVolume(set);
    DeviceState::readLink(set);
    const Device& device = *Data::deviceList.append(std::move(made));
    DeviceState::addToPage(device);
    set.text("title", &Device::setName);
    takePlayback(set, true);
    requestRest(device);
}

void takeDevice(const QJsonObject& element)
{
    const auto id = Fields::integer(element, "id");
    if (!id) {
        Log::dropped(QStringLiteral("Dropped unit of getDevices: no id"));
    } else if (Device* const known = Data::getDeviceById(*id)) {
        refreshDevice(*known, element);
    } else {
        addDevice(*id, element);
    }
}

/// Units that have come while the list was under way may not be in it. A list that has told of none
/// of the units that were waiting for it won't tell of them the next time either.
void askAgain(int unreadBefore)
{
    const int unread = DeviceState::unreadCount();
    if (unread == 0) {
        return;
    }
    if (unread < unreadBefore) {
        send(DeviceCommand::GetDevices);
        return;
    }
    for (Device& device : Data::deviceList) {
        device.setUnread(UnreadPart::None);
    }
}

} // namespace

void initProtocolDevice(NetworkParser* parser)
{
    registerProtocol<DeviceCommand>(parser, "device", commands);
}

void protocolDeviceCommandGetDevices(const QJsonObject& reply)
{
    const auto elements = Fields::array(reply, "devices");
    if (!succeeded(reply) || !elements) {
        Log::dropped(QStringLiteral("Ignored getDevices: no list of units"));
        return;
    }
    const int unread = DeviceState::unreadCount();
    for (const QJsonValue& value : *elements) {
        takeDevice(value.toObject());
    }
    askAgain(unread);
}

void protocolDeviceCommandGetState(const QJsonObject& reply)
{
    auto id = Fields::integer(reply, "id");
    Log::message(QStringLiteral("Get device %1 status").arg(id.value_or(0)));
    id = id ? id : Fields::integer(request(reply), "id"); // a refusal may name it there alone
    Device* const device = id ? Data::getDeviceById(*id) : nullptr;
    if (!device) {
        return;
    }
    device->setRead();
    if (!succeeded(reply)) {
        return;
    }
    FieldSetter set(*device, reply, "getState");
    DeviceState::readVersions(set);
    DeviceState::readBattery(set);
    DeviceState::readBatteryLevel(set);
    set.word("case", DeviceWords::hull, &Device::setHull);
    DeviceState::mergeLines(set);
    set.text("ip", &Device::setIp);
    set.text("mac", &Device::setMac);
}

void protocolDeviceCommandGetTitle(const QJsonObject& reply)
{
    DeviceState::readReply(reply, reply, "getTitle",
                           [](FieldSetter<Device>& set) { set.text("title", &Device::setName); });
}

void protocolDeviceCommandSetTitle(const QJsonObject& reply)
{
    DeviceState::readReply(reply, reply, "setTitle", [](FieldSetter<Device>& set) {
        set.text("title", &Device::setName);
        Page::call("saveDeviceConfig");
    });
    if (response(reply) == QLatin1String("titleExists")) {
        Data::deviceSave = false;
        Page::call("modalAdminTitleExists");
    }
}
