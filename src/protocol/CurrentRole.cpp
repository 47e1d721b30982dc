#include "protocol/CurrentRole.h"

#include "app/Data.h"
#include "model/Role.h"

bool mayManageZones()
{
    const Role* const role = Data::getCurrentRole();
    return role && role->getZoneManagement();
}

void showZoneManagement()
{
    if (const Role* const role = Data::getCurrentRole()) {
        role->showToOperator(Role::Right::Zone);
    }
}

void showDeviceManagement()
{
    if (const Role* const role = Data::getCurrentRole()) {
        role->showToOperator(Role::Right::Device);
    }
}
