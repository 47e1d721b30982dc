#pragma once

#include <QJsonObject>
#include <QString>

class Task;

/// The requests of tasks: the play event, and the stop event that belongs to it.
namespace TaskEvents
{

/// When an event happens: the days of a weekly one with commas between, the date "YYYY-MM-DD" and
/// the time "HH:mm", all in UTC.
struct Moment {
    QString days;
    QString date;
    QString time;
};

/// The fields of a play event as a task has them.
QJsonObject playFields(const Task& task, const QString& title);
/// The same, as a stop event of the task: it happens on the play event's day, or on the day behind
/// it where its time comes before the play event's.
QJsonObject stopFields(QJsonObject playEvent, int taskId, const QString& endTime);

/// The moment of the stop: on the day of the start, or the next.
Moment stopMoment(const Moment& start, const QString& endTime);

} // namespace TaskEvents
