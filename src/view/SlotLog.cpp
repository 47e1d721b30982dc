#include "view/SlotLog.h"

#include "app/Data.h"
#include "log/Log.h"

SlotLog::SlotLog(const char* slotName, const QString& arguments, int level)
    : name(slotName), logLevel(level)
{
    Log::message(QLatin1String(name) + arguments, logLevel);
}

SlotLog::~SlotLog()
{
    Log::message(QLatin1String(name) + QStringLiteral("End"), logLevel);
}
