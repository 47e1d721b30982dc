#include "view/DeviceIds.h"

#include "app/Data.h"
#include "log/Log.h"

QJsonArray readDeviceIds(const QString& devices)
{
    QJsonArray result;
    for (const QString& part : devices.split(QLatin1Char(','))) {
        bool isNumber = false;
        const int id = part.toInt(&isNumber);
        if (isNumber) {
            result.append(id);
        } else {
            Log::message(QStringLiteral("Dropped unit of a start: ") + part);
        }
    }
    return result;
}
