#pragma once

#include "model/PlayDefinition.h"

/// A play command with a calendar: the server starts it at its time, and then by its repeats. Dates
/// are "YYYY-MM-DD", times "HH:mm", both in UTC as they travel; the stop is an event of its own on
/// the wire, which belongs to this one. Setters with a script tell the page of a change.
class Task : public PlayDefinition
{
public:
    /// The kind of its event, "play".
    const QString& getType() const { return type; }
    void setType(const QString& event) { change(type, event, "wrapperInput_task_setType"); }
    /// Whether it is switched on.
    bool getState() const { return state; }
    void setState(bool enabled);
    /// "once", "daily", "weekly", "monthly" or "annually".
    const QString& getFrequency() const { return frequency; }
    void setFrequency(const QString& word)
    {
        change(frequency, word, "wrapperInput_task_setFrequency");
    }
    bool isWeekly() const { return frequency == QLatin1String("weekly"); }
    /// English day names with commas between, without blanks.
    const QString& getWeeklyDays() const { return weeklyDays; }
    void setWeeklyDays(QString days)
    {
        change(weeklyDays, days.remove(QLatin1Char(' ')), "wrapperInput_task_setWeeklyDays");
    }
    const QString& getStartDate() const { return startDate; }
    void setStartDate(const QString& date) { changeStart(startDate, date); }
    const QString& getStartTime() const { return startTime; }
    void setStartTime(const QString& time) { changeStart(startTime, time); }
    QString getStart() const { return startDate + QLatin1Char(' ') + startTime; }
    /// The last day of the repeats; empty without an end.
    const QString& getEndDate() const { return endDate; }
    void setEndDate(const QString& date) { change(endDate, date, "wrapperInput_task_setEndDate"); }
    /// When it stops; empty without a stop event.
    const QString& getEndTime() const { return endTime; }
    void setEndTime(const QString& time) { change(endTime, time, "wrapperInput_task_setEndTime"); }
    /// The stop event, 0 without one.
    int getEndId() const { return endId; }
    void setEndId(int eventId) { endId = eventId; }
    /// The first track.
    int getTrack() const { return track; }
    void setTrack(int trackId) { track = trackId; }
    /// The id of the playback that it has started, 0 for none.
    int getPlayback() const { return playback; }
    void setPlayback(int playbackId) { playback = playbackId; }

    void setTitle(const QString& text) { change(title, text, "wrapperInput_task_setTitle"); }
    void setTargetPlaying(const QString& what)
    {
        change(targetPlaying, what, "wrapperInput_task_setTargetPlaying");
    }
    void setRepeats(int count) { change(repeats, count, "wrapperInput_task_setRepeats"); }
    void setActionIfEnd(const QString& action)
    {
        change(actionIfEnd, action, "wrapperInput_task_setActionIfEnd");
    }

    /// Adds it to the page; the category is 0 while the mirror doesn't know its folder.
    void addToPage() const;

private:
    void changeStart(QString& part, const QString& value);

    QString type;
    bool state = false;
    QString frequency = QStringLiteral("once");
    QString weeklyDays;
    QString startDate;
    QString startTime;
    QString endDate;
    QString endTime;
    int endId = 0;
    int track = 0;
    int playback = 0;
};
