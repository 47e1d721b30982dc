#include "simulator/commands/CommandTable.h"

#include <QJsonArray>

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

} // namespace

Commands zoneCommands()
{
    return {{QLatin1String("zone"), QLatin1String("list"), {Right::Session}, list}};
}

} // namespace simulator
