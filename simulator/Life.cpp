#include "simulator/Life.h"

#include "simulator/Server.h"
#include "simulator/commands/PlaybackPushes.h"
#include "simulator/state/Transport.h"

#include <algorithm>

namespace simulator
{

namespace
{

constexpr int stepLength = 1000; // milliseconds
constexpr int stepsPerDrop = 15;
constexpr int stepsToReturn = 6;
constexpr int stepsPerPercent = 20;
constexpr int stepsPerVisit = 40;

} // namespace

Life::Life(Server& living, quint32 seed) : server(living), chance(seed)
{
    connect(&timer, &QTimer::timeout, this, &Life::step);
}

void Life::start()
{
    timer.start(stepLength);
}

void Life::step()
{
    reconnect();
    drain();
    if (chance.bounded(stepsPerVisit) == 0) {
        visit();
    }
    if (chance.bounded(stepsPerDrop) == 0) {
        lose();
    }
}

void Life::lose()
{
    const QVector<Unit>& units = server.installation().allUnits();
    if (units.isEmpty()) {
        return;
    }
    const Unit& unlucky = units.at(chance.bounded(units.size()));
    if (!unlucky.linkByHand) {
        server.changeLink({unlucky.id}, Link::No);
    }
}

/// Lost units come back in two stages.
void Life::reconnect()
{
    for (const Unit& known : server.installation().allUnits()) {
        if (known.link == Link::Bidirectional || known.linkByHand ||
            chance.bounded(stepsToReturn) != 0) {
            continue;
        }
        server.changeLink({known.id},
                          known.link == Link::No ? Link::Incoming : Link::Bidirectional);
    }
}

/// Only what moves by a whole percent is told.
void Life::drain()
{
    for (const Unit& known : server.installation().allUnits()) {
        const bool draining = known.battery == Battery::AcPowerMissing;
        const bool charging = known.battery == Battery::Charge;
        if ((!draining && !charging) || known.powerByHand || known.link != Link::Bidirectional ||
            chance.bounded(stepsPerPercent) != 0) {
            continue;
        }
        Unit& unit = *server.installation().unit(known.id);
        unit.batteryLevel = std::clamp(unit.batteryLevel + (charging ? 1 : -1), 0, 100);
        if (unit.batteryLevel <= 5) {
            unit.battery = Battery::Charge; // somebody finds the breaker
        } else if (unit.batteryLevel == 100) {
            unit.battery = Battery::Ok;
        }
        server.tellUnits({unit.id});
    }
}

/// A second operator puts music on a free unit, and next time takes it away again.
void Life::visit()
{
    constexpr int folder = 24;
    const QString passerBy = "the second operator";
    Installation& installation = server.installation();
    for (const Playback& playback : installation.playbacks) {
        if (playback.id == visitors) {
            server.end(visitors, passerBy);
            visitors = 0;
            return;
        }
    }
    const QVector<Unit>& units = installation.allUnits();
    if (units.isEmpty()) {
        return;
    }
    StartOrder order;
    order.playlist = folder;
    order.units = {units.at(chance.bounded(units.size())).id};
    order.strategy = "partial";
    order.by = passerBy;
    const StartResult started = startPlayback(installation, order);
    visitors = started.playback;
    if (started.refusal.isEmpty()) {
        server.broadcast(startPushes(installation, started, {makePush("playback", "play")}));
    }
}

} // namespace simulator
