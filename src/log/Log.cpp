#include "log/Log.h"

Logger& Log::logger()
{
    static Logger theLogger;
    return theLogger;
}
