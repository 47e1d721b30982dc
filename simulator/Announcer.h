#pragma once

#include <QHostAddress>
#include <QNetworkInterface>
#include <QTimer>
#include <QUdpSocket>

#include <optional>

namespace simulator
{

/// UDP port of the announcements.
constexpr quint16 announcementPort = 11991;

/// The network interface with this name or one of these addresses, nothing for an unknown one.
std::optional<QNetworkInterface> findInterface(const QString& nameOrAddress);

/// Tells the consoles on one network interface, once a second, that the server is there.
class Announcer : public QObject
{
    Q_OBJECT

public:
    /// `port` is the server's own, told in the datagram; `heardOn` the one that the consoles listen
    /// on.
    Announcer(const QNetworkInterface& where, quint16 port, quint16 heardOn);

    /// False when the interface can't be used; the next second is no better, so nothing is tried.
    bool start();

private:
    void announce();

    QNetworkInterface interface;
    QByteArray datagram;
    quint16 target;
    QUdpSocket socket;
    QTimer timer;
};

} // namespace simulator
