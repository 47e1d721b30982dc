#include "protocol/ProtocolTask.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Role.h"
#include "model/Task.h"
#include "page/ScriptCall.h"
#include "protocol/Commands.h"
#include "protocol/PlayFields.h"
#include "protocol/Protocols.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"
#include "protocol/TaskEvents.h"

#include <tuple>

namespace
{

constexpr CommandRow commands[] = {
    {"add", protocolTaskCommandAdd},       {"edit", protocolTaskCommandEdit},
    {"enable", protocolTaskCommandEnable}, {"delete", protocolTaskCommandDelete},
    {"list", protocolTaskCommandList},     {"getPlays", protocolTaskCommandGetPlays},
};

bool isEvent(const QJsonObject& event, const char* word)
{
    return event.value(QLatin1String("event")) == QLatin1String(word);
}

void readFields(Task& task, const QJsonObject& event)
{
    FieldSetter set(task, event, "task");
    PlayFields::read(set);
    set.boolean("enable", &Task::setState);
    set.text("frequency", &Task::setFrequency);
    set.text("startDate", &Task::setStartDate);
    set.text("startTime", &Task::setStartTime);
    set.text("endDate", &Task::setEndDate);
    set.integer("eventId", &Task::setPlaylist);
    set.integer("trackId", &Task::setTrack);
    set.text("event", &Task::setType);
    if (task.isWeekly()) {
        set.text("days", &Task::setWeeklyDays);
    }
}

/// The page knows neither folder, track nor targets by scripts of their own.
void refresh(Task& task, const QJsonObject& event)
{
    const auto shown = [&task] {
        return std::make_tuple(task.getPlaylist(), task.getTrack(), task.getZoneList(),
                               task.getDeviceList());
    };
    const auto before = shown();
    readFields(task, event);
    if (shown() != before) {
        task.addToPage();
    }
}

Task& addTask(int id, const QJsonObject& event)
{
    auto made = std::make_unique<Task>();
    made->setId(id);
    readFields(*made, event);
    Task& task = *Data::tasks.append(std::move(made));
    task.addToPage();
    return task;
}

/// The stop event of a task that the mirror knows.
void takeStop(int id, const QJsonObject& event)
{
    const auto taskId = Fields::integer(event, "eventId");
    const auto time = Fields::text(event, "startTime");
    Task* const task = taskId ? Data::getTaskById(*taskId) : nullptr;
    if (task && time) {
        task->setEndId(id);
        task->setEndTime(*time);
    } else {
        Log::dropped(QStringLiteral("Ignored stop event %1: its task is unknown").arg(id));
    }
}

void addedPlay(int id, const QJsonObject& asked)
{
    Task* const known = Data::getTaskById(id);
    const Task& task = known ? *known : addTask(id, asked);
    Page::call("modalAdminAddTaskHide");
    Page::call("modalAdminCopyTaskCancel");
    const QString endTime = asked.value(QLatin1String("endTime")).toString();
    if (!endTime.isEmpty()) {
        QJsonObject fields = TaskEvents::playFields(task, task.getTitle());
        fields.insert(QStringLiteral("enable"), true);
        send(TaskCommand::Add, TaskEvents::stopFields(fields, id, endTime));
    }
}

/// The events of a list by their ids; one without is left out with a log line.
template <class Take> void eachEvent(const QJsonArray& events, const char* kind, Take take)
{
    for (const QJsonValue& value : events) {
        const QJsonObject event = value.toObject();
        if (!isEvent(event, kind)) {
            continue;
        }
        if (const auto id = Fields::integer(event, "id")) {
            take(*id, event);
        } else {
            Log::dropped(QStringLiteral("Dropped task of the list: no id"));
        }
    }
}

} // namespace

void initProtocolTask(NetworkParser* parser)
{
    registerProtocol<TaskCommand>(parser, "task", commands);
}

void protocolTaskCommandAdd(const QJsonObject& reply)
{
    showRefusal(reply, PlayFields::addRefusals);
    const int id = Fields::integer(reply, "id").value_or(0);
    const QJsonObject asked = request(reply);
    if (!succeeded(reply) || id == 0) {
        return;
    }
    if (isEvent(asked, "play")) {
        addedPlay(id, asked);
    } else if (isEvent(asked, "stop")) {
        takeStop(id, asked);
    }
}

void protocolTaskCommandEdit(const QJsonObject& reply)
{
    showRefusal(reply, PlayFields::editRefusals);
    const QJsonObject asked = request(reply);
    const int id = Fields::integer(asked, "id").value_or(0);
    if (!succeeded(reply)) {
        return;
    }
    if (isEvent(asked, "stop")) {
        takeStop(id, asked);
    } else if (Task* const task = Data::getTaskById(id)) {
        refresh(*task, asked);
        Page::call("modalAdminTaskSavedShow");
    }
}

void deleteTask(int eventId)
{
    Task* const stopped =
        Data::tasks.findIf([=](const Task& task) { return task.getEndId() == eventId; });
    if (stopped) {
        stopped->setEndId(0);
        stopped->setEndTime({});
    }
    if (const Task* const task = Data::getTaskById(eventId)) {
        Page::call("wrapperInput_task_delete", eventId);
        Data::tasks.remove(task);
    }
}

void protocolTaskCommandDelete(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "id");
    if (succeeded(reply) && id) {
        deleteTask(*id);
        for (Role& role : Data::roleList) {
            role.tasks.removeAll(*id);
        }
    }
}

void protocolTaskCommandEnable(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "id");
    const auto enabled = Fields::boolean(request(reply), "enable");
    Task* const task = succeeded(reply) && id && enabled ? Data::getTaskById(*id) : nullptr;
    if (task) {
        task->setState(*enabled);
    }
}

void protocolTaskCommandList(const QJsonObject& reply)
{
    const auto events = Fields::array(reply, "tasks");
    if (!succeeded(reply) || !events) {
        Log::dropped(QStringLiteral("Ignored tasks: no list"));
        return;
    }
    eachEvent(*events, "play", [](int id, const QJsonObject& event) {
        if (Task* const known = Data::getTaskById(id)) {
            refresh(*known, event);
        } else {
            Log::message(QStringLiteral("New task %1").arg(id));
            addTask(id, event);
        }
    });
    eachEvent(*events, "stop", takeStop); // one may stand before its play event
}

void protocolTaskCommandGetPlays(const QJsonObject& reply)
{
    const auto plays = Fields::array(reply, "list");
    if (!succeeded(reply) || !plays) {
        Log::dropped(QStringLiteral("Ignored playbacks of tasks: no list"));
        return;
    }
    for (const QJsonValue& value : *plays) {
        const auto taskId = Fields::integer(value.toObject(), "taskId");
        const auto playbackId = Fields::integer(value.toObject(), "playbackId");
        Task* const task = taskId && playbackId ? Data::getTaskById(*taskId) : nullptr;
        if (!task) {
            continue;
        }
        task->setPlayback(*playbackId);
        if (Playback* const playback = Data::getPlaybackById(*playbackId)) {
            playback->setTaskId(*taskId);
        }
    }
}
