#pragma once

#include "page/ScriptCall.h"

#include <QString>
#include <QVector>

/// What a preset and a task store of the playback that they start: how it goes on, and where. Both
/// lists empty means all units.
class PlayDefinition
{
public:
    int getId() const { return id; }
    /// Only before the entry is in the mirror's list, or with the id that it has.
    void setId(int newId) { id = newId; }
    /// 1 to 32 characters, unique on the server.
    const QString& getTitle() const { return title; }
    /// The folder that plays.
    int getPlaylist() const { return playlist; }
    void setPlaylist(int folderId) { playlist = folderId; }
    /// What is repeated: "list" the folder, "track" the one track.
    const QString& getTargetPlaying() const { return targetPlaying; }
    /// Repeats after the first pass, so that 0 plays once; the pages show one more.
    int getRepeats() const { return repeats; }
    /// What the server does after the last pass: "pause" or "stop".
    const QString& getActionIfEnd() const { return actionIfEnd; }

    QVector<int>& getDeviceList() { return deviceList; }
    const QVector<int>& getDeviceList() const { return deviceList; }
    void setDeviceList(const QVector<int>& ids) { deviceList = ids; }
    QVector<int>& getZoneList() { return zoneList; }
    const QVector<int>& getZoneList() const { return zoneList; }
    void setZoneList(const QVector<int>& ids) { zoneList = ids; }
    bool isForAll() const { return deviceList.isEmpty() && zoneList.isEmpty(); }
    /// The units of both lists, each once: its own, then those of its zones that the mirror knows.
    QVector<int> targetUnits() const;

protected:
    /// Stores a value, and tells the page of a change; no page knows an entry without an id.
    template <class Value> void change(Value& field, const Value& value, const char* script)
    {
        if (field != value) {
            field = value;
            tell(script, field);
        }
    }
    template <class Value> void tell(const char* script, const Value& value) const
    {
        if (id != 0) {
            Page::call(script, id, value);
        }
    }

    int id = 0;
    QString title;
    int playlist = 0;
    QString targetPlaying;
    int repeats = 0;
    QString actionIfEnd;
    QVector<int> deviceList;
    QVector<int> zoneList;
};
