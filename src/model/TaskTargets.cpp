#include "model/TaskTargets.h"

#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Task.h"
#include "model/Zone.h"

#include <QSet>

#include <algorithm>

QVector<int> getDeviceListFromTasks()
{
    QVector<int> result;
    QSet<int> known;
    const auto add = [&](int deviceId) {
        if (!known.contains(deviceId)) {
            known.insert(deviceId);
            result.append(deviceId);
        }
    };
    for (const Task& task : Data::tasks) {
        if (!task.getState()) {
            continue;
        }
        if (task.getDeviceList().isEmpty() && task.getZoneList().isEmpty()) {
            for (const Device& device : Data::deviceList) {
                result.append(device.getId());
            }
            break;
        }
        for (const int zoneId : task.getZoneList()) {
            if (const Zone* const zone = Data::getZoneById(zoneId)) {
                std::for_each(zone->getDeviceList().begin(), zone->getDeviceList().end(), add);
            }
        }
        std::for_each(task.getDeviceList().begin(), task.getDeviceList().end(), add);
    }
    return result;
}
