#pragma once

#include <QObject>

#include <functional>

namespace simulator
{

/// Calls `ended` in the event loop on SIGTERM and SIGINT. One at a time in a process. False when
/// the system has no pipe left for it.
bool watchInterrupts(QObject* parent, std::function<void()> ended);

} // namespace simulator
