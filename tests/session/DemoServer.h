#pragma once

#include <QProcess>
#include <QStringList>

/// The demo server as a process of its own, in which nothing happens of itself.
class DemoServer
{
public:
    /// Starts it with its files below `folder`, on a free port if `port` is 0; false if it doesn't
    /// come up.
    bool start(const QString& folder, quint16 port = 0, const QStringList& more = {});
    ~DemoServer();

    quint16 port() const { return listeningPort; }
    /// Types one command at its prompt.
    void tell(const QByteArray& command);
    /// Ends it like a power cut.
    void kill();
    /// What it has said since it came up.
    QByteArray output();

private:
    QProcess process;
    QByteArray said;
    quint16 listeningPort = 0;
};
