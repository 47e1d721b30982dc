#pragma once

#include <QString>
#include <QVector>

/// A node of the zone tree. Zone 0, "Все зоны", exists only in the console and stands for
/// everything; zone 1 is the server's root.
class Zone
{
public:
    int getId() const { return id; }
    void setId(int zoneId) { id = zoneId; }
    const QString& getName() const { return name; }
    void setName(const QString& zoneName) { name = zoneName; }
    /// 0 physical, 1 logical.
    int getType() const { return type; }
    void setType(int zoneType) { type = zoneType; }
    void setParentZone(int zoneId) { parentZone = zoneId; }

    /// Ids of the units in the zone.
    QVector<int>& getDeviceList() { return deviceList; }
    const QVector<int>& getDeviceList() const { return deviceList; }
    void includeDevice(int deviceId) { deviceList.append(deviceId); }

private:
    int id = 0;
    QString name;
    int type = 0;
    int parentZone = 0;
    QVector<int> deviceList;
};
