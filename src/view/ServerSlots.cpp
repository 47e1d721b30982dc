#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/ServerList.h"
#include "page/ScriptCall.h"
#include "view/ServerAddress.h"
#include "view/SlotLog.h"

#include <QNetworkDatagram>
#include <QNetworkInterface>
#include <QWebElement>

namespace
{

// The server announces itself by datagrams to this group; what they hold is of no interest.
const QHostAddress announcementGroup{QStringLiteral("224.0.224.1")};
constexpr quint16 announcementPort = 11991;

} // namespace

void WebView::login_serverList()
{
    const SlotLog log("login_serverList");
    const ServerList& list = *Data::serverList;
    for (int index = 0; index < list.size(); ++index) {
        const Server& server = list.at(index);
        Log::message(QStringLiteral("Load server: ") + addressText(server.ip, server.port));
        Page::call("addServerOption", server.ip, QString::number(server.port),
                   list.size() == 1 || server.isDefault);
    }
}

void WebView::login_addServer(const QString& ip, int port)
{
    const SlotLog log("login_addServer", QStringLiteral(" - ") + addressText(ip, port));
    const Server server{ip, port, Data::serverList->size() == 0};
    const QString typed = documentElement.findFirst(QStringLiteral("input[id=\"server\"]"))
                              .evaluateJavaScript(QStringLiteral("this.value"))
                              .toString();
    if (!isServerAddress(typed) || !isPort(port)) {
        Log::message("Address or port invalid!");
        Page::call("modalAddServerVereficationError");
    } else if (Data::serverList->addServer(server)) {
        Page::call("addServerOption", server.ip, QString::number(server.port), server.isDefault);
    }
}

void WebView::login_deleteServer(const QString& address)
{
    const SlotLog log("login_deleteServer", QStringLiteral(" - ") + address);
    const auto [ip, port] = splitAddress(address);
    Data::serverList->deleteServer(ip, port);
}

void WebView::login_findServer()
{
    Log::message("login_findServer");
    if (udpSocket.state() != QAbstractSocket::BoundState &&
        !udpSocket.bind(QHostAddress::AnyIPv4, announcementPort,
                        QAbstractSocket::ShareAddress | QAbstractSocket::ReuseAddressHint)) {
        Log::message(QStringLiteral("Announcements can't be heard: ") + udpSocket.errorString());
        return;
    }
    // A control-room machine has several networks, and the system's choice may be the wrong one.
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface& each : interfaces) {
        if (each.flags().testFlag(QNetworkInterface::IsRunning)) {
            udpSocket.joinMulticastGroup(announcementGroup, each);
        }
    }
}

void WebView::login_serverFound()
{
    Log::message("login_serverFound");
    const QNetworkDatagram datagram = udpSocket.receiveDatagram();
    Page::call("wrapperInput_login_setIp", datagram.senderAddress().toString());
    login_stopFindingServer();
}

void WebView::login_stopFindingServer()
{
    udpSocket.close(); // leaves the group, and drops the announcements that wait
}
