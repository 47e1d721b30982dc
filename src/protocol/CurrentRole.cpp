#include "protocol/CurrentRole.h"

#include "app/Data.h"
#include "model/Role.h"
#include "page/ScriptCall.h"

bool mayManageZones()
{
    const Role* const role = Data::getCurrentRole();
    return role && role->getZoneManagement();
}

void showZoneManagement()
{
    if (const Role* const role = Data::getCurrentRole()) {
        Page::call("wrapperInput_roleGlobal_editZoneManagement", role->getId(), role->getName(),
                   role->getZoneManagement());
    }
}

void showDeviceManagement()
{
    if (const Role* const role = Data::getCurrentRole()) {
        Page::call("wrapperInput_roleGlobal_editDeviceManagement", role->getId(), role->getName(),
                   role->getDeviceManagement());
    }
}
