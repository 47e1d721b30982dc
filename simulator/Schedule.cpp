#include "simulator/Schedule.h"

#include "simulator/EventLog.h"
#include "simulator/Server.h"
#include "simulator/commands/PlaybackPushes.h"
#include "simulator/state/Calendar.h"
#include "simulator/state/Transport.h"

#include <algorithm>

namespace simulator
{

namespace
{

constexpr int stepLength = 1000; // milliseconds

QDateTime thisMinute()
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    return now.addMSecs(-(now.toMSecsSinceEpoch() % 60000));
}

QString nameOf(const Task& event)
{
    return QString("task %1").arg(event.play ? event.id : event.target);
}

} // namespace

Schedule::Schedule(Server& scheduled) : server(scheduled)
{
    connect(&timer, &QTimer::timeout, this, &Schedule::step);
}

void Schedule::start()
{
    last = thisMinute();
    timer.start(stepLength);
}

void Schedule::step()
{
    const QDateTime now = thisMinute();
    if (now != last) {
        last = now;
        fire(now);
    }
}

/// What ends makes room for what begins.
void Schedule::fire(const QDateTime& minute)
{
    const QVector<Task> tasks = server.installation().tasks;
    for (const bool starts : {false, true}) {
        for (const Task& event : tasks) {
            if (event.play == starts && isDue(event, minute)) {
                starts ? play(event) : stop(event);
            }
        }
    }
}

/// There is nobody to ask: it takes the units that play nothing more important.
void Schedule::play(const Task& event)
{
    Installation& installation = server.installation();
    const int rank = importanceOf(installation, event.target);
    StartOrder order;
    order.playlist = event.target;
    order.track = event.track;
    for (int id : installation.unitsOf(event.targets)) {
        if (installation.unit(id) && rankOn(installation, id) <= rank) {
            order.units.append(id);
        }
    }
    order.strategy = "overlap";
    order.repetition = event.repetition;
    order.by = nameOf(event);
    const StartResult started = startPlayback(installation, order);
    if (!started.refusal.isEmpty()) {
        qCInfo(events).noquote() << nameOf(event) << "doesn't start:" << started.refusal;
        return;
    }
    installation.playback(started.playback)->task = event.id;
    // Who hears of the playback finds the task that knows it.
    const Push start =
        makePush("task", "start", {{"taskId", event.id}, {"playbackId", started.playback}});
    server.broadcast(startPushes(installation, started, {start, makePush("playback", "play")}));
}

void Schedule::stop(const Task& event)
{
    QVector<int> running;
    for (const Playback& playback : server.installation().playbacks) {
        if (playback.task == event.target) {
            running.append(playback.id);
        }
    }
    for (int id : running) {
        server.end(id, nameOf(event));
    }
}

} // namespace simulator
