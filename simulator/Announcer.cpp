#include "simulator/Announcer.h"

#include "simulator/EventLog.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace simulator
{

namespace
{

constexpr int period = 1000; // milliseconds

QHostAddress group()
{
    return QHostAddress("224.0.224.1");
}

/// The address that the datagrams come from, and so the one that consoles take for the server's.
QHostAddress sourceOf(const QNetworkInterface& interface)
{
    for (const QNetworkAddressEntry& entry : interface.addressEntries()) {
        if (entry.ip().protocol() == QAbstractSocket::IPv4Protocol) {
            return entry.ip();
        }
    }
    return {};
}

} // namespace

std::optional<QNetworkInterface> findInterface(const QString& nameOrAddress)
{
    const QHostAddress address(nameOrAddress);
    for (const QNetworkInterface& candidate : QNetworkInterface::allInterfaces()) {
        if (candidate.name() == nameOrAddress) {
            return candidate;
        }
        for (const QNetworkAddressEntry& entry : candidate.addressEntries()) {
            if (entry.ip() == address) {
                return candidate;
            }
        }
    }
    return std::nullopt;
}

Announcer::Announcer(const QNetworkInterface& where, quint16 port, quint16 heardOn)
    : interface(where),
      datagram(QJsonDocument(QJsonObject{{"server", "vantordesk-simulator"}, {"port", port}})
                   .toJson(QJsonDocument::Compact)),
      target(heardOn)
{
    connect(&timer, &QTimer::timeout, this, &Announcer::announce);
}

bool Announcer::start()
{
    const QHostAddress source = sourceOf(interface);
    if (source.isNull() || !socket.bind(source, 0)) {
        qCWarning(events).noquote()
            << "No announcement on" << interface.name() << ":"
            << (source.isNull() ? "it has no IPv4 address" : socket.errorString());
        return false;
    }
    socket.setMulticastInterface(interface);
    socket.setSocketOption(QAbstractSocket::MulticastTtlOption, 1);
    socket.setSocketOption(QAbstractSocket::MulticastLoopbackOption, 1);
    timer.start(period);
    announce();
    return true;
}

void Announcer::announce()
{
    if (socket.writeDatagram(datagram, group(), target) < 0) {
        qCWarning(events).noquote() << "Announcement failed:" << socket.errorString();
    }
}

} // namespace simulator
