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

bool Zone::endsEmptying()
{
    if (emptyingAnswers == 0) { // it isn't of a round
        emptyingStart = 0;
        return true;
    }
    return --emptyingAnswers == 0;
}

bool Zone::beginEmptying()
{
    const int units = deviceList.size();
    const bool inVain = emptyingStart > 0 && units >= emptyingStart;
    emptyingStart = inVain ? 0 : units;
    emptyingAnswers = emptyingStart;
    return !inVain;
}

void Zone::addToPage(int shownParent) const
{
    Page::call("wrapperInput_zone_add", id, shownParent, name, getParentName(), type);
}
