#pragma once

#include <QObject>
#include <QUdpSocket>

/// Listens for the announcement of a server, on every network of the machine, and writes the
/// address of the first one that is heard into the page. Nothing is sent.
class Discovery : public QObject
{
    Q_OBJECT
public:
    Discovery();

    /// Listens until an announcement comes or `stop`. Logs why nothing can be heard.
    void find();
    void stop();
    /// Takes the announcement that has come.
    void found();

private:
    QUdpSocket socket;
};
