#include "simulator/commands/UnitRequest.h"

namespace simulator
{

Unit* unitIn(Context& context, const QJsonObject& request)
{
    Unit* unit = context.installation().unit(request.value("id").toInt());
    return unit && context.access().sees(*unit) ? unit : nullptr;
}

Unit* reachableUnitIn(Context& context, const QJsonObject& request)
{
    Unit* unit = unitIn(context, request);
    return unit && unit->link == Link::Bidirectional ? unit : nullptr;
}

} // namespace simulator
