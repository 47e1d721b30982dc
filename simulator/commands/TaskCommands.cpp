#include "simulator/commands/CommandTable.h"
#include "simulator/commands/PlayFields.h"

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
    return {
        {task, QLatin1String("list"), {Right::Session}, list},
        {task, QLatin1String("getPlays"), {Right::Session}, getPlays},
        {task, QLatin1String("enable"), {Right::Tasks, Level::Administration}, enable},
    };
}

} // namespace simulator
