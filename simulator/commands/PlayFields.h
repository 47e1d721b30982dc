#pragma once

#include "simulator/state/Records.h"

#include <QJsonArray>
#include <QJsonObject>

namespace simulator
{

/// Ids as they travel.
QJsonArray toArray(const QVector<int>& ids);

/// Adds `targetPlaying`, `repeats`, `actionIfEnd`.
void insert(QJsonObject& fields, const Repetition& repetition);
/// Adds `zones`, `devices`.
void insert(QJsonObject& fields, const Targets& targets);

} // namespace simulator
