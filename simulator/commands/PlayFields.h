#pragma once

#include "simulator/state/Records.h"

#include <QJsonArray>
#include <QJsonObject>

namespace simulator
{

/// Ids as they travel.
QJsonArray toArray(const QVector<int>& ids);
/// The whole numbers of an array; what is none falls out.
QVector<int> fromArray(const QJsonValue& array);

/// Adds `targetPlaying`, `repeats`, `actionIfEnd`.
void insert(QJsonObject& fields, const Repetition& repetition);
/// Adds `zones`, `devices`.
void insert(QJsonObject& fields, const Targets& targets);

/// Reads what the second insert() writes.
Targets targetsIn(const QJsonObject& fields);
/// Reads what the first insert() writes; what is missing or senseless keeps its default.
Repetition repetitionIn(const QJsonObject& fields);

} // namespace simulator
