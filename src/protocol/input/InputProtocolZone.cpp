#include "protocol/input/InputProtocolZone.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Zone.h"
#include "network/Fields.h"
#include "protocol/DeviceState.h"
#include "protocol/Request.h"
#include "protocol/ZoneMembership.h"

namespace
{

Device& addDevice(int id)
{
    auto made = std::make_unique<Device>();
    made->setId(id);
    Device& device = *Data::deviceList.append(std::move(made));
    DeviceState::addToPage(device);
    for (const DeviceCommand command :
         {DeviceCommand::GetTitle, DeviceCommand::GetVolume, DeviceCommand::GetEqualizer,
          DeviceCommand::GetConfig, DeviceCommand::GetState}) {
        send(command, {{QStringLiteral("id"), id}});
    }
    // None of these tells of its link, nor of what it plays. One list does for all that come at
    // once.
    if (DeviceState::unreadCount() == 0) {
        send(DeviceCommand::GetDevices);
    }
    device.setUnread(UnreadPart::Memory);
    return device;
}

} // namespace

void inputProtocolZoneCommandReloadChanges(const QJsonObject&)
{
    send(ZoneCommand::List);
}

void inputProtocolZoneCommandIncludeDevice(const QJsonObject& message)
{
    const auto zoneId = Fields::integer(message, "zoneId");
    const auto deviceId = Fields::integer(message, "deviceId");
    Zone* const zone = zoneId ? Data::getZoneById(*zoneId) : nullptr;
    if (!zone || !deviceId) {
        Log::dropped(QStringLiteral("Ignored inclusion: no unit, or unknown zone"));
        return;
    }
    Device* const known = Data::getDeviceById(*deviceId);
    ZoneMembership::include(*zone, known ? *known : addDevice(*deviceId));
}

void inputProtocolZoneCommandExcludeDevice(const QJsonObject& message)
{
    const auto zoneId = Fields::integer(message, "zoneId");
    const auto deviceId = Fields::integer(message, "deviceId");
    if (!zoneId || !deviceId) {
        Log::dropped(QStringLiteral("Ignored exclusion: no zone or no unit"));
        return;
    }
    if (Zone* const zone = Data::getZoneById(*zoneId)) {
        zone->excludeDevice(*deviceId);
    }
    Device* const device = Data::getDeviceById(*deviceId);
    if (!device) {
        Log::dropped(QStringLiteral("Ignored exclusion: unknown unit %1").arg(*deviceId));
        return;
    }
    device->excludeFromZone(*zoneId);
    if (*zoneId == Zone::everything || device->getZoneList().isEmpty()) {
        ZoneMembership::forget(*deviceId);
    } else {
        ZoneMembership::showExcluded(*zoneId, *deviceId);
    }
}
