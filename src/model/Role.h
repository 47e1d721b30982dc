#pragma once

#include <QString>
#include <QVector>

/// The rights of a group of users. The server knows a role by its name; the id is the console's.
class Role
{
public:
    int getId() const { return id; }
    void setId(int roleId) { id = roleId; }
    const QString& getName() const { return name; }
    void setName(const QString& roleName) { name = roleName; }
    const QString& getTitle() const { return title; }
    void setTitle(const QString& roleTitle) { title = roleTitle; }
    /// Whether it is the role of the logged-in user.
    bool getCurrent() const { return current; }
    void setCurrent(bool isCurrent) { current = isCurrent; }
    bool getZoneManagement() const { return zoneManagement; }
    void setZoneManagement(bool allowed) { zoneManagement = allowed; }
    bool getDeviceManagement() const { return deviceManagement; }

    QVector<int> zones; ///< ids of the zones open to the role

private:
    int id = 0;
    QString name;
    QString title;
    bool current = false;
    bool zoneManagement = false;
    bool deviceManagement = true;
};
