#include "view/SlotLog.h"

#include "app/Data.h"
#include "log/Logger.h"

SlotLog::SlotLog(const char* slotName, const QString& arguments, int level)
    : name(slotName), logLevel(level)
{
    Data::logger.message(QLatin1String(name) + arguments, logLevel);
}

SlotLog::~SlotLog()
{
    Data::logger.message(QLatin1String(name) + QStringLiteral("End"), logLevel);
}
