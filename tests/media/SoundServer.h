#pragma once

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>

/// A sound server of a test's own, and the only one that the test's process sees: the input
/// "mic.monitor" hears a tone, the input "spare.monitor" can be pulled out.
class SoundServer
{
public:
    static constexpr double toneHertz = 1000;

    SoundServer();
    ~SoundServer();
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    /// Starts it; what is missing for that on this machine, or nothing where it runs.
    QString start();
    /// How many captures are open.
    int captureCount() const;
    void pullOutSpare() const;
    /// What a tool prints, run to its end.
    static QByteArray output(const QString& program, const QStringList& arguments);

private:
    QTemporaryDir folder;
    QProcess process;
};
