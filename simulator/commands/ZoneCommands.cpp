#include "simulator/commands/CommandTable.h"
#include "simulator/commands/Definitions.h"
#include "simulator/state/Topology.h"

#include <QJsonArray>

#include <algorithm>

namespace simulator
{

namespace
{

QJsonObject list(Context& context, const QJsonObject&)
{
    const Access access = context.access();
    QJsonArray zones;
    QJsonArray devices;
    for (const Zone& zone : context.installation().zones) {
        if (!access.sees(zone)) {
            continue;
        }
        zones.append(QJsonObject{{"id", zone.id},
                                 {"title", zone.title},
                                 {"type", zone.physical ? "physical" : "logic"},
                                 {"parentId", zone.parent}});
        for (int unit : zone.units) {
            devices.append(QJsonObject{{"id", unit}, {"parentId", zone.id}});
        }
    }
    return success({{"zones", zones}, {"devices", devices}});
}

/// The zone that a request names, null when there is none that the asker sees.
Zone* zoneIn(Context& context, int id)
{
    Zone* zone = context.installation().zone(id);
    return zone && context.access().sees(*zone) ? zone : nullptr;
}

QJsonObject add(Context& context, const QJsonObject& request)
{
    Zone zone;
    zone.title = request.value("title").toString();
    zone.parent = request.value("parentId").toInt();
    zone.physical = request.value("type") == "physical";
    if (!isTitle(zone.title) || (!zone.physical && request.value("type") != "logic") ||
        (zone.parent != 0 && !zoneIn(context, zone.parent))) {
        return refusal("error");
    }
    zone.id = nextId(context.installation().zones);
    context.installation().zones.append(zone);
    // Who makes a zone sees it.
    Role& own = *context.installation().role(context.role()->name);
    own.zoneIds.append(zone.id);
    context.pushToOthers(reloadPush("zone"));
    return success({{"newId", zone.id}});
}

QJsonObject edit(Context& context, const QJsonObject& request)
{
    Zone* zone = zoneIn(context, request.value("id").toInt());
    const QString title = request.value("title").toString();
    if (!zone || zone->id == rootZone || !isTitle(title)) {
        return refusal("error");
    }
    zone->title = title;
    context.pushToOthers(reloadPush("zone"));
    return success();
}

QJsonObject remove(Context& context, const QJsonObject& request)
{
    const int id = request.value("id").toInt();
    Installation& installation = context.installation();
    const QString objection =
        zoneIn(context, id) ? objectionToDeletingZone(installation, id) : "error";
    if (!objection.isEmpty()) {
        return {{"response", objection}};
    }
    installation.zones.erase(std::remove_if(installation.zones.begin(), installation.zones.end(),
                                            [id](const Zone& zone) { return zone.id == id; }),
                             installation.zones.end());
    for (Role& role : installation.roles) {
        role.zoneIds.removeAll(id);
    }
    context.pushToOthers(reloadPush("zone"));
    return success();
}

QJsonObject includeDevice(Context& context, const QJsonObject& request)
{
    const int unit = request.value("deviceId").toInt();
    const int zone = request.value("zoneId").toInt();
    const QString objection =
        zoneIn(context, zone) ? includeUnit(context.installation(), unit, zone) : "error";
    if (!objection.isEmpty()) {
        return {{"response", objection}};
    }
    context.pushToOthers(membershipPush("includeDevice", zone, unit));
    return success();
}

QJsonObject removeDevice(Context& context, int unit, bool force)
{
    const QString objection = objectionToDeletingUnit(context.installation(), unit, force);
    if (!objection.isEmpty()) {
        return {{"response", objection}};
    }
    context.installation().removeUnit(unit);
    context.pushToOthers(membershipPush("excludeDevice", 0, unit));
    return success();
}

QJsonObject excludeDevice(Context& context, const QJsonObject& request)
{
    const int unit = request.value("deviceId").toInt();
    const int zone = request.value("zoneId").toInt();
    if (request.value("recursively").toBool()) {
        return removeDevice(context, unit, request.value("force").toBool());
    }
    const QString objection =
        zoneIn(context, zone) ? excludeUnit(context.installation(), unit, zone) : "notIncluded";
    if (!objection.isEmpty()) {
        return {{"response", objection}};
    }
    if (context.installation().zonesOf(unit).isEmpty()) {
        includeUnit(context.installation(), unit, rootZone);
        context.push(membershipPush("includeDevice", rootZone, unit));
    }
    context.pushToOthers(membershipPush("excludeDevice", zone, unit));
    return success();
}

} // namespace

Commands zoneCommands()
{
    const QLatin1String zone("zone");
    return {
        {zone, QLatin1String("list"), {Right::Session}, list},
        {zone, QLatin1String("add"), {Right::Zones}, add},
        {zone, QLatin1String("edit"), {Right::Zones}, edit},
        {zone, QLatin1String("delete"), {Right::Zones}, remove},
        {zone, QLatin1String("includeDevice"), {Right::Zones}, includeDevice},
        {zone, QLatin1String("excludeDevice"), {Right::Zones}, excludeDevice},
    };
}

} // namespace simulator
