#include "model/Zone.h"

#include "app/Data.h"
#include "model/ModelList.h"
#include "page/ScriptCall.h"

void Zone::setName(const QString& zoneName)
{
    if (name != zoneName) {
        Page::call("wrapperInput_zone_setName", id, zoneName, getParentName());
    }
    name = zoneName;
}

int Zone::getParentZone() const
{
    return Data::getZoneById(parentZone) ? parentZone : everything;
}

QString Zone::getParentName() const
{
    const Zone* const parent = Data::getZoneById(parentZone);
    return parent ? parent->getName() : QStringLiteral("Все зоны");
}

void Zone::addToPage(int shownParent) const
{
    Page::call("wrapperInput_zone_add", id, shownParent, name, getParentName(), type);
}
