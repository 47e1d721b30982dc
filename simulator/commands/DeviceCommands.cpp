#include "simulator/commands/CommandTable.h"
#include "simulator/commands/UnitReport.h"
#include "simulator/commands/UnitRequest.h"

#include <QJsonArray>

namespace simulator
{

namespace
{

QJsonObject getDevices(Context& context, const QJsonObject&)
{
    const Access access = context.access();
    QJsonArray devices;
    for (const Unit& unit : context.installation().allUnits()) {
        if (access.sees(unit)) {
            devices.append(QJsonObject{{"id", unit.id},
                                       {"title", unit.title},
                                       {"volume", unit.volume},
                                       {"link", wordOf(linkWords, unit.link)},
                                       {"playback", context.installation().playbackWord(unit)}});
        }
    }
    return success({{"devices", devices}});
}

QJsonObject getState(Context& context, const QJsonObject& request)
{
    const Unit* unit = unitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    QJsonObject fields = conditionOf(*unit);
    fields.insert("id", unit->id);
    fields.insert("ip", unit->config.value("ip"));
    fields.insert("mac", unit->mac);
    return success(fields);
}

QJsonObject getTitle(Context& context, const QJsonObject& request)
{
    const Unit* unit = unitIn(context, request);
    return unit ? success({{"title", unit->title}}) : refusal("error");
}

QJsonObject getVolume(Context& context, const QJsonObject& request)
{
    const Unit* unit = unitIn(context, request);
    return unit ? success({{"volume", unit->volume}}) : refusal("error");
}

QJsonObject getEqualizer(Context& context, const QJsonObject& request)
{
    const Unit* unit = unitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    QJsonArray levels;
    for (double level : unit->equalizer) {
        levels.append(level);
    }
    return success({{"enabled", unit->equalizerEnabled}, {"levels", levels}});
}

QJsonObject getConfig(Context& context, const QJsonObject& request)
{
    const Unit* unit = unitIn(context, request);
    return unit ? success(unit->config) : refusal("error");
}

} // namespace

Commands deviceCommands()
{
    const QLatin1String device("device");
    return {
        {device, QLatin1String("getDevices"), {Right::Session}, getDevices},
        {device, QLatin1String("getState"), {Right::Session}, getState},
        {device, QLatin1String("getTitle"), {Right::Session}, getTitle},
        {device, QLatin1String("getVolume"), {Right::Session}, getVolume},
        {device, QLatin1String("getEqualizer"), {Right::Session}, getEqualizer},
        {device, QLatin1String("getConfig"), {Right::Session}, getConfig},
    };
}

} // namespace simulator
