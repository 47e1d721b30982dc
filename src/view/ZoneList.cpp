#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/ModelList.h"
#include "model/Zone.h"
#include "protocol/CurrentRole.h"
#include "protocol/Request.h"
#include "protocol/ZoneMembership.h"
#include "view/SlotLog.h"

#include <QHash>
#include <QVector>

#include <algorithm>

namespace
{

using ZonesByParent = QHash<int, QVector<const Zone*>>;

/// All zones but the console's own, in the order of the mirror.
ZonesByParent zonesByParent()
{
    ZonesByParent result;
    for (const Zone& zone : Data::zoneList) {
        if (zone.getId() != Zone::everything) {
            result[zone.getParentZone()].append(&zone);
        }
    }
    return result;
}

} // namespace

void WebView::menu_zoneLoadList()
{
    const SlotLog log("menu_zoneLoadList");
    menu_subZoneLoad(Zone::everything);
}

void WebView::menu_subZoneLoad(int parentId)
{
    // Each zone is taken out of the index with its siblings, so that a cycle ends the walk.
    ZonesByParent waiting = zonesByParent();
    QVector<const Zone*> next = waiting.take(parentId);
    std::reverse(next.begin(), next.end());
    while (!next.isEmpty()) {
        const Zone& zone = *next.takeLast();
        Log::message(QStringLiteral("Load zone: %1 - %2")
                         .arg(QString::number(zone.getId()), zone.getName()));
        zone.addToPage();
        QVector<const Zone*> children = waiting.take(zone.getId());
        std::reverse(children.begin(), children.end());
        next += children;
    }
}

void WebView::deviceInfo_loadZoneList()
{
    const SlotLog log("deviceInfo_loadZoneList");
    for (const Zone& zone : Data::zoneList) {
        if (zone.getId() > Zone::serverRoot) {
            zone.addToPage();
        }
    }
    showZoneManagement();
}

void WebView::zone_includeDevice(int zoneId, int deviceId)
{
    const SlotLog log("zone_includeDevice", {}, LogLevel::ZoneSettings);
    ZoneMembership::request(ZoneCommand::IncludeDevice, deviceId, zoneId);
}

void WebView::zone_excludeDevice(int zoneId, int deviceId)
{
    const SlotLog log("zone_excludeDevice", {}, LogLevel::ZoneSettings);
    ZoneMembership::request(ZoneCommand::ExcludeDevice, deviceId, zoneId);
}
