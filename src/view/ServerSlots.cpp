#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/ServerList.h"
#include "page/ScriptCall.h"
#include "view/Discovery.h"
#include "view/ServerAddress.h"
#include "view/SlotLog.h"

#include <QWebElement>
#include <QWebFrame>

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
    const QString typed = frame()
                              ->findFirstElement(QStringLiteral("input[id=\"server\"]"))
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
    discovery.find();
}

void WebView::login_serverFound()
{
    discovery.found();
}

void WebView::login_stopFindingServer()
{
    discovery.stop();
}
