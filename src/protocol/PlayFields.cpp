#include "protocol/PlayFields.h"

#include <algorithm>
#include <iterator>

QVector<int> PlayFields::readIds(const QJsonObject& message, const char* field)
{
    QVector<int> ids;
    const QJsonArray elements = message.value(QLatin1String(field)).toArray();
    for (const QJsonValue& element : elements) {
        if (element.isDouble() && element.toInt(-1) == element.toDouble()) {
            ids.append(element.toInt());
        } else {
            Log::dropped(QStringLiteral("Dropped element of %1: no id").arg(QLatin1String(field)));
        }
    }
    return ids;
}

QJsonArray PlayFields::idArray(const QVector<int>& ids)
{
    QJsonArray result;
    std::copy(ids.begin(), ids.end(), std::back_inserter(result));
    return result;
}
