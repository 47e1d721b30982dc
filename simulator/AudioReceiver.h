#pragma once

#include "simulator/wire/TransportStreamWatch.h"

#include <QHostAddress>
#include <QTimer>
#include <QUdpSocket>

namespace simulator
{

/// The port to which a console sends its microphone. Nobody hears it; once a second, while
/// something comes, it says what.
class AudioReceiver : public QObject
{
    Q_OBJECT

public:
    AudioReceiver();

    /// Opens a free UDP port, in place of one that is open. 0 when there is none.
    quint16 open(const QHostAddress& address);
    void close();

Q_SIGNALS:
    /// A line for the person who watches the server.
    void said(const QString& line);

private:
    void receive();
    void report();

    QUdpSocket socket;
    QTimer timer;
    TransportStreamWatch watch;
};

} // namespace simulator
