#include "protocol/ZoneMembership.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/ModelList.h"
#include "page/ScriptCall.h"
#include "protocol/Request.h"

namespace ZoneMembership
{

namespace
{

/// The zones whose lists hold a unit.
struct Holders {
    int count = 0;
    bool root = false; ///< the server's root is one of them
};

Holders holdersOf(int deviceId)
{
    Holders result;
    for (const Zone& zone : Data::zoneList) {
        if (zone.getDeviceList().contains(deviceId)) {
            ++result.count;
            result.root = result.root || zone.getId() == Zone::serverRoot;
        }
    }
    Log::message(QStringLiteral("Device inNewZone %1").arg(result.root ? 1 : 0));
    Log::message(QStringLiteral("Device in zones %1").arg(result.count));
    return result;
}

} // namespace

void include(Zone& zone, Device& device)
{
    device.includeToZone(zone.getId());
    zone.includeDevice(device.getId());
    showIncluded(zone.getId(), device.getId());
}

void forget(int deviceId)
{
    for (Zone& zone : Data::zoneList) {
        zone.excludeDevice(deviceId);
    }
    Data::deviceList.remove(Data::getDeviceById(deviceId));
    Page::call("wrapperInput_device_delete", deviceId);
}

void showIncluded(int zoneId, int deviceId)
{
    Page::call("wrapperInput_zone_includeDevice", zoneId, deviceId);
}

void showExcluded(int zoneId, int deviceId)
{
    Page::call("wrapperInput_zone_excludeDevice", zoneId, deviceId);
}

void request(ZoneCommand command, int deviceId, int zoneId)
{
    send(command, {{QStringLiteral("deviceId"), deviceId}, {QStringLiteral("zoneId"), zoneId}});
}

void requestInclusion(int deviceId, int zoneId)
{
    const Holders holders = holdersOf(deviceId);
    request(ZoneCommand::IncludeDevice, deviceId, zoneId);
    if (holders.count == 1 && holders.root) {
        request(ZoneCommand::ExcludeDevice, deviceId, Zone::serverRoot);
    }
}

void requestExclusion(int deviceId, int zoneId)
{
    const Holders holders = holdersOf(deviceId);
    if (holders.count == 1 && !holders.root) {
        request(ZoneCommand::IncludeDevice, deviceId, Zone::serverRoot);
    }
    request(ZoneCommand::ExcludeDevice, deviceId, zoneId);
}

} // namespace ZoneMembership
