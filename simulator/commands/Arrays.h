#pragma once

#include <QJsonArray>
#include <QVector>

namespace simulator
{

/// Ids as they travel.
inline QJsonArray toArray(const QVector<int>& ids)
{
    QJsonArray array;
    for (int id : ids) {
        array.append(id);
    }
    return array;
}

} // namespace simulator
