#pragma once

#include <QObject>
#include <QTimer>

/// The timer of the screen lock: tells of each idle time of `admin/block_time`, while
/// `Data::blockStatus` says that the lock is on.
class IdleLock : public QObject
{
    Q_OBJECT
public:
    static constexpr int millisecondsInMinute = 60000;

    IdleLock();

    /// The stored idle time, read afresh. A value that is no time gives ten minutes: a lock that
    /// comes back at once could never be opened.
    static int idleMilliseconds();

    /// The operator has done something, or the setting has changed: the time begins anew, or ends.
    void reset();
    void stop();

Q_SIGNALS:
    void idle();

private:
    QTimer timer{this};
};
