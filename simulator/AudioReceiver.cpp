#include "simulator/AudioReceiver.h"

namespace simulator
{

namespace
{

constexpr int period = 1000; // milliseconds
constexpr double kilobyte = 1000;

} // namespace

AudioReceiver::AudioReceiver()
{
    connect(&socket, &QUdpSocket::readyRead, this, &AudioReceiver::receive);
    connect(&timer, &QTimer::timeout, this, &AudioReceiver::report);
}

quint16 AudioReceiver::open(const QHostAddress& address)
{
    close();
    if (!socket.bind(address, 0)) {
        return 0;
    }
    watch = {};
    timer.start(period);
    Q_EMIT said(QString("redirection: waits on port %1").arg(socket.localPort()));
    return socket.localPort();
}

void AudioReceiver::close()
{
    if (socket.state() == QAbstractSocket::BoundState) {
        report();
        timer.stop();
        socket.close();
        Q_EMIT said("redirection: ended");
    }
}

void AudioReceiver::receive()
{
    while (socket.hasPendingDatagrams()) {
        QByteArray datagram(int(socket.pendingDatagramSize()), '\0');
        datagram.resize(int(socket.readDatagram(datagram.data(), datagram.size())));
        watch.feed(datagram);
    }
}

void AudioReceiver::report()
{
    const TransportStreamWatch::Amount amount = watch.take();
    if (amount.bytes == 0) {
        return;
    }
    QString line = QString("redirection: %1 kB/s, %2 packets of 188 bytes, %3, %4 lost")
                       .arg(double(amount.bytes) / kilobyte, 0, 'f', 1)
                       .arg(amount.packets)
                       .arg(watch.sound().isEmpty() ? "unknown sound" : watch.sound())
                       .arg(amount.lost);
    if (amount.foreign > 0) {
        line += QString(", %1 datagrams of something else").arg(amount.foreign);
    }
    Q_EMIT said(line);
}

} // namespace simulator
