#pragma once

#include <QObject>
#include <QRandomGenerator>
#include <QTimer>

namespace simulator
{

class Server;

/// What happens of itself: units drop and come back, batteries drain and charge, a second operator
/// comes by. What somebody has set at the prompt stays as it is.
class Life : public QObject
{
    Q_OBJECT

public:
    /// The server must outlive it. The same seed gives the same events, counted in steps.
    Life(Server& living, quint32 seed);

    /// Lets time pass by itself, one step each second.
    void start();
    /// One step: moves the units under way on, and now and then begins something new.
    void step();

private:
    void lose();
    void reconnect();
    void drain();
    void visit();

    Server& server;
    QRandomGenerator chance;
    QTimer timer;
    int visitors = 0; ///< the second operator's playback, 0 for none
};

} // namespace simulator
