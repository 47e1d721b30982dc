#include "protocol/ZoneList.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Zone.h"
#include "model/ZoneWords.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/CurrentRole.h"
#include "protocol/DeviceState.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"
#include "protocol/ZoneMembership.h"

#include <QHash>
#include <QPair>
#include <QSet>
#include <QVector>

namespace
{

/// One zone of the reply. Fields that can't be read are left as they are in the mirror.
struct ZoneEntry {
    int id = 0;
    std::optional<QString> title;
    std::optional<int> type;
    std::optional<int> parent;
};

/// The zones of the reply, in its order, and their places by parent.
struct ZoneEntries {
    QVector<ZoneEntry> list;
    QHash<int, QVector<int>> byParent;
    QSet<int> ids;
    int count = 0; ///< elements of the reply, readable or not
};

/// One unit in one zone.
struct Membership {
    int deviceId = 0;
    int zoneId = 0;
};

std::optional<ZoneEntry> readZone(const QJsonObject& element)
{
    const auto id = Fields::integer(element, "id");
    if (!id || *id == Zone::everything) {
        return std::nullopt;
    }
    const auto type = Fields::text(element, "type");
    return ZoneEntry{*id, Fields::text(element, "title"),
                     type ? valueOfWord(ZoneWords::type, *type) : std::nullopt,
                     Fields::integer(element, "parentId")};
}

ZoneEntries readZones(const QJsonArray& elements)
{
    ZoneEntries result;
    result.count = elements.size();
    for (const QJsonValue& element : elements) {
        const auto entry = readZone(element.toObject());
        if (!entry) {
            Log::dropped(QStringLiteral("Dropped zone of the list: no id"));
            continue;
        }
        if (!entry->title || !entry->type || !entry->parent) {
            Log::dropped(QStringLiteral("Ignored fields of zone %1").arg(entry->id));
        }
        if (entry->parent) {
            result.byParent[*entry->parent].append(result.list.size());
        }
        result.ids.insert(entry->id);
        result.list.append(*entry);
    }
    return result;
}

void update(Zone& zone, const ZoneEntry& entry)
{
    if (entry.title) {
        zone.setName(*entry.title);
    }
    if (entry.type) {
        zone.setType(*entry.type);
    }
    if (entry.parent) {
        zone.setParentZone(*entry.parent);
    }
}

Zone* addZone(const ZoneEntry& entry)
{
    auto zone = std::make_unique<Zone>();
    zone->setId(entry.id);
    update(*zone, entry);
    return Data::zoneList.append(std::move(zone));
}

/// A zone of the reply that the walk has still to visit.
struct Visit {
    Zone* parent;
    int place;
};

void pushChildren(QVector<Visit>& visits, Zone& parent, const ZoneEntries& entries)
{
    const QVector<int> places = entries.byParent.value(parent.getId());
    for (auto place = places.rbegin(); place != places.rend(); ++place) {
        visits.append({&parent, *place});
    }
}

/// Walks down the reply's tree, a zone before its children; `seen` holds what the walk has met, so
/// that it ends on a cycle. What is still to visit is kept here and not on the stack: no reply is
/// too deep.
void parseChildren(Zone& top, const ZoneEntries& entries)
{
    QSet<int> seen{top.getId()};
    QVector<Visit> visits;
    pushChildren(visits, top, entries);
    while (!visits.isEmpty()) {
        const Visit visit = visits.takeLast();
        const ZoneEntry& entry = entries.list.at(visit.place);
        if (seen.contains(entry.id)) {
            continue;
        }
        seen.insert(entry.id);
        Zone* child = Data::getZoneById(entry.id);
        if (child) {
            update(*child, entry);
        } else {
            child = addZone(entry);
        }
        if (!visit.parent->getSubZoneList().contains(entry.id)) {
            visit.parent->addSubZone(entry.id);
        }
        pushChildren(visits, *child, entries);
    }
}

void removeZones(const ZoneEntries& entries)
{
    Log::message("Founded zone remove");
    QVector<int> gone;
    for (const Zone& zone : Data::zoneList) {
        if (zone.getId() != Zone::everything && !entries.ids.contains(zone.getId())) {
            gone.append(zone.getId());
        }
    }
    for (const int id : gone) {
        Log::message(QStringLiteral("Deleted zone: ") + QString::number(id));
        Page::call("wrapperInput_zone_delete", id);
        Data::zoneList.remove(Data::getZoneById(id));
    }
}

void editZones(const ZoneEntries& entries)
{
    Log::message("Founded zone edit");
    for (const ZoneEntry& entry : entries.list) {
        if (Zone* const zone = Data::getZoneById(entry.id)) {
            update(*zone, entry);
            zone->addToPage();
            parseChildren(*zone, entries);
        }
    }
}

void addZones(const ZoneEntries& entries)
{
    Log::message("Founded new zone");
    for (const ZoneEntry& entry : entries.list) {
        if (!Data::getZoneById(entry.id)) {
            Zone* const zone = addZone(entry);
            zone->addToPage(zone->getNamedParent());
            parseChildren(*zone, entries);
        }
    }
    // A zone that came before its parent has found no place on the page yet, nor has one whose
    // parent is hidden from the user.
    for (const Zone& zone : Data::zoneList) {
        if (zone.getNamedParent() != Zone::everything) {
            zone.addToPage();
        }
    }
}

/// The sizes tell what has happened, as the server reports one kind of change at a time.
void takeZones(const ZoneEntries& entries)
{
    const int known = Data::zoneList.size() - (Data::getZoneById(Zone::everything) ? 1 : 0);
    if (entries.count < known) {
        removeZones(entries);
    } else if (entries.count == known) {
        editZones(entries);
    } else {
        addZones(entries);
    }
}

QVector<Membership> readMemberships(const QJsonArray& elements)
{
    QVector<Membership> result;
    for (const QJsonValue& value : elements) {
        const QJsonObject element = value.toObject();
        const auto deviceId = Fields::integer(element, "id");
        const auto zoneId = Fields::integer(element, "parentId");
        if (deviceId && zoneId) {
            result.append({*deviceId, *zoneId});
        } else {
            Log::dropped(QStringLiteral("Dropped unit of the zones' list: no id"));
        }
    }
    return result;
}

void removeDevices(const QVector<Membership>& memberships)
{
    Log::message("Founded device remove");
    QSet<int> named;
    for (const Membership& membership : memberships) {
        named.insert(membership.deviceId);
    }
    QVector<int> gone;
    for (const Device& device : Data::deviceList) {
        if (!named.contains(device.getId())) {
            gone.append(device.getId());
        }
    }
    for (const int id : gone) {
        Log::message(QStringLiteral("Deleted device: ") + QString::number(id));
        ZoneMembership::forget(id);
    }
}

void addDevices(const QVector<Membership>& memberships)
{
    Log::message("Founded device add");
    bool added = false;
    for (const Membership& membership : memberships) {
        if (Data::getDeviceById(membership.deviceId)) {
            continue;
        }
        auto device = std::make_unique<Device>();
        device->setId(membership.deviceId);
        device->setUnread(UnreadPart::Everything);
        DeviceState::addToPage(*Data::deviceList.append(std::move(device)));
        added = true;
    }
    if (added) {
        send(DeviceCommand::GetDevices); // the reply fills them
    }
}

/// Takes every unit out of all zones, on the page only out of those that the list doesn't put it
/// back into.
void clearMembership(const QVector<Membership>& memberships)
{
    QSet<QPair<int, int>> stays;
    for (const Membership& membership : memberships) {
        stays.insert({membership.deviceId, membership.zoneId});
    }
    for (Device& device : Data::deviceList) {
        for (const int zoneId : device.getZoneList()) {
            if (!stays.contains({device.getId(), zoneId})) {
                ZoneMembership::showExcluded(zoneId, device.getId());
            }
        }
        device.clearZoneList();
    }
    for (Zone& zone : Data::zoneList) {
        zone.clearDeviceList();
    }
}

void rebuildMembership(const QVector<Membership>& memberships)
{
    clearMembership(memberships);
    for (const Membership& membership : memberships) {
        Zone* const zone = Data::getZoneById(membership.zoneId);
        Device* const device = Data::getDeviceById(membership.deviceId);
        if (zone && device) {
            ZoneMembership::include(*zone, *device);
        } else {
            Log::dropped(QStringLiteral("Skipped unit %1 in zone %2: one is unknown")
                             .arg(membership.deviceId)
                             .arg(membership.zoneId));
        }
    }
}

void takeDevices(const QJsonArray& elements)
{
    const QVector<Membership> memberships = readMemberships(elements);
    if (elements.size() < Data::deviceList.size()) {
        removeDevices(memberships);
    } else if (elements.size() > Data::deviceList.size()) {
        addDevices(memberships);
    }
    rebuildMembership(memberships);
}

} // namespace

void zoneParseChilds(Zone* parent, const QJsonObject& reply)
{
    parseChildren(*parent, readZones(Fields::array(reply, "zones").value_or(QJsonArray())));
}

void protocolZoneCommandList(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        return;
    }
    if (const auto zones = Fields::array(reply, "zones")) {
        takeZones(readZones(*zones));
    } else {
        Log::dropped(QStringLiteral("Ignored zones: no list"));
    }
    showZoneManagement();
    if (const auto devices = Fields::array(reply, "devices")) {
        takeDevices(*devices);
    } else {
        Log::dropped(QStringLiteral("Ignored units of the zones: no list"));
    }
}
