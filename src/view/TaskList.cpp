#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Playlist.h"
#include "model/Task.h"
#include "model/TaskTargets.h"
#include "model/Track.h"
#include "model/Zone.h"
#include "page/ScriptCall.h"
#include "protocol/DeviceState.h"
#include "protocol/PlayFields.h"
#include "protocol/Request.h"
#include "protocol/TaskEvents.h"
#include "view/ScriptPipe.h"
#include "view/SlotLog.h"

#include <QTimeZone>

#include <algorithm>

namespace
{

void logTask(const Task& task)
{
    Log::message(QStringLiteral("Load task: %1 - ").arg(task.getId()) + task.getTitle(),
                 LogLevel::TaskSettings);
}

bool concerns(const Task& task, const Device& device)
{
    const QVector<int>& zones = device.getZoneList();
    return task.isForAll() || task.getDeviceList().contains(device.getId()) ||
           std::any_of(zones.begin(), zones.end(),
                       [&](int zone) { return task.getZoneList().contains(zone); });
}

const QString everyDay = QStringLiteral("monday,tuesday,wednesday,thursday,friday,saturday,sunday");

void showTargets(const Task& task)
{
    const int id = task.getId();
    Page::call("wrapperInput_task_clearDevices", id);
    Page::call("wrapperInput_task_clearZones", id);
    QVector<int> zones = task.getZoneList();
    QVector<int> devices = task.getDeviceList();
    if (task.isForAll()) {
        for (const Zone& zone : Data::zoneList) {
            zones.append(zone.getId());
        }
        for (const Device& device : Data::deviceList) {
            devices.append(device.getId());
        }
    }
    for (const int zone : qAsConst(zones)) {
        Page::call("wrapperInput_task_selectZone", id, zone);
    }
    for (const int device : qAsConst(devices)) {
        Page::call("wrapperInput_task_selectDevice", id, device);
    }
}

void showForm(const Task& task)
{
    const int id = task.getId();
    const Playlist* const folder = Data::getPlaylistById(task.getPlaylist());
    const Track* const known = Data::getTrackById(task.getTrack());
    const Track* const track = known ? known : Data::getFirstTrackInPlaylist(task.getPlaylist());
    Page::call("wrapperInput_task_select", id);
    Page::call("wrapperInput_task_setId", id);
    Page::call("wrapperInput_task_setTitle", id, task.getTitle());
    Page::call("wrapperInput_task_setFrequencyRate", id, 0);
    Page::call("wrapperInput_task_setEnabled", id, QString::number(task.getState()));
    Page::call("wrapperInput_task_setFrequency", id, task.getFrequency());
    if (task.isWeekly()) {
        Page::call("wrapperInput_task_setWeeklyDays", id, task.getWeeklyDays());
    }
    Page::call("wrapperInput_task_setPlaylist", id, folder ? folder->getTitle() : QString());
    Page::call("wrapperInput_task_setTrack", id, track ? track->getTitle() : QString());
    Page::call("wrapperInput_task_setStartDateTime", id, task.getStart());
    Page::call("wrapperInput_task_setEndDate", id, task.getEndDate());
    Page::call("wrapperInput_task_setEndTime", id, task.getEndTime());
    Page::call("wrapperInput_task_setTargetPlaying", id, task.getTargetPlaying());
    Page::call("wrapperInput_task_setRepeats", id, task.getRepeats());
    Page::call("wrapperInput_task_setActionIfEnd", id, task.getActionIfEnd());
    showTargets(task);
}

/// A task as the operator has filled it in; folder and track are the caller's.
struct Draft {
    Task task;
    QString endTime;
};

void fill(Draft& draft, const QString& frequency, const QString& days, const QString& startDateTime,
          const QString& endDate, const QList<int>& zones, const QList<int>& devices,
          const QVariantMap& reply)
{
    draft.task.setFrequency(frequency);
    draft.task.setWeeklyDays(days);
    draft.task.setStartDate(startDateTime.section(QLatin1Char(' '), 0, 0));
    draft.task.setStartTime(startDateTime.section(QLatin1Char(' '), 1, 1));
    draft.task.setEndDate(endDate);
    draft.task.setZoneList(zones.toVector());
    draft.task.setDeviceList(devices.toVector());
    draft.task.setTargetPlaying(reply.value(QStringLiteral("replayType")).toString());
    draft.task.setRepeats(reply.value(QStringLiteral("replyCount")).toInt() - 1);
    draft.task.setActionIfEnd(reply.value(QStringLiteral("action")).toString());
    draft.endTime = reply.value(QStringLiteral("endTime")).toString();
}

/// The stop event follows what the form says of it: it is taken away, changed or made.
void sendStop(const Task& known, const QJsonObject& playEvent, const QString& endTime)
{
    if (endTime.isEmpty()) {
        if (known.getEndId() > 0) {
            send(TaskCommand::Delete, {{QStringLiteral("id"), known.getEndId()}});
        }
        return;
    }
    QJsonObject stop = TaskEvents::stopFields(playEvent, known.getId(), endTime);
    if (known.getEndId() > 0) {
        stop.insert(QStringLiteral("id"), known.getEndId());
        send(TaskCommand::Edit, stop);
    } else {
        stop.remove(QStringLiteral("id"));
        send(TaskCommand::Add, stop);
    }
}

} // namespace

void WebView::task_loadList()
{
    const SlotLog log("task_loadList", {}, LogLevel::TaskSettings);
    {
        const ScriptPipe::Gathering list(scripts);
        Page::call("wrapperInput_task_initScheduler");
        for (const Task& task : Data::tasks) {
            logTask(task);
            if (task.getState()) {
                task.addToPage();
            }
        }
        Page::call("wrapperInput_task_buildScheduler");
    }
    scripts.flush();
}

void WebView::task_loadTask(int deviceId)
{
    const SlotLog log("task_loadTask", QStringLiteral(": %1").arg(deviceId),
                      LogLevel::TaskSettings);
    const Device* const device = Data::getDeviceById(deviceId);
    if (!device) {
        return;
    }
    {
        const ScriptPipe::Gathering list(scripts);
        Page::call("wrapperInput_task_clean");
        for (const Task& task : Data::tasks) {
            if (task.getState() && concerns(task, *device)) {
                task.addToPage();
            }
        }
        Page::call("wrapperInput_task_buildScheduler");
    }
    scripts.flush();
}

void WebView::task_loadDeviceList()
{
    const SlotLog log("task_loadDeviceList", {}, LogLevel::TaskSettings);
    {
        const ScriptPipe::Gathering list(scripts);
        const QVector<int> units = getDeviceListFromTasks();
        for (const int id : units) {
            if (const Device* const device = Data::getDeviceById(id)) {
                DeviceState::addToPage(*device);
            }
        }
    }
    scripts.flush();
}

QString WebView::task_zoneName()
{
    return QString::fromLatin1(QTimeZone::systemTimeZoneId());
}

void WebView::admin_loadTaskList()
{
    const SlotLog log("admin_loadTaskList", {}, LogLevel::TaskSettings);
    const Task* first = nullptr;
    {
        const ScriptPipe::Gathering list(scripts);
        for (const Task& task : Data::tasks) {
            if (task.getType() == QLatin1String("play")) {
                logTask(task);
                task.addToPage();
                Page::call("wrapperInput_task_setEnabled", task.getId(),
                           QString::number(task.getState()));
                first = first ? first : &task;
            }
        }
    }
    scripts.flush();
    if (first) {
        admin_selectTask(first->getId());
    }
}

void WebView::admin_selectTask(int id)
{
    const SlotLog log("admin_selectTask", QStringLiteral(": %1").arg(id), LogLevel::TaskSettings);
    {
        const ScriptPipe::Gathering form(scripts);
        if (const Task* const task = Data::getTaskById(id)) {
            showForm(*task);
        }
    }
    scripts.flush();
}

void WebView::admin_loadTaskWeekDays(int id)
{
    const SlotLog log("admin_loadTaskWeekDays", QStringLiteral(": %1").arg(id),
                      LogLevel::TaskSettings);
    if (const Task* const task = Data::getTaskById(id)) {
        Page::call("wrapperInput_task_setWeeklyDays", id,
                   task->isWeekly() ? task->getWeeklyDays() : everyDay);
    }
}

void WebView::admin_addTask(const QString& name, const QString& type, const QString& weeklyDays,
                            const QString& startDateTime, const QString& endDate, int playlist,
                            int track, const QList<int>& zones, const QList<int>& devices,
                            const QVariantMap& reply)
{
    const SlotLog log("admin_addTask", QStringLiteral(": ") + name, LogLevel::TaskSettings);
    Draft draft;
    fill(draft, type, weeklyDays, startDateTime, endDate, zones, devices, reply);
    draft.task.setState(true);
    draft.task.setPlaylist(playlist);
    draft.task.setTrack(track);
    QJsonObject fields = TaskEvents::playFields(draft.task, name);
    fields.insert(QStringLiteral("endTime"), draft.endTime);
    send(TaskCommand::Add, fields);
}

void WebView::admin_editTask(int id, const QString& name, const QString& type, bool state,
                             const QString& weeklyDays, const QString& startDateTime,
                             const QString& endDate, const QList<int>& zones,
                             const QList<int>& devices, const QVariantMap& reply)
{
    const SlotLog log("admin_editTask", QStringLiteral(": %1, ").arg(id) + name,
                      LogLevel::TaskSettings);
    const Task* const known = Data::getTaskById(id);
    if (!known) {
        return;
    }
    Draft draft;
    fill(draft, type, weeklyDays, startDateTime, endDate, zones, devices, reply);
    draft.task.setState(state);
    draft.task.setPlaylist(known->getPlaylist());
    draft.task.setTrack(known->getTrack());
    QJsonObject fields = TaskEvents::playFields(draft.task, name);
    fields.insert(QStringLiteral("id"), id);
    send(TaskCommand::Edit, fields);
    sendStop(*known, fields, draft.endTime);
}

void WebView::admin_copyTask(int id, const QString& title)
{
    const SlotLog log("admin_copyTask", QStringLiteral(": %1, ").arg(id) + title,
                      LogLevel::TaskSettings);
    if (const Task* const task = Data::getTaskById(id)) {
        QJsonObject fields = TaskEvents::playFields(*task, title);
        fields.insert(QStringLiteral("endTime"), task->getEndTime());
        send(TaskCommand::Add, fields);
    }
}

void WebView::admin_deleteTask(int id)
{
    const SlotLog log("admin_deleteTask", QStringLiteral(": %1").arg(id), LogLevel::TaskSettings);
    send(TaskCommand::Delete,
         {{QStringLiteral("id"), id}, {QStringLiteral("deleteStopEvents"), true}});
}

void WebView::admin_enableTask(int id, bool state)
{
    const SlotLog log("admin_enableTask", QStringLiteral(": %1, %2").arg(id).arg(state),
                      LogLevel::TaskSettings);
    send(TaskCommand::Enable, {{QStringLiteral("id"), id}, {QStringLiteral("enable"), state}});
}
