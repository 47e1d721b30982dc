#include "protocol/TaskEvents.h"

#include "model/Task.h"
#include "protocol/PlayFields.h"

#include <QDate>
#include <QStringList>

namespace
{

QString dayBehind(const QString& day)
{
    static const QStringList week{"monday", "tuesday",  "wednesday", "thursday",
                                  "friday", "saturday", "sunday"};
    const int index = week.indexOf(day);
    return index < 0 ? day : week.at((index + 1) % week.size());
}

QString daysBehind(const QString& days)
{
    QStringList moved;
    for (const QString& day : days.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        moved.append(dayBehind(day.trimmed()));
    }
    return moved.join(QLatin1Char(','));
}

} // namespace

QJsonObject TaskEvents::playFields(const Task& task, const QString& title)
{
    QJsonObject fields{{QStringLiteral("title"), title},
                       {QStringLiteral("enable"), task.getState()},
                       {QStringLiteral("event"), QStringLiteral("play")},
                       {QStringLiteral("eventId"), task.getPlaylist()},
                       {QStringLiteral("trackId"), task.getTrack()},
                       {QStringLiteral("frequency"), task.getFrequency()},
                       {QStringLiteral("step"), 1},
                       {QStringLiteral("startDate"), task.getStartDate()},
                       {QStringLiteral("startTime"), task.getStartTime()},
                       {QStringLiteral("endDate"), task.getEndDate()},
                       {QStringLiteral("zones"), PlayFields::idArray(task.getZoneList())},
                       {QStringLiteral("devices"), PlayFields::idArray(task.getDeviceList())},
                       {QStringLiteral("targetPlaying"), task.getTargetPlaying()},
                       {QStringLiteral("repeats"), task.getRepeats()},
                       {QStringLiteral("actionIfEnd"), task.getActionIfEnd()}};
    if (task.isWeekly()) {
        fields.insert(QStringLiteral("days"), task.getWeeklyDays());
    }
    return fields;
}

TaskEvents::Moment TaskEvents::stopMoment(const Moment& start, const QString& endTime)
{
    if (endTime > start.time) {
        return {start.days, start.date, endTime};
    }
    const QDate next = QDate::fromString(start.date, Qt::ISODate).addDays(1);
    return {daysBehind(start.days), next.isValid() ? next.toString(Qt::ISODate) : start.date,
            endTime};
}

QJsonObject TaskEvents::stopFields(QJsonObject playEvent, int taskId, const QString& endTime)
{
    const Moment stop = stopMoment({playEvent.value(QLatin1String("days")).toString(),
                                    playEvent.value(QLatin1String("startDate")).toString(),
                                    playEvent.value(QLatin1String("startTime")).toString()},
                                   endTime);
    playEvent.insert(QStringLiteral("title"),
                     playEvent.value(QLatin1String("title")).toString() + QLatin1String("_stop"));
    playEvent.insert(QStringLiteral("event"), QStringLiteral("stop"));
    playEvent.insert(QStringLiteral("eventId"), taskId);
    playEvent.insert(QStringLiteral("startDate"), stop.date);
    playEvent.insert(QStringLiteral("startTime"), stop.time);
    if (playEvent.contains(QLatin1String("days"))) {
        playEvent.insert(QStringLiteral("days"), stop.days);
    }
    playEvent.remove(QStringLiteral("endTime"));
    return playEvent;
}
