#include "simulator/commands/PlayFields.h"

#include <algorithm>

namespace simulator
{

QJsonArray toArray(const QVector<int>& ids)
{
    QJsonArray array;
    for (int id : ids) {
        array.append(id);
    }
    return array;
}

QVector<int> fromArray(const QJsonValue& array)
{
    constexpr int none = -1;
    const QJsonArray values = array.toArray();
    QVector<int> ids;
    for (const QJsonValue& value : values) {
        if (value.toInt(none) != none) {
            ids.append(value.toInt());
        }
    }
    return ids;
}

Repetition repetitionIn(const QJsonObject& fields)
{
    Repetition repetition;
    if (fields.value("targetPlaying") == "track") {
        repetition.target = "track";
    }
    if (fields.value("actionIfEnd") == "pause") {
        repetition.atEnd = "pause";
    }
    repetition.repeats = std::max(fields.value("repeats").toInt(), 0);
    return repetition;
}

Targets targetsIn(const QJsonObject& fields)
{
    return {fromArray(fields.value("zones")), fromArray(fields.value("devices"))};
}

void insert(QJsonObject& fields, const Repetition& repetition)
{
    fields.insert("targetPlaying", repetition.target);
    fields.insert("repeats", repetition.repeats);
    fields.insert("actionIfEnd", repetition.atEnd);
}

void insert(QJsonObject& fields, const Targets& targets)
{
    fields.insert("zones", toArray(targets.zones));
    fields.insert("devices", toArray(targets.units));
}

} // namespace simulator
