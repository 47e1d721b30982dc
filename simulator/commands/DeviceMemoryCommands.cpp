#include "simulator/commands/CommandTable.h"
#include "simulator/commands/PlaybackPushes.h"
#include "simulator/commands/UnitRequest.h"
#include "simulator/state/Transport.h"

#include <QJsonArray>

namespace simulator
{

namespace
{

QJsonObject getMemoryStamp(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    return unit ? success({{"memoryStamp", unit->memoryStamp}}) : refusal("error");
}

QJsonObject getAvailableMemory(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    return unit ? success({{"size", unit->memory.available}}) : refusal("error");
}

QJsonObject listMessages(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    QJsonArray list;
    for (const MemoryMessage& message : unit->memory.messages) {
        list.append(QJsonObject{
            {"position", list.size()}, {"title", message.title}, {"size", message.size}});
    }
    return success({{"list", list}});
}

QJsonObject listScenarios(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    QJsonArray list;
    for (const MemoryScenario& scenario : unit->memory.scenarios) {
        list.append(QJsonObject{{"position", list.size()},
                                {"title", scenario.title},
                                {"priority", scenario.priority},
                                {"positionGong", scenario.positionGong},
                                {"positionMessage", scenario.positionMessage},
                                {"repeat", scenario.repeat}});
    }
    return success({{"list", list}});
}

/// The group that the unit plays; every unit is a group of its own.
QJsonObject getPlays(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    QJsonArray groups;
    if (const auto& run = unit->memoryRun) {
        groups.append(QJsonObject{{"id", run->group},
                                  {"type", run->message ? "message" : "scenario"},
                                  {"position", run->position},
                                  {"devices", QJsonArray{unit->id}}});
    }
    return success({{"playbackGroups", groups}});
}

/// Tells the others to look what the unit plays.
void tellRun(Context& context, int unit)
{
    Push look = makePush("device", "startTranslation", {{"deviceId", unit}});
    look.aboutUnit = unit;
    pushUnits(context, {unit});
    context.pushToOthers(look);
}

/// Why nothing can be played from the memory now, null when it can.
const char* playRefusal(const Installation& installation, int id)
{
    const Unit& unit = *installation.unit(id);
    if (unit.upgrade) {
        return "wait";
    }
    if (unit.applying) {
        return "busy";
    }
    if (unit.unedited) {
        return "changes";
    }
    return rankOn(installation, id) > memoryRank ? "playing" : nullptr;
}

/// Starts an entry of a list that has `count` entries.
QJsonObject play(Context& context, const QJsonObject& request, int count, bool message)
{
    Installation& installation = context.installation();
    const int unit = request.value("id").toInt();
    const int position = request.value("position").toInt(-1);
    if (position < 0 || position >= count) {
        return refusal("error");
    }
    if (const char* word = playRefusal(installation, unit)) {
        return refusal(word);
    }
    for (int ended : freeUnit(installation, unit, context.who())) {
        context.push(stoppedPush(ended));
    }
    const int group = ++installation.lastMemoryGroup;
    installation.unit(unit)->memoryRun =
        MemoryRun{group, message, position, QDateTime::currentDateTimeUtc()};
    tellRun(context, unit);
    return success({{"playbackGroupId", group}});
}

QJsonObject playMessage(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    return unit ? play(context, request, unit->memory.messages.size(), true) : refusal("error");
}

QJsonObject playScenario(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    return unit ? play(context, request, unit->memory.scenarios.size(), false) : refusal("error");
}

QJsonObject stop(Context& context, const QJsonObject& request)
{
    Unit* unit = unitIn(context, request);
    const int group = request.value("playbackGroupId").toInt();
    if (!unit || !unit->memoryRun || unit->memoryRun->group != group) {
        return refusal("error");
    }
    unit->memoryRun.reset();
    pushUnits(context, {unit->id});
    return success();
}

} // namespace

Commands deviceMemoryCommands()
{
    const QLatin1String device("device");
    const Need control{Right::Devices, Level::Control};
    return {
        {device, QLatin1String("getMemoryStamp"), {Right::Session}, getMemoryStamp},
        {device, QLatin1String("getAvailableMemory"), {Right::Session}, getAvailableMemory},
        {device, QLatin1String("listMessages"), {Right::Session}, listMessages},
        {device, QLatin1String("listScenarios"), {Right::Session}, listScenarios},
        {device, QLatin1String("getPlays"), {Right::Session}, getPlays},
        {device, QLatin1String("playMessage"), control, playMessage},
        {device, QLatin1String("playScenario"), control, playScenario},
        {device, QLatin1String("stop"), control, stop},
    };
}

} // namespace simulator
