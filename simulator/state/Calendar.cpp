#include "simulator/state/Calendar.h"

#include <array>

namespace simulator
{

namespace
{

const QString dateForm = "yyyy-MM-dd";
const QString timeForm = "HH:mm";

constexpr std::array<const char*, 7> dayNames{"monday", "tuesday",  "wednesday", "thursday",
                                              "friday", "saturday", "sunday"};

QDate dateOf(const QString& text)
{
    return QDate::fromString(text, dateForm);
}

QStringList daysOf(const Task& event)
{
    return event.days.split(',', Qt::SkipEmptyParts);
}

bool isDay(const QString& name)
{
    return std::find(dayNames.begin(), dayNames.end(), name) != dayNames.end();
}

/// The rule of repeats, between the first day and the last.
bool repeatsOn(const Task& event, const QDate& first, const QDate& day)
{
    if (event.frequency == "weekly") {
        return daysOf(event).contains(dayNames[std::size_t(day.dayOfWeek()) - 1]);
    }
    if (event.frequency == "monthly") {
        return day.day() == first.day();
    }
    if (event.frequency == "annually") {
        return day.day() == first.day() && day.month() == first.month();
    }
    return event.frequency == "daily" || day == first;
}

} // namespace

bool isDatable(const Task& event)
{
    static const QStringList kinds{"once", "daily", "weekly", "monthly", "annually"};
    const QStringList days = daysOf(event);
    const bool hasDays = !days.isEmpty() && std::all_of(days.begin(), days.end(), isDay);
    return kinds.contains(event.frequency) && dateOf(event.startDate).isValid() &&
           QTime::fromString(event.startTime, timeForm).isValid() &&
           (event.endDate.isEmpty() || dateOf(event.endDate).isValid()) &&
           (event.frequency != "weekly" || hasDays);
}

bool isDue(const Task& event, const QDateTime& minute)
{
    const QDate day = minute.date();
    const QDate first = dateOf(event.startDate);
    const QDate last = dateOf(event.endDate).addDays(event.play ? 0 : 1);
    const bool isOver = event.frequency != "once" && last.isValid() && day > last;
    return event.enabled && minute.time().toString(timeForm) == event.startTime && day >= first &&
           !isOver && repeatsOn(event, first, day);
}

} // namespace simulator
