#pragma once

#include <QObject>
#include <QTimer>

class QAbstractSocket;

/// Lets the kernel find a peer that has vanished without closing, since the protocol has no
/// heartbeat: TCP keep-alive within some ten seconds while nothing is under way, the user time-out
/// after thirty seconds while sent data isn't acknowledged (a server may need that long to swallow
/// an image). The socket then reports an error and disconnects.
///
/// The kernel lets a user time-out replace the count of keep-alive probes, so the time-out is set
/// only while data waits.
class PeerWatch : public QObject
{
public:
    static constexpr int idleSeconds = 5;
    static constexpr int probeIntervalSeconds = 2;
    static constexpr int probeCount = 3;
    static constexpr int userTimeoutMilliseconds = 30000;

    /// Watches a connected socket until the next call or its destruction.
    void watch(QAbstractSocket* connectedSocket);
    /// To be called after each write.
    void dataWritten();
    void stop();

private:
    void lookForUnsentData();
    void setUserTimeout(int milliseconds);

    QAbstractSocket* socket = nullptr;
    QTimer drainTimer{this};
    bool timeoutSet = false;
};
