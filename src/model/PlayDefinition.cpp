#include "model/PlayDefinition.h"

#include "app/Data.h"
#include "model/Zone.h"

#include <QSet>

QVector<int> PlayDefinition::targetUnits() const
{
    QVector<int> units = deviceList;
    QSet<int> known(units.begin(), units.end());
    for (const int zoneId : zoneList) {
        const Zone* const zone = Data::getZoneById(zoneId);
        for (const int unit : zone ? zone->getDeviceList() : QVector<int>()) {
            if (!known.contains(unit)) {
                known.insert(unit);
                units.append(unit);
            }
        }
    }
    return units;
}
