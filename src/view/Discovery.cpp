#include "view/Discovery.h"

#include "log/Log.h"
#include "page/ScriptCall.h"
#include "view/SlotLog.h"

#include <QNetworkDatagram>
#include <QNetworkInterface>

namespace
{

// The server announces itself by datagrams to this group; what they hold is of no interest.
const QHostAddress announcementGroup{QStringLiteral("224.0.224.1")};
constexpr quint16 announcementPort = 11991;

} // namespace

Discovery::Discovery()
{
    connect(&socket, &QUdpSocket::readyRead, this, &Discovery::found);
}

void Discovery::find()
{
    const SlotLog log("login_findServer");
    if (socket.state() != QAbstractSocket::BoundState &&
        !socket.bind(QHostAddress::AnyIPv4, announcementPort,
                     QAbstractSocket::ShareAddress | QAbstractSocket::ReuseAddressHint)) {
        Log::message(QStringLiteral("Announcements can't be heard: ") + socket.errorString());
        return;
    }
    // A control-room machine has several networks, and the system's choice may be the wrong one.
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface& each : interfaces) {
        if (each.flags().testFlag(QNetworkInterface::IsRunning)) {
            socket.joinMulticastGroup(announcementGroup, each);
        }
    }
}

void Discovery::found()
{
    const SlotLog log("login_serverFound");
    const QNetworkDatagram datagram = socket.receiveDatagram();
    Page::call("wrapperInput_login_setIp", datagram.senderAddress().toString());
    stop();
}

void Discovery::stop()
{
    socket.close(); // leaves the group, and drops the announcements that wait
}
