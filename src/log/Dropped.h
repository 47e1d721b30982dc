#pragma once

#include "log/Log.h"

#include <QString>

namespace Log
{

/// Tells that something the server sent was left out. Within a `DropSummary` equal texts become one
/// line with their count, behind the summary; otherwise the line is written at once. True the first
/// time that the text is told.
bool dropped(const QString& text);

/// What is dropped while it lives is told once, with its count: a flood of nonsense mustn't become
/// a flood of lines. The outermost counts.
class DropSummary
{
public:
    /// So many different texts are told of one summary; of what is beyond them only the number.
    static constexpr int maximumTexts = 20;

    DropSummary();
    ~DropSummary();
    DropSummary(const DropSummary&) = delete;
    DropSummary& operator=(const DropSummary&) = delete;
};

/// How the log is kept while what one read has brought is handled: what is dropped comes together,
/// and standard output waits for the end.
struct ReadLog {
    Logger::Burst echo{logger(), Logger::Held::Echo};
    DropSummary drops;
};

} // namespace Log
