#include "simulator/commands/CommandTable.h"
#include "simulator/commands/UnitRequest.h"

#include <QJsonArray>

namespace simulator
{

namespace
{

/// The unit of a request about its memory, which only a connected unit can answer.
const Unit* connectedUnitIn(Context& context, const QJsonObject& request)
{
    const Unit* unit = unitIn(context, request);
    return unit && unit->link == Link::Bidirectional ? unit : nullptr;
}

QJsonObject getMemoryStamp(Context& context, const QJsonObject& request)
{
    const Unit* unit = connectedUnitIn(context, request);
    return unit ? success({{"memoryStamp", unit->memoryStamp}}) : refusal("error");
}

QJsonObject getAvailableMemory(Context& context, const QJsonObject& request)
{
    const Unit* unit = connectedUnitIn(context, request);
    return unit ? success({{"size", unit->availableMemory}}) : refusal("error");
}

QJsonObject listMessages(Context& context, const QJsonObject& request)
{
    const Unit* unit = connectedUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    QJsonArray list;
    for (const MemoryMessage& message : unit->messages) {
        list.append(QJsonObject{
            {"position", list.size()}, {"title", message.title}, {"size", message.size}});
    }
    return success({{"list", list}});
}

QJsonObject listScenarios(Context& context, const QJsonObject& request)
{
    const Unit* unit = connectedUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    QJsonArray list;
    for (const MemoryScenario& scenario : unit->scenarios) {
        list.append(QJsonObject{{"position", list.size()},
                                {"title", scenario.title},
                                {"priority", scenario.priority},
                                {"positionGong", scenario.positionGong},
                                {"positionMessage", scenario.positionMessage},
                                {"repeat", scenario.repeat}});
    }
    return success({{"list", list}});
}

/// No unit plays from its memory yet, so there are no groups to tell.
QJsonObject getPlays(Context& context, const QJsonObject& request)
{
    return connectedUnitIn(context, request) ? success({{"playbackGroups", QJsonArray()}})
                                             : refusal("error");
}

} // namespace

Commands deviceMemoryCommands()
{
    const QLatin1String device("device");
    return {
        {device, QLatin1String("getMemoryStamp"), {Right::Session}, getMemoryStamp},
        {device, QLatin1String("getAvailableMemory"), {Right::Session}, getAvailableMemory},
        {device, QLatin1String("listMessages"), {Right::Session}, listMessages},
        {device, QLatin1String("listScenarios"), {Right::Session}, listScenarios},
        {device, QLatin1String("getPlays"), {Right::Session}, getPlays},
    };
}

} // namespace simulator
