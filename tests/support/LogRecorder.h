#pragma once

#include <QStringList>

/// Reads what the program's own log has got since the recorder was made. The first one of a test
/// program sends the log to a temporary folder, so make it before anything is logged.
class LogRecorder
{
public:
    LogRecorder();

    /// The texts of the lines so far, without their time and port.
    QStringList lines() const;
    bool contains(const QString& text) const { return lines().contains(text); }
    bool hasLineWith(const QString& part) const { return !lines().filter(part).isEmpty(); }

private:
    qint64 start = 0;
};
