#include "model/Task.h"

#include "app/Data.h"
#include "model/Playlist.h"

void Task::setState(bool enabled)
{
    if (state != enabled) {
        state = enabled;
        tell("wrapperInput_task_setEnabled", QString::number(state));
    }
}

void Task::changeStart(QString& part, const QString& value)
{
    if (part != value) {
        part = value;
        tell("wrapperInput_task_setStartDateTime", getStart());
    }
}

void Task::addToPage() const
{
    const Playlist* const folder = Data::getPlaylistById(playlist);
    Page::call("wrapperInput_task_add", id, title, folder ? folder->getGroup() : 0, frequency,
               startDate, startTime, weeklyDays, endDate, endTime);
}
