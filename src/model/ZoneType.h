#pragma once

#include <QString>

/// A kind of zone: physical, of which a unit is in at most one, or logical.
class ZoneType
{
public:
    ZoneType() = default;
    ZoneType(int typeId, const QString& typeName, int typeNumber)
        : id(typeId), name(typeName), type(typeNumber)
    {
    }

    int getId() const { return id; }
    const QString& getName() const { return name; }
    int getType() const { return type; }

private:
    int id = 0;
    QString name;
    int type = 0;
};
