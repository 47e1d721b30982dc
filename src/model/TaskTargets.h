#pragma once

#include <QVector>

/// The units that switched-on tasks play on. A task without targets stands for all units and ends
/// the walk, so ids may repeat then.
QVector<int> getDeviceListFromTasks();
