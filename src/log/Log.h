#pragma once

#include "log/LogSettings.h"
#include "log/Logger.h"

/// The program's one log, for everybody who has something to write into it.
namespace Log
{

/// The logger behind the functions below, to be given its configuration. It lives as long as the
/// program.
Logger& logger();

/// Writes one line, if `level` (see `LogLevel`) is switched on.
template <class Text> void message(const Text& text, int level = LogLevel::Always)
{
    logger().message(text, level);
}

/// Whether a line of that level would be written; for texts that are dear to build.
inline bool isWritten(int level)
{
    return logger().isWritten(level);
}

} // namespace Log
