#include "protocol/input/InputProtocolTask.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "log/Log.h"
#include "model/Playback.h"
#include "model/Task.h"
#include "network/Fields.h"
#include "protocol/ProtocolTask.h"
#include "protocol/Request.h"

void inputProtocolTaskCommandAdd(const QJsonObject&)
{
    send(TaskCommand::List);
}

void inputProtocolTaskCommandEnable(const QJsonObject&)
{
    send(TaskCommand::List);
}

void inputProtocolTaskCommandEdit(const QJsonObject&)
{
    send(TaskCommand::List);
}

void inputProtocolTaskCommandStart(const QJsonObject& message)
{
    const auto taskId = Fields::integer(message, "taskId");
    const auto playbackId = Fields::integer(message, "playbackId");
    Task* const task = taskId && playbackId ? Data::getTaskById(*taskId) : nullptr;
    if (!task) {
        Log::dropped(QStringLiteral("Ignored start of an unknown task"));
        return;
    }
    task->setPlayback(*playbackId);
    if (Playback* const playback = Data::getPlaybackById(*playbackId)) {
        playback->setTaskId(*taskId); // the playback's own push has been faster
    }
}

void inputProtocolTaskCommandDelete(const QJsonObject& message)
{
    const auto id = Fields::integer(message, "id");
    Log::message(QStringLiteral("Deleted task: %1").arg(id.value_or(0)));
    if (id) {
        deleteTask(*id);
    }
}
