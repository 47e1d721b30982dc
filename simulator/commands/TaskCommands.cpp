#include "simulator/commands/CommandTable.h"
#include "simulator/commands/Definitions.h"
#include "simulator/commands/PlayFields.h"
#include "simulator/state/Calendar.h"

#include <algorithm>

namespace simulator
{

namespace
{

QJsonObject describe(const Task& task)
{
    QJsonObject fields{{"id", task.id},
                       {"title", task.title},
                       {"enable", task.enabled},
                       {"event", task.play ? "play" : "stop"},
                       {"eventId", task.target},
                       {"trackId", task.track},
                       {"frequency", task.frequency},
                       {"step", 1},
                       {"days", task.days},
                       {"startDate", task.startDate},
                       {"startTime", task.startTime},
                       {"endDate", task.endDate}};
    insert(fields, task.targets);
    insert(fields, task.repetition);
    return fields;
}

QJsonObject list(Context& context, const QJsonObject&)
{
    QJsonArray tasks;
    for (const Task& task : context.installation().tasks) {
        if (context.access().sees(task)) {
            tasks.append(describe(task));
        }
    }
    return success({{"tasks", tasks}});
}

QJsonObject getPlays(Context& context, const QJsonObject&)
{
    QJsonArray list;
    for (const Playback& playback : context.installation().playbacks) {
        if (playback.task > 0 && context.access().sees(playback)) {
            list.append(QJsonObject{{"taskId", playback.task}, {"playbackId", playback.id}});
        }
    }
    return success({{"list", list}});
}

/// What a request says of an event; its id is the caller's.
Task eventIn(const QJsonObject& request)
{
    Task event;
    event.title = request.value("title").toString();
    event.enabled = request.value("enable").toBool();
    event.play = request.value("event") != "stop";
    event.target = request.value("eventId").toInt();
    event.track = request.value("trackId").toInt();
    event.frequency = request.value("frequency").toString();
    event.days = request.value("days").toString().remove(' ');
    event.startDate = request.value("startDate").toString();
    event.startTime = request.value("startTime").toString();
    event.endDate = request.value("endDate").toString();
    event.repetition = repetitionIn(request);
    event.targets = targetsIn(request);
    return event;
}

/// The event that a request names, null when there is none that the asker sees.
Task* eventOf(Context& context, const QJsonObject& request)
{
    Task* event = context.installation().task(request.value("id").toInt());
    return event && context.access().sees(*event) ? event : nullptr;
}

/// A stop event is called after its play event, which may have the longest title.
bool isNamed(const Task& event)
{
    const QString suffix = "_stop";
    return isTitle(event.play || !event.title.endsWith(suffix)
                       ? event.title
                       : event.title.chopped(suffix.size()));
}

/// Whether what it plays or stops is there.
bool isAimed(Installation& installation, const Task& event)
{
    const Track* track = installation.track(event.track);
    const Task* stopped = event.play ? nullptr : installation.task(event.target);
    return event.play ? installation.playlist(event.target) && track : stopped && stopped->play;
}

QString objectionTo(Context& context, const Task& event)
{
    Installation& installation = context.installation();
    if (!isNamed(event) || !isDatable(event) || !isAimed(installation, event)) {
        return "error";
    }
    if (isTitleTaken(installation.tasks, event)) {
        return "titleExists";
    }
    return event.play
               ? administratorsLack(installation, taskDefinitions, event.target, event.targets)
               : QString();
}

QJsonObject add(Context& context, const QJsonObject& request)
{
    Installation& installation = context.installation();
    Task event = eventIn(request);
    const QString objection = objectionTo(context, event);
    if (!objection.isEmpty()) {
        return {{"response", objection}};
    }
    event.id = nextId(installation.tasks);
    installation.tasks.append(event);
    if (event.play) {
        grant(installation, taskDefinitions, event.id);
    }
    context.pushToOthers(makePush("task", "add"));
    return success({{"id", event.id}});
}

QJsonObject edit(Context& context, const QJsonObject& request)
{
    Task* known = eventOf(context, request);
    Task event = eventIn(request);
    event.id = request.value("id").toInt();
    const QString objection =
        known && known->play == event.play ? objectionTo(context, event) : "error";
    if (!objection.isEmpty()) {
        return {{"response", objection}};
    }
    *known = event;
    context.pushToOthers(makePush("task", "edit"));
    return success();
}

/// What it has started goes on as anybody's.
void forget(Installation& installation, int id)
{
    for (Playback& playback : installation.playbacks) {
        playback.task = playback.task == id ? 0 : playback.task;
    }
    withdraw(installation, taskDefinitions, id);
}

QJsonObject remove(Context& context, const QJsonObject& request)
{
    const Task* known = eventOf(context, request);
    if (!known) {
        return refusal("error");
    }
    const int id = known->id;
    const bool pair = known->play && request.value("deleteStopEvents").toBool();
    QVector<Task>& tasks = context.installation().tasks;
    tasks.erase(std::remove_if(tasks.begin(), tasks.end(),
                               [=](const Task& task) {
                                   return task.id == id ||
                                          (pair && !task.play && task.target == id);
                               }),
                tasks.end());
    forget(context.installation(), id);
    context.pushToOthers(makePush("task", "delete", {{"id", id}}));
    return success();
}

/// A stop event follows its play event.
QJsonObject enable(Context& context, const QJsonObject& request)
{
    const int id = request.value("id").toInt();
    bool known = false;
    for (Task& task : context.installation().tasks) {
        const bool meant = task.id == id || (!task.play && task.target == id);
        if (meant && context.access().sees(task)) {
            task.enabled = request.value("enable").toBool();
            known = true;
        }
    }
    if (!known) {
        return refusal("error");
    }
    context.pushToOthers(makePush("task", "enable"));
    return success();
}

} // namespace

Commands taskCommands()
{
    const QLatin1String task("task");
    const Need administration{Right::Tasks, Level::Administration};
    return {
        {task, QLatin1String("list"), {Right::Session}, list},
        {task, QLatin1String("getPlays"), {Right::Session}, getPlays},
        {task, QLatin1String("add"), administration, add},
        {task, QLatin1String("edit"), administration, edit},
        {task, QLatin1String("delete"), administration, remove},
        {task, QLatin1String("enable"), administration, enable},
    };
}

} // namespace simulator
