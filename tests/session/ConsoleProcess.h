#pragma once

#include <QProcess>
#include <QString>

/// The program as a process of its own, as it is shipped.
class ConsoleProcess
{
public:
    ConsoleProcess() = default;
    ~ConsoleProcess();
    Q_DISABLE_COPY(ConsoleProcess)

    /// Starts it with its data below `dataRoot`, on an X display unless `display` is empty.
    void start(const QString& dataRoot, const QStringList& arguments = {},
               const QString& display = {});
    /// Whether a line with this text, as a regular expression, comes behind those that an earlier
    /// call has found.
    bool waitForLine(const QString& pattern);
    /// All that it has said so far.
    const QString& output();
    void interrupt() const;
    bool isRunning() const { return process.state() == QProcess::Running; }
    /// Whether it ends of itself, with code 0.
    bool waitForEnd();

private:
    QProcess process;
    QString said;
    int looked = 0; ///< how much of it has been looked at
};
