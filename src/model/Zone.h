#pragma once

#include <QString>
#include <QVector>

/// A node of the zone tree. Zone 0, "Все зоны", exists only in the console and stands for
/// everything; zone 1 is the server's root, which holds the units that are in no other zone.
class Zone
{
public:
    static constexpr int everything = 0;
    static constexpr int serverRoot = 1;

    int getId() const { return id; }
    /// Only before the zone is in the mirror's list.
    void setId(int zoneId) { id = zoneId; }
    const QString& getName() const { return name; }
    /// Tells the page of a change.
    void setName(const QString& zoneName);
    /// 0 physical, 1 logical; a unit is in at most one physical zone.
    int getType() const { return type; }
    void setType(int zoneType) { type = zoneType; }
    bool isLogic() const { return type == 1; }
    /// The parent, or 0 while the mirror doesn't know it.
    int getParentZone() const;
    /// The parent as the server named it, known or not.
    int getNamedParent() const { return parentZone; }
    void setParentZone(int zoneId) { parentZone = zoneId; }
    /// The parent's name, that of zone 0 while the mirror doesn't know it.
    QString getParentName() const;

    /// Ids of the children.
    QVector<int>& getSubZoneList() { return subZoneList; }
    const QVector<int>& getSubZoneList() const { return subZoneList; }
    void addSubZone(int zoneId) { subZoneList.append(zoneId); }

    /// Ids of the units in the zone.
    QVector<int>& getDeviceList() { return deviceList; }
    const QVector<int>& getDeviceList() const { return deviceList; }
    void includeDevice(int deviceId) { deviceList.append(deviceId); }
    void excludeDevice(int deviceId) { deviceList.removeAll(deviceId); }
    void clearDeviceList() { deviceList.clear(); }

    /// Whether its units are to be asked to leave, and its deletion asked for behind each, after
    /// the server has said that they keep it from being deleted: not where the last such round has
    /// moved nobody.
    bool beginEmptying();
    /// Counts a refused deletion. False while others of a round are still to be answered.
    bool endsEmptying();

    /// Adds the zone to the page, below that zone. The page drops a zone that it has already, or
    /// whose parent it hasn't.
    void addToPage(int shownParent) const;
    void addToPage() const { addToPage(getParentZone()); }

private:
    int id = 0;
    QString name;
    int type = 0;
    int parentZone = 0;
    QVector<int> subZoneList;
    QVector<int> deviceList;
    int emptyingStart = 0;   ///< units at the beginning of the round, 0 without one
    int emptyingAnswers = 0; ///< that are still to come
};
