#pragma once

#include "simulator/state/Installation.h"

#include <QString>
#include <QStringList>

namespace simulator
{

/// The days that have a log, oldest first; today is the last.
QStringList logDays();

/// What the server wrote on a day: the same at each call as long as the installation and its log
/// level stay. Today's log goes as far as the clock, and is filled up to the size that the
/// installation wants.
QString dayLog(const Installation& installation, const QString& day);

} // namespace simulator
