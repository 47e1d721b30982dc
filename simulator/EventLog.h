#pragma once

#include <QLoggingCategory>

namespace simulator
{

/// One line an event: connections, logins, refusals, what life does. Goes to the standard error
/// output unless a program installs something else.
Q_DECLARE_LOGGING_CATEGORY(events)

} // namespace simulator
