#pragma once

#include <QString>

/// Logs the entry of a slot, as its name and what it was called with, and its end, as the name
/// with "End" behind it; both at the same level.
class SlotLog
{
public:
    explicit SlotLog(const char* slotName, const QString& arguments = {}, int level = 0);
    ~SlotLog();
    Q_DISABLE_COPY(SlotLog)

private:
    const char* name;
    int logLevel;
};
