#pragma once

#include <QJsonArray>
#include <QString>

/// The ids of a page's comma-separated list of units; what is no number is logged and left out.
QJsonArray readDeviceIds(const QString& devices);
