#include "simulator/UploadReceiver.h"

#include <QElapsedTimer>

namespace simulator
{

namespace
{

/// How long the server stands still for a console that says it is through and isn't.
constexpr int patience = 1000; // milliseconds

} // namespace

UploadReceiver::UploadReceiver()
{
    connect(&listener, &QTcpServer::newConnection, this, &UploadReceiver::accept);
}

quint16 UploadReceiver::open(const QHostAddress& address, const Announcement& announcement)
{
    close();
    if (!listener.listen(address, 0)) {
        return 0;
    }
    announced = announcement;
    length = {};
    arrived = 0;
    Q_EMIT said(QString("upload: waits on port %1 for %2 bytes of \"%3\"")
                    .arg(listener.serverPort())
                    .arg(announced.size)
                    .arg(announced.track.file));
    return listener.serverPort();
}

void UploadReceiver::close()
{
    if (announced.session == 0) {
        return;
    }
    listener.waitForNewConnection(0);
    accept();
    takeRest();
    listener.close();
    delete socket;
    announced = {};
    Q_EMIT said(QString("upload: %1 bytes came, %2 s of sound").arg(arrived).arg(seconds()));
}

void UploadReceiver::accept()
{
    if (!socket && listener.hasPendingConnections()) {
        socket = listener.nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, this, &UploadReceiver::receive);
        receive();
    }
}

void UploadReceiver::receive()
{
    const QByteArray bytes = socket->readAll();
    arrived += bytes.size();
    length.feed(bytes);
}

/// The two connections are apart: the end of the file may still be on its way.
void UploadReceiver::takeRest()
{
    QElapsedTimer waited;
    waited.start();
    while (socket && arrived < announced.size && waited.elapsed() < patience) {
        if (!socket->waitForReadyRead(patience)) {
            break;
        }
        receive();
    }
}

} // namespace simulator
