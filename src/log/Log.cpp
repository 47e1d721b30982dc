#include "log/Log.h"

Logger& Log::logger()
{
    // It is never taken down: what ends behind `main` may still have something to say.
    static Logger& theLogger = *new Logger;
    return theLogger;
}
