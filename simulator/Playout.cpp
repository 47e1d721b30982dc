#include "simulator/Playout.h"

#include "simulator/Server.h"
#include "simulator/commands/PlaybackPushes.h"
#include "simulator/state/Transport.h"
#include "simulator/state/UnitWork.h"

namespace simulator
{

namespace
{

constexpr int stepLength = 1000;   // milliseconds
constexpr int messageRate = 16000; // bytes that a unit plays from its memory in a second

bool isOver(const Installation& installation, const Playback& playback)
{
    const Track* current = installation.track(playback.track);
    return playback.playing && current && current->duration >= 0 &&
           installation.positionOf(playback, QDateTime::currentDateTimeUtc()) >= current->duration;
}

/// Only messages end; an announcement repeats until it is stopped.
bool isOver(const Unit& unit)
{
    if (!unit.memoryRun || !unit.memoryRun->message ||
        unit.memoryRun->position >= unit.memory.messages.size()) {
        return false;
    }
    const int seconds = unit.memory.messages.at(unit.memoryRun->position).size / messageRate;
    return unit.memoryRun->since.secsTo(QDateTime::currentDateTimeUtc()) >= seconds;
}

} // namespace

Playout::Playout(Server& playing) : server(playing)
{
    connect(&timer, &QTimer::timeout, this, &Playout::step);
}

void Playout::start()
{
    timer.start(stepLength);
}

void Playout::step()
{
    endTracks();
    endMessages();
    endWork();
}

void Playout::endTracks()
{
    Installation& installation = server.installation();
    QVector<int> over;
    for (Playback& playback : installation.playbacks) {
        if (!isOver(installation, playback)) {
            continue;
        }
        if (finishTrack(installation, playback) == TrackEnd::Stop) {
            over.append(playback.id);
        } else {
            server.broadcast(trackPush(installation, playback));
        }
    }
    for (int id : over) {
        server.end(id, "its own end");
    }
}

void Playout::endMessages()
{
    QVector<int> over;
    for (const Unit& unit : server.installation().allUnits()) {
        if (isOver(unit)) {
            over.append(unit.id);
        }
    }
    for (int id : over) {
        server.installation().unit(id)->memoryRun.reset();
    }
    server.tellUnits(over);
}

void Playout::endWork()
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const QVector<Unit> units = server.installation().allUnits();
    for (const Unit& busy : units) {
        Unit& unit = *server.installation().unit(busy.id);
        settleApplying(unit, now);
        if (settleUpgrade(unit, now)) {
            server.tellUnits({unit.id});
        }
    }
}

} // namespace simulator
