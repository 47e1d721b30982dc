#pragma once

#include <QString>

/// Whether a supervised line works.
enum class LineControlState { InOrder = 0, AtFault = 1 };

/// A supervised line of a unit, or a terminal device on it. Its setters tell the page on every
/// call, as soon as the unit that owns it is in the mirror.
class LineControl
{
public:
    explicit LineControl(int ownerId) : deviceId(ownerId) {}

    /// The address of the line or terminal, the key in its unit.
    quint8 getId() const { return id; }
    void setId(quint8 lineId) { id = lineId; }
    const QString& getName() const { return name; }
    void setName(const QString& lineName);
    /// Whether the unit has reported it and nobody has adopted it yet.
    bool isNew() const { return newlyReported; }
    void setNew(bool isNewLine);
    LineControlState getState() const { return state; }
    /// Refreshes the unit's indicator of all lines too.
    void setState(LineControlState lineState);

    /// Whether it turns the unit's indicator to fault. A new line never does.
    bool isFaulty() const { return state != LineControlState::InOrder && !newlyReported; }

    /// Adds the line to the page; `editable` comes from the unit that owns it.
    void addToPage(bool editable) const;

private:
    /// Calls `script` with what the row of the line shows; `editable` comes from the owner.
    void showRow(const char* script, bool editable) const;

    quint8 id = 0;
    int deviceId;
    QString name = QStringLiteral("Линия 1");
    bool newlyReported = false;
    LineControlState state = LineControlState::AtFault;
};
