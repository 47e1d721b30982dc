#pragma once

#include <QString>
#include <QVector>

/// A play command with a calendar.
class Task
{
public:
    int getId() const { return id; }
    void setId(int taskId) { id = taskId; }
    const QString& getTitle() const { return title; }
    void setTitle(const QString& newTitle) { title = newTitle; }
    /// The id of the playback that it has started, 0 for none.
    int getPlayback() const { return playback; }
    void setPlayback(int playbackId) { playback = playbackId; }
    /// Whether the task is switched on.
    bool getState() const { return state; }
    void setState(bool enabled) { state = enabled; }
    /// The target units and zones, by id; both empty means all units.
    QVector<int>& getDeviceList() { return deviceList; }
    const QVector<int>& getDeviceList() const { return deviceList; }
    QVector<int>& getZoneList() { return zoneList; }
    const QVector<int>& getZoneList() const { return zoneList; }

private:
    int id = 0;
    QString title;
    int playback = 0;
    bool state = false;
    QVector<int> deviceList;
    QVector<int> zoneList;
};
