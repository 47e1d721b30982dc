#include "protocol/SessionHooks.h"

SessionHooks& sessionHooks()
{
    static SessionHooks hooks;
    return hooks;
}
