#include "simulator/Server.h"
#include "simulator/commands/CommandTable.h"
#include "simulator/commands/UnitReport.h"
#include "simulator/commands/UnitRequest.h"

#include <algorithm>
#include <utility>

namespace simulator
{

namespace
{

constexpr int rebootMilliseconds = 3000;
constexpr int findMilliseconds = 2000;

/// A unit that reboots is gone for a while.
QJsonObject reboot(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    const int id = unit->id;
    context.later(0, [id](Server& server) { server.changeLink({id}, Link::No); });
    context.later(rebootMilliseconds,
                  [id](Server& server) { server.changeLink({id}, Link::Bidirectional); });
    return success();
}

/// Units that have been lost, and not at the prompt, are there again.
QJsonObject findLostDevices(Context& context, const QJsonObject&)
{
    context.later(findMilliseconds, [](Server& server) {
        QVector<int> lost;
        for (const Unit& unit : server.installation().allUnits()) {
            if (unit.link != Link::Bidirectional && !unit.linkByHand) {
                lost.append(unit.id);
            }
        }
        server.changeLink(lost, Link::Bidirectional);
    });
    return success();
}

QJsonObject exchangeHardwareAddresses(Context& context, const QJsonObject& request)
{
    Unit* first = unitIn(context, request);
    Unit* second = context.installation().unit(request.value("withDevice").toInt());
    if (!first || !second || first == second || !context.access().sees(*second)) {
        return refusal("error");
    }
    std::swap(first->mac, second->mac);
    for (const Unit* unit : {first, second}) {
        context.push(makePush("device", "reloadChanges", {{"id", unit->id}}));
    }
    return success();
}

QJsonObject getDebugInfo(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    const QString text = QString("unit %1 <%2>\nmac %3\nversion %4\nvolume %5\nlines %6\n")
                             .arg(unit->id)
                             .arg(unit->title, unit->mac, unit->versionText)
                             .arg(unit->volume)
                             .arg(unit->lines.size());
    return success({{"debugInfo", text}});
}

/// The lines that the prompt has broken are out of norm.
QJsonObject measureLine(Context& context, const QJsonObject& request)
{
    const Unit* unit = reachableUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    const auto isSound = [unit](int index) {
        return index >= unit->lines.size() || unit->lines.at(index).inOrder;
    };
    return success({{"line1", isSound(0)}, {"line2", isSound(1)}});
}

/// Changes a terminal device of a unit that has such.
template <class Change>
QJsonObject changeLines(Context& context, const QJsonObject& request, Change change)
{
    Unit* unit = reachableUnitIn(context, request);
    if (!unit || !unit->isNewGeneration() || !change(unit->lines)) {
        return refusal("error");
    }
    context.pushToOthers(unitPush(context.installation(), *unit));
    return success();
}

template <class Change>
QJsonObject changeLine(Context& context, const QJsonObject& request, Change change)
{
    const int tip = request.value("tipId").toInt(-1);
    return changeLines(context, request, [&](QVector<Line>& lines) {
        const auto line = std::find_if(lines.begin(), lines.end(), [tip](const Line& candidate) {
            return candidate.tipId == tip;
        });
        return line != lines.end() && change(*line);
    });
}

template <bool isNew> QJsonObject adopt(Context& context, const QJsonObject& request)
{
    return changeLine(context, request, [](Line& line) {
        line.isNew = isNew;
        return true;
    });
}

template <bool isNew> QJsonObject adoptAll(Context& context, const QJsonObject& request)
{
    return changeLines(context, request, [](QVector<Line>& lines) {
        for (Line& line : lines) {
            line.isNew = isNew;
        }
        return true;
    });
}

QJsonObject setTipDeviceTitle(Context& context, const QJsonObject& request)
{
    const QString title = request.value("title").toString();
    return changeLine(context, request, [&title](Line& line) {
        line.title = isTitle(title) ? title : line.title;
        return isTitle(title) && !line.isNew;
    });
}

} // namespace

Commands deviceServiceCommands()
{
    const QLatin1String device("device");
    const Need control{Right::Devices, Level::Control};
    const Need administration{Right::Devices, Level::Administration};
    return {
        {device, QLatin1String("reboot"), administration, reboot},
        {device, QLatin1String("findLostDevices"), administration, findLostDevices},
        {device, QLatin1String("exchangeHardwareAddresses"), administration,
         exchangeHardwareAddresses},
        {device, QLatin1String("getDebugInfo"), administration, getDebugInfo},
        {device, QLatin1String("measureLine"), control, measureLine},
        {device, QLatin1String("addTipDevice"), administration, adopt<false>},
        {device, QLatin1String("addTipDevices"), administration, adoptAll<false>},
        {device, QLatin1String("removeTipDevice"), administration, adopt<true>},
        {device, QLatin1String("removeTipDevices"), administration, adoptAll<true>},
        {device, QLatin1String("setTipDeviceTitle"), administration, setTipDeviceTitle},
    };
}

} // namespace simulator
