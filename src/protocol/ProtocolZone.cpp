#include "protocol/ProtocolZone.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Role.h"
#include "model/Zone.h"
#include "model/ZoneWords.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/Commands.h"
#include "protocol/FieldSetter.h"
#include "protocol/Forbidden.h"
#include "protocol/Protocols.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"
#include "protocol/ZoneList.h"
#include "protocol/ZoneMembership.h"

namespace
{

constexpr CommandRow commands[] = {
    {"add", protocolZoneCommandAdd},
    {"edit", protocolZoneCommandEdit},
    {"delete", protocolZoneCommandDelete},
    {"list", protocolZoneCommandList},
    {"includeDevice", protocolZoneCommandIncludeDevice},
    {"excludeDevice", protocolZoneCommandExcludeDevice},
};

constexpr Refusal deleteRefusals[] = {
    {"nestedZones", "modalAdminZoneDeleteErrorSubZoneShow"},
    {"includedInPresets", "modalAdminZoneDeleteErrorPresetUsedShow"},
    {"includedInTasks", "modalAdminZoneDeleteErrorTaskUsedShow"},
    {"busyPlaying", "modalAdminZoneDeleteErrorPlaybackUsedShow"},
};

/// Who uses a unit that may therefore not leave its zone, or the mirror.
struct UseRefusal {
    const char* response;
    const char* deleteDialog;
    const char* excludeDialog;
};

constexpr UseRefusal useRefusals[] = {
    {"forbiddenDeviceInPreset", "modalAdminDeviceDeleteErrorPreset",
     "modalAdminDeviceUsedInPreset"},
    {"forbiddenDeviceInTask", "modalAdminDeviceDeleteErrorTask", "modalAdminDeviceUsedInTask"},
};

/// The zone and the unit that a request named.
struct Target {
    int zoneId = 0;
    int deviceId = 0;
};

std::optional<Target> readTarget(const QJsonObject& reply)
{
    const QJsonObject asked = request(reply);
    const auto zoneId = Fields::integer(asked, "zoneId");
    const auto deviceId = Fields::integer(asked, "deviceId");
    return zoneId && deviceId ? std::optional(Target{*zoneId, *deviceId}) : std::nullopt;
}

/// The zone that the request was about; null, with a log line, if it has gone.
Zone* requestedZone(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "id");
    Zone* const zone = id ? Data::getZoneById(*id) : nullptr;
    if (!zone) {
        Log::dropped(QStringLiteral("Ignored reply: unknown zone %1").arg(id.value_or(0)));
    }
    return zone;
}

void deleteZone(int zoneId)
{
    Page::call("wrapperInput_zone_delete", zoneId);
    Data::zoneList.remove(Data::getZoneById(zoneId));
    for (Role& role : Data::roleList) {
        role.zones.removeAll(zoneId);
    }
}

/// Each unit that leaves may be the last one, so the deletion is asked for behind each. The answer
/// to the last one begins another round, unless none has left: the server would say so for ever.
void emptyAndDelete(Zone& zone)
{
    if (!zone.beginEmptying()) {
        return;
    }
    for (const int deviceId : zone.getDeviceList()) {
        ZoneMembership::requestExclusion(deviceId, zone.getId());
        send(ZoneCommand::Delete, {{QStringLiteral("id"), zone.getId()}});
    }
}

void excluded(const Target& target, bool recursively)
{
    ZoneMembership::showExcluded(target.zoneId, target.deviceId);
    if (Zone* const zone = Data::getZoneById(target.zoneId)) {
        zone->excludeDevice(target.deviceId);
    }
    if (Device* const device = Data::getDeviceById(target.deviceId)) {
        device->excludeFromZone(target.zoneId);
    }
    if (recursively) {
        ZoneMembership::forget(target.deviceId);
    }
}

bool isInZoneAndEverything(int deviceId, int zoneId)
{
    const Device* const device = Data::getDeviceById(deviceId);
    return device && device->getZoneList().size() == 2 && device->getZoneList().contains(zoneId) &&
           device->getZoneList().contains(Zone::everything);
}

/// Puts the page back, which takes a change ahead of its answer, as it was.
void showMembership(const Target& target)
{
    const Device* const device = Data::getDeviceById(target.deviceId);
    if (device && device->getZoneList().contains(target.zoneId)) {
        ZoneMembership::showIncluded(target.zoneId, target.deviceId);
    } else {
        ZoneMembership::showExcluded(target.zoneId, target.deviceId);
    }
}

/// Puts the page back as it was, and says who uses the unit.
void refusedByUse(const UseRefusal& refusal, const Target& target, bool recursively)
{
    if (recursively) {
        Page::call(refusal.deleteDialog);
    } else if (target.zoneId > Zone::everything) {
        if (isInZoneAndEverything(target.deviceId, target.zoneId)) {
            ZoneMembership::showExcluded(Zone::everything, target.deviceId);
        }
        ZoneMembership::showIncluded(target.zoneId, target.deviceId);
        Page::call(refusal.excludeDialog);
    }
}

} // namespace

void initProtocolZone(NetworkParser* parser)
{
    registerProtocol<ZoneCommand>(parser, "zone", commands);
}

void protocolZoneCommandAdd(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        return;
    }
    const auto id = Fields::integer(reply, "newId");
    if (!id || Data::getZoneById(*id)) {
        Log::dropped(QStringLiteral("Ignored new zone: no id, or known already"));
        return;
    }
    auto made = std::make_unique<Zone>();
    made->setId(*id);
    Zone& zone = *Data::zoneList.append(std::move(made));
    const QJsonObject asked = request(reply);
    FieldSetter set(zone, asked, "zone add");
    set.text("title", &Zone::setName);
    set.integer("parentId", &Zone::setParentZone);
    set.word("type", ZoneWords::type, &Zone::setType);
    zone.addToPage();
    Page::call("modalAdminAddZoneHide");
}

void protocolZoneCommandEdit(const QJsonObject& reply)
{
    if (response(reply) == QLatin1String("error")) {
        Page::call("modalAdminZoneErrorShow");
    }
    Zone* const zone = succeeded(reply) ? requestedZone(reply) : nullptr;
    if (!zone) {
        return;
    }
    const QJsonObject asked = request(reply);
    FieldSetter set(*zone, asked, "zone edit");
    set.text("title", &Zone::setName);
    if (asked.contains(QLatin1String("type"))) {
        set.word("type", ZoneWords::type, &Zone::setType);
    }
    Page::call("modalAdminZoneSavedShow");
}

void protocolZoneCommandDelete(const QJsonObject& reply)
{
    showRefusal(reply, deleteRefusals);
    Zone* const zone = requestedZone(reply);
    if (!zone) {
        return;
    }
    if (succeeded(reply)) {
        deleteZone(zone->getId());
    } else if (zone->endsEmptying() && response(reply) == QLatin1String("nestedDevices")) {
        emptyAndDelete(*zone);
    }
}

void protocolZoneCommandIncludeDevice(const QJsonObject& reply)
{
    const auto target = readTarget(reply);
    if (!target) {
        return;
    }
    if (response(reply) == QLatin1String("onePhysical")) {
        // The page took the change ahead of the answer.
        ZoneMembership::showExcluded(target->zoneId, target->deviceId);
        Page::call("modalDeviceZoneIncludeError");
    } else if (Forbidden::isAnswer(reply)) {
        showMembership(*target);
    }
    if (!succeeded(reply)) {
        return;
    }
    Zone* const zone = Data::getZoneById(target->zoneId);
    Device* const device = Data::getDeviceById(target->deviceId);
    if (zone && device) {
        ZoneMembership::include(*zone, *device);
    } else {
        Log::dropped(QStringLiteral("Ignored inclusion: the zone or the unit has gone"));
    }
}

void protocolZoneCommandExcludeDevice(const QJsonObject& reply)
{
    const auto target = readTarget(reply);
    if (!target) {
        return;
    }
    const bool recursively = Fields::boolean(request(reply), "recursively").value_or(false);
    if (succeeded(reply)) {
        excluded(*target, recursively);
    } else if (response(reply) == QLatin1String("hasPlayback")) {
        if (target->zoneId > Zone::everything) {
            ZoneMembership::showIncluded(target->zoneId, target->deviceId);
        }
        Page::call("modalDeviceZoneExcludePlaybackError");
    } else if (Forbidden::isAnswer(reply)) {
        showMembership(*target);
    }
    for (const UseRefusal& refusal : useRefusals) {
        if (response(reply) == QLatin1String(refusal.response)) {
            refusedByUse(refusal, *target, recursively);
        }
    }
}
