#include "simulator/Life.h"

#include "simulator/Server.h"
#include "simulator/commands/PlaybackPushes.h"

#include <algorithm>

namespace simulator
{

namespace
{

constexpr int stepLength = 1000; // milliseconds
constexpr int stepsPerDrop = 15;
constexpr int stepsToReturn = 6;
constexpr int stepsPerPercent = 20;

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
    endTracks();
    const QVector<Unit>& units = server.installation().allUnits();
    if (!units.isEmpty() && chance.bounded(stepsPerDrop) == 0) {
        server.changeLink(units.at(chance.bounded(units.size())).id, Link::No);
    }
}

/// Lost units come back in two stages.
void Life::reconnect()
{
    for (const Unit& known : server.installation().allUnits()) {
        if (known.link == Link::Bidirectional || chance.bounded(stepsToReturn) != 0) {
            continue;
        }
        server.changeLink(known.id, known.link == Link::No ? Link::Incoming : Link::Bidirectional);
    }
}

/// Only what moves by a whole percent is told.
void Life::drain()
{
    for (const Unit& known : server.installation().allUnits()) {
        const bool draining = known.battery == Battery::AcPowerMissing;
        const bool charging = known.battery == Battery::Charge;
        if ((!draining && !charging) || known.link != Link::Bidirectional ||
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
        server.tellUnit(unit.id);
    }
}

void Life::endTracks()
{
    Installation& installation = server.installation();
    const QDateTime now = QDateTime::currentDateTimeUtc();
    QVector<int> over;
    for (Playback& playback : installation.playbacks) {
        const Track* current = installation.track(playback.track);
        if (!playback.playing || !current || current->duration < 0 ||
            installation.positionOf(playback, now) < current->duration) {
            continue;
        }
        switch (finishTrack(installation, playback)) {
        case TrackEnd::NextTrack:
        case TrackEnd::Pause:
            server.broadcast(trackPush(installation, playback));
            break;
        case TrackEnd::Stop:
            over.append(playback.id);
            break;
        }
    }
    for (int id : over) {
        const QVector<int> units = installation.activeUnits(*installation.playback(id));
        endPlayback(installation, id);
        for (const Push& push : endPushes(installation, id, units)) {
            server.broadcast(push);
        }
    }
}

} // namespace simulator
