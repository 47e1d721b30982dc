#pragma once

class QJsonObject;

/// Makes the new task, and its stop event behind it.
void protocolTaskCommandAdd(const QJsonObject& reply);
void protocolTaskCommandEdit(const QJsonObject& reply);
/// A task, or the stop event of one.
void protocolTaskCommandDelete(const QJsonObject& reply);
void protocolTaskCommandEnable(const QJsonObject& reply);
void protocolTaskCommandList(const QJsonObject& reply);
/// Which playbacks tasks have started.
void protocolTaskCommandGetPlays(const QJsonObject& reply);

/// Takes the task with that id out of the mirror, or the stop event from its task.
void deleteTask(int eventId);
