#include "simulator/commands/CommandTable.h"
#include "simulator/commands/UnitReport.h"
#include "simulator/commands/UnitRequest.h"

#include <QHostAddress>
#include <QJsonArray>

#include <algorithm>

namespace simulator
{

namespace
{

/// Makes the other consoles read everything about the unit again.
void tellSettings(Context& context, const Unit& unit)
{
    Push push = makePush("device", "reloadChanges", {{"id", unit.id}});
    push.aboutUnit = unit.id;
    context.pushToOthers(std::move(push));
}

QJsonObject setTitle(Context& context, const QJsonObject& request)
{
    Unit* unit = unitIn(context, request);
    const QString title = request.value("title").toString();
    if (!unit || !isTitle(title)) {
        return refusal("error");
    }
    const QVector<Unit>& units = context.installation().allUnits();
    if (std::any_of(units.begin(), units.end(), [unit, &title](const Unit& other) {
            return other.id != unit->id && other.title == title;
        })) {
        return refusal("titleExists");
    }
    unit->title = title;
    tellSettings(context, *unit);
    return success({{"title", title}});
}

QJsonObject setVolume(Context& context, const QJsonObject& request)
{
    Unit* unit = reachableUnitIn(context, request);
    const int volume = request.value("volume").toInt(-1);
    if (!unit || volume < 0 || volume > 100) {
        return refusal("error");
    }
    unit->volume = volume;
    context.pushToOthers(unitPush(context.installation(), *unit));
    return success();
}

QJsonObject setEqualizer(Context& context, const QJsonObject& request)
{
    Unit* unit = reachableUnitIn(context, request);
    const QJsonArray levels = request.value("levels").toArray();
    if (!unit || levels.size() != unit->equalizer.size()) {
        return refusal("error");
    }
    for (int band = 0; band < levels.size(); ++band) {
        unit->equalizer[band] = levels.at(band).toDouble();
    }
    unit->equalizerEnabled = request.value("enabled").toBool();
    tellSettings(context, *unit);
    return success();
}

/// A value that a unit takes for a setting: of the same kind as the one it has, an address where
/// it has an address, a port where it has a port.
bool isSound(const QString& key, const QJsonValue& old, const QJsonValue& value)
{
    if (value.type() != old.type()) {
        return false;
    }
    if (key == "commandPort") {
        return value.toInt() > 0 && value.toInt() < 65536;
    }
    return !value.isString() ||
           QHostAddress(value.toString()).protocol() == QAbstractSocket::IPv4Protocol;
}

QJsonObject setConfig(Context& context, const QJsonObject& request)
{
    Unit* unit = reachableUnitIn(context, request);
    if (!unit) {
        return refusal("error");
    }
    QJsonObject changed = unit->config;
    for (const QString& key : unit->config.keys()) {
        const QJsonValue value = request.value(key);
        if (value.isUndefined()) {
            continue;
        }
        if (!isSound(key, unit->config.value(key), value)) {
            return refusal("error");
        }
        changed.insert(key, value);
    }
    if (!changed.value("dhcp").toBool()) {
        changed.insert("ip", changed.value("staticIp"));
        changed.insert("mask", changed.value("staticMask"));
        changed.insert("gateway", changed.value("staticGateway"));
    }
    unit->config = changed;
    tellSettings(context, *unit);
    return success();
}

} // namespace

Commands deviceSettingsCommands()
{
    const QLatin1String device("device");
    const Need control{Right::Devices, Level::Control};
    const Need administration{Right::Devices, Level::Administration};
    return {
        {device, QLatin1String("setTitle"), administration, setTitle},
        {device, QLatin1String("setVolume"), control, setVolume},
        {device, QLatin1String("setEqualizer"), control, setEqualizer},
        {device, QLatin1String("setConfig"), administration, setConfig},
    };
}

} // namespace simulator
