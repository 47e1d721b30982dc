#include "protocol/input/ProtocolDevice.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Device.h"
#include "model/DeviceWords.h"
#include "model/ModelList.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/DeviceState.h"
#include "protocol/FieldSetter.h"
#include "protocol/Request.h"
#include "protocol/ZoneMembership.h"

namespace
{

void sendFor(int deviceId, DeviceCommand command)
{
    send(command, {{QStringLiteral("id"), deviceId}});
}

/// The unit that the push is about; nothing, with a log line, without an id.
std::optional<int> readId(const QJsonObject& message, const char* field)
{
    const auto id = Fields::integer(message, field);
    if (!id) {
        Log::dropped(QStringLiteral("Dropped push about a unit: no id"));
    }
    return id;
}

/// Unlike a reply, a push that doesn't know the case shows it as open.
void readHull(FieldSetter<Device>& message)
{
    if (Fields::text(message.message(), "case") == QStringLiteral("unknown")) {
        message.object().setHull(false);
    } else {
        message.word("case", DeviceWords::hull, &Device::setHull);
    }
}

void readPlayback(FieldSetter<Device>& message)
{
    const std::optional<int> category = DeviceState::readPlayback(message);
    if (!category) {
        return;
    }
    Device& device = message.object();
    if (*category == PlaybackCategory::None) {
        device.setPlayback(0);
    }
    device.setPlaybackCategory(*category);
    if (DeviceState::isFromMemory(*category)) {
        sendFor(device.getId(), DeviceCommand::GetPlays); // the reply brings the group
    } else {
        device.setPlaybackGroupId(0);
    }
}

void refreshDevice(Device& device, const QJsonObject& message)
{
    FieldSetter set(device, message, "setState");
    DeviceState::readVersions(set);
    DeviceState::readLink(set);
    DeviceState::readBattery(set);
    DeviceState::readBatteryLevel(set);
    readHull(set);
    DeviceState::mergeLines(set);
    DeviceState::readVolume(set);
    sendFor(device.getId(), DeviceCommand::GetEqualizer);
    readPlayback(set);
    device.setRead();
    if (device.getAvailableMemory() == 0 && device.getStatus() == DeviceOnline) {
        DeviceState::requestMemory(device.getId());
    }
    sendFor(device.getId(), DeviceCommand::GetConfig);
}

void requestRest(int deviceId, bool online)
{
    sendFor(deviceId, DeviceCommand::GetEqualizer);
    sendFor(deviceId, DeviceCommand::GetTitle);
    if (online) {
        DeviceState::requestMemory(deviceId);
        sendFor(deviceId, DeviceCommand::GetEqualizer);
    }
    sendFor(deviceId, DeviceCommand::GetConfig);
    sendFor(deviceId, DeviceCommand::GetState); // its addresses, which the push doesn't tell
}

void addDevice(int id, const QJsonObject& message)
{
    auto device = std::make_unique<Device>();
    device->setId(id);
    FieldSetter set(*device, message, "setState");
    DeviceState::readVersions(set);
    DeviceState::readLink(set);
    DeviceState::readVolume(set);
    DeviceState::addToPage(*device);
    DeviceState::readBatteryLevel(set);
    DeviceState::readBattery(set);
    readHull(set);
    DeviceState::mergeLines(set);
    readPlayback(set);
    device->setRead();
    if (Zone* const root = Data::getZoneById(Zone::serverRoot)) {
        ZoneMembership::include(*root, *device);
    }
    const bool online = device->getStatus() == DeviceOnline;
    Data::deviceList.append(std::move(device));
    requestRest(id, online);
}

} // namespace

void inputProtocolDeviceCommandSetState(const QJsonObject& message)
{
    const std::optional<int> id = readId(message, "deviceId");
    if (!id) {
        return;
    }
    if (Device* const device = Data::getDeviceById(*id)) {
        refreshDevice(*device, message);
    } else {
        addDevice(*id, message);
    }
}

void inputProtocolDeviceCommandReloadChanges(const QJsonObject& message)
{
    const std::optional<int> id = readId(message, "id");
    if (!id) {
        return;
    }
    Page::call("deviceInfo_cleanMessageListByDevice", *id);
    Page::call("deviceInfo_cleanScenarioListByDevice", *id);
    for (const DeviceCommand command : {DeviceCommand::GetState, DeviceCommand::GetConfig,
                                        DeviceCommand::GetTitle, DeviceCommand::GetEqualizer}) {
        sendFor(*id, command);
    }
    const Device* const device = Data::getDeviceById(*id);
    if (device && device->getStatus() != DeviceOffline) {
        if (Data::shownDeviceId == 0 || Data::shownDeviceId == *id) {
            Page::call("deviceInfo_cleanMessageList");
            Page::call("deviceInfo_cleanScenarioList");
        }
        DeviceState::requestMemory(*id);
    }
}

void inputProtocolDeviceCommandStartTranslation(const QJsonObject& message)
{
    if (const std::optional<int> id = readId(message, "deviceId")) {
        sendFor(*id, DeviceCommand::GetPlays);
    }
}
