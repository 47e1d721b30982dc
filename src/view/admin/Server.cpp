#include "view/WebView.h"

#include "app/Data.h"
#include "log/LogSettings.h"
#include "model/ServerSettings.h"
#include "page/ScriptCall.h"
#include "protocol/Request.h"
#include "view/LogFeed.h"
#include "view/SlotLog.h"

void WebView::admin_loadServerSettings()
{
    const SlotLog log("admin_loadServerSettings", {}, LogLevel::ServerSettings);
    int position = 0;
    for (const NetworkInterface& interface : Data::serverSettings.getInterfaces()) {
        Page::call("wrapperInput_server_addInterface", position++, interface.ip,
                   interface.description, interface.selected);
    }
    Page::call("wrapperInput_server_editMulticastAddress", Data::serverSettings.getMulticastIp());
    Page::call("wrapperInput_server_editCommandPort", Data::serverSettings.getCommandPort());
}

void WebView::admin_loadServerInfo()
{
    const SlotLog log("admin_loadServerInfo", {}, LogLevel::ServerSettings);
    Page::call("wrapperInput_server_setServerVersion", Data::serverSettings.getServerVersion());
    Page::call("wrapperInput_server_setClientVersion", Data::clientVersion);
    Page::call("wrapperInput_server_setInternetStatus", Data::serverSettings.getInternetStatus());
    Page::call("wrapperInput_server_setAvailableServerVersion",
               Data::serverSettings.getAvailableServerVersion());
    send(HelperCommand::CheckInternet);
    send(HelperCommand::CheckServerUpdate);
}

void WebView::admin_saveServerSettings(const QString& ip, const QString& multicastIp, int port)
{
    const SlotLog log("admin_saveServerSettings",
                      QStringLiteral(": %1, %2, %3").arg(ip, multicastIp).arg(port),
                      LogLevel::ServerSettings);
    send(ServerCommand::SetNetworkInterface, {{QStringLiteral("ip"), ip}});
    send(ServerCommand::SetMulticastIp, {{QStringLiteral("ip"), multicastIp}});
    send(ServerCommand::SetCommandPort, {{QStringLiteral("port"), port}});
}

void WebView::admin_serverRestart()
{
    const SlotLog log("admin_serverRestart", {}, LogLevel::ServerSettings);
    send(ServerCommand::Restart);
}

void WebView::admin_loadLogLevel()
{
    const SlotLog log("admin_loadLogLevel", {}, LogLevel::ServerLogSettings);
    Page::call("wrapperInput_log_setLevel", Data::serverLogLevel != 0);
    send(LogCommand::List); // a console that runs overnight has another day to offer
}

void WebView::admin_loadLogDates()
{
    const SlotLog log("admin_loadLogDates", {}, LogLevel::ServerLogSettings);
    for (const QString& date : qAsConst(Data::serverLogDates)) {
        Page::call("wrapperInput_log_addDate", date);
    }
}

void WebView::admin_loadLogDate(const QString& date)
{
    const SlotLog log("admin_loadLogDate", QStringLiteral(": ") + date,
                      LogLevel::ServerLogSettings);
    logFeed.expect(date);
    send(LogCommand::GetServerLog, {{QStringLiteral("date"), date}});
}

void WebView::admin_stopLog()
{
    const SlotLog log("admin_stopLog", {}, LogLevel::ServerLogSettings);
    logFeed.stop();
}

void WebView::admin_setLogLevel(bool value)
{
    const SlotLog log("admin_setLogLevel", QStringLiteral(": %1").arg(value),
                      LogLevel::ServerLogSettings);
    send(LogCommand::SetLevel, {{QStringLiteral("maximumLevel"), value}});
}
