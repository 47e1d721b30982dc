#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>

namespace simulator
{

class Server;
struct Task;

/// Starts and stops what the tasks say, minute by minute, and tells it.
class Schedule : public QObject
{
    Q_OBJECT

public:
    /// The server must outlive it.
    explicit Schedule(Server& server);

    /// Follows the clock from the next minute on.
    void start();
    /// Does what is due in a minute, in UTC.
    void fire(const QDateTime& minute);

private:
    void step();
    void play(const Task& event);
    void stop(const Task& event);

    Server& server;
    QTimer timer;
    QDateTime last; ///< the minute that is done
};

} // namespace simulator
