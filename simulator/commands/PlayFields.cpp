#include "simulator/commands/PlayFields.h"

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
