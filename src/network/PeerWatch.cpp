#include "network/PeerWatch.h"

#include <QAbstractSocket>

#ifdef Q_OS_LINUX
#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#endif

namespace
{

/// How often unacknowledged data is looked for, while there is some: the kernel has no signal for
/// the moment when the last byte is acknowledged.
constexpr int drainCheckMilliseconds = 500;

#ifdef Q_OS_LINUX
void setTcpOption(int descriptor, int option, int value)
{
    setsockopt(descriptor, IPPROTO_TCP, option, &value, sizeof(value));
}
#endif

} // namespace

void PeerWatch::watch(QAbstractSocket* connectedSocket)
{
    socket = connectedSocket;
    timeoutSet = false;
    socket->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
#ifdef Q_OS_LINUX
    const int descriptor = static_cast<int>(socket->socketDescriptor());
    setTcpOption(descriptor, TCP_KEEPIDLE, idleSeconds);
    setTcpOption(descriptor, TCP_KEEPINTVL, probeIntervalSeconds);
    setTcpOption(descriptor, TCP_KEEPCNT, probeCount);
#endif
    drainTimer.setInterval(drainCheckMilliseconds);
    drainTimer.callOnTimeout(this, &PeerWatch::lookForUnsentData, Qt::UniqueConnection);
}

void PeerWatch::stop()
{
    drainTimer.stop();
    socket = nullptr;
}

void PeerWatch::dataWritten()
{
    if (!socket) {
        return;
    }
    if (!timeoutSet) {
        setUserTimeout(userTimeoutMilliseconds);
    }
    if (!drainTimer.isActive()) {
        drainTimer.start();
    }
}

void PeerWatch::lookForUnsentData()
{
    int waiting = 0;
#ifdef Q_OS_LINUX
    ioctl(static_cast<int>(socket->socketDescriptor()), SIOCOUTQ, &waiting);
#endif
    if (waiting == 0 && socket->bytesToWrite() == 0) {
        setUserTimeout(0);
        drainTimer.stop();
    }
}

void PeerWatch::setUserTimeout(int milliseconds)
{
    timeoutSet = milliseconds != 0;
#ifdef Q_OS_LINUX
    setTcpOption(static_cast<int>(socket->socketDescriptor()), TCP_USER_TIMEOUT, milliseconds);
#endif
}
