#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Zone.h"
#include "page/ScriptCall.h"
#include "protocol/CurrentRole.h"
#include "protocol/Request.h"
#include "view/ScriptPipe.h"
#include "view/SlotLog.h"

namespace
{

void logZone(const Zone& zone)
{
    Log::message(QStringLiteral("Load zone: ") + zone.getName(), LogLevel::ZoneSettings);
}

/// The zones that the administration lists: all but the console's own and the server's root.
QVector<int> administeredZones()
{
    QVector<int> ids;
    for (int index = 1; index < Data::zoneList.size(); ++index) {
        const int id = Data::zoneList.at(index)->getId();
        if (id != Zone::serverRoot) {
            ids.append(id);
        }
    }
    return ids;
}

} // namespace

void WebView::admin_loadZoneList(bool withParentZone)
{
    const SlotLog log("admin_loadZoneList", QStringLiteral(": %1").arg(withParentZone),
                      LogLevel::ZoneSettings);
    Page::call("clearAdminZoneList");
    if (Data::zoneList.size() < 2) {
        return;
    }
    const QVector<int> ids = administeredZones();
    scripts.replay("zones", ids, [](int id) {
        if (const Zone* const zone = Data::getZoneById(id)) {
            logZone(*zone);
            zone->addToPage();
        }
    });
    admin_selectZone(ids.isEmpty() ? Zone::serverRoot : ids.first());
}

void WebView::admin_loadZoneListForModal(const QString& type)
{
    const SlotLog log("admin_loadZoneListForModal", QStringLiteral(": ") + type,
                      LogLevel::ZoneSettings);
    Page::call("modalClearZoneList");
    const bool wantsLogic = type == QLatin1String("logic");
    for (const Zone& zone : Data::zoneList) {
        if (zone.isLogic() == wantsLogic || zone.getId() == Zone::everything) {
            logZone(zone);
            Page::call("wrapperInput_zone_modalAdd", zone.getId(), zone.getParentZone(),
                       zone.getName(), zone.getType(), zone.getSubZoneList().size(),
                       zone.getDeviceList().size());
        }
    }
}

void WebView::admin_selectZone(int id)
{
    const SlotLog log("admin_selectZone", QStringLiteral(": %1").arg(id), LogLevel::ZoneSettings);
    if (const Zone* const zone = Data::getZoneById(id)) {
        Page::call("wrapperInput_zone_select", id, zone->getName(), zone->getParentName(),
                   zone->getType());
    }
}

void WebView::admin_addZone(const QString& title, int parentId, const QString& type)
{
    const SlotLog log("admin_addZone", QStringLiteral(": %1, %2, ").arg(parentId).arg(type) + title,
                      LogLevel::ZoneSettings);
    send(ZoneCommand::Add, {{QStringLiteral("parentId"), parentId},
                            {QStringLiteral("title"), title},
                            {QStringLiteral("type"), type}});
}

void WebView::admin_editZone(int id, const QString& name)
{
    const SlotLog log("admin_editZone", QStringLiteral(": %1, ").arg(id) + name,
                      LogLevel::ZoneSettings);
    Log::message(QStringLiteral("Save zone: ") + name, LogLevel::ZoneSettings);
    send(ZoneCommand::Edit, {{QStringLiteral("id"), id}, {QStringLiteral("title"), name}});
}

void WebView::admin_deleteZone(int id)
{
    const SlotLog log("admin_deleteZone", QStringLiteral(": %1").arg(id), LogLevel::ZoneSettings);
    send(ZoneCommand::Delete, {{QStringLiteral("id"), id}});
}

void WebView::admin_loadDeviceForZonesList()
{
    const SlotLog log("admin_loadDeviceForZonesList", {}, LogLevel::ZoneSettings);
    const bool zoneManagement = mayManageZones();
    replayDevices([zoneManagement](const Device& device) {
        Page::call("wrapperInput_device_add", device.getId(), device.getName(), device.getStatus(),
                   0, 0, zoneManagement);
        for (const int zoneId : device.getZoneList()) {
            Page::call("wrapperInput_zone_includeDevice", zoneId, device.getId());
        }
    });
}
