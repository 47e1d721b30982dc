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
constexpr int messageRate = 16000; // bytes that a unit plays from its memory in a second

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
    endMessages();
    if (chance.bounded(stepsPerVisit) == 0) {
        visit();
    }
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
        end(id);
    }
}

/// Ends a playback that runs, and tells it.
void Life::end(int playback)
{
    Installation& installation = server.installation();
    const QVector<int> units = installation.activeUnits(*installation.playback(playback));
    endPlayback(installation, playback);
    for (const Push& push : endPushes(installation, playback, units)) {
        server.broadcast(push);
    }
}

/// A message from a unit's memory sounds once.
void Life::endMessages()
{
    Installation& installation = server.installation();
    const QDateTime now = QDateTime::currentDateTimeUtc();
    for (const Unit& known : installation.allUnits()) {
        if (!known.memoryRun || !known.memoryRun->message ||
            known.memoryRun->position >= known.messages.size()) {
            continue;
        }
        const int seconds = known.messages.at(known.memoryRun->position).size / messageRate;
        if (known.memoryRun->since.secsTo(now) >= seconds) {
            installation.unit(known.id)->memoryRun.reset();
            server.tellUnit(known.id);
        }
    }
}

/// A second operator puts music on a free unit, and next time takes it away again.
void Life::visit()
{
    constexpr int folder = 24;
    Installation& installation = server.installation();
    for (const Playback& playback : installation.playbacks) {
        if (playback.id == visitors) {
            end(visitors);
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
    const StartResult started = startPlayback(installation, order);
    visitors = started.playback;
    if (started.refusal.isEmpty()) {
        server.broadcast(makePush("playback", "play"));
        server.tellUnit(started.units.first());
    }
}

} // namespace simulator
