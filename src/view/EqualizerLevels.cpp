#include "view/EqualizerLevels.h"

#include "app/Data.h"
#include "protocol/Request.h"

#include <QJsonArray>

void sendEqualizer(int deviceId, bool enabled, const QVariantList& levels)
{
    QJsonArray numbers;
    for (const QVariant& level : levels) {
        bool isNumber = false;
        numbers.append(level.toDouble(&isNumber));
        if (!isNumber) {
            return;
        }
    }
    if (Data::getDeviceById(deviceId)) {
        send(DeviceCommand::SetEqualizer, {{QStringLiteral("id"), deviceId},
                                           {QStringLiteral("enabled"), enabled},
                                           {QStringLiteral("levels"), numbers}});
    }
}
