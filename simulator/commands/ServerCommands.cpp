#include "simulator/Announcer.h"
#include "simulator/Server.h"
#include "simulator/commands/CommandTable.h"

#include <QHostAddress>
#include <QJsonArray>

#include <algorithm>

namespace simulator
{

namespace
{

QJsonObject getSettings(Context& context, const QJsonObject&)
{
    const ServerSettings& server = context.installation().server;
    return success({{"networkInterface", server.networkInterface},
                    {"multicastIP", server.multicastIp},
                    {"commandPort", server.commandPort}});
}

QJsonObject getNetworkInterfaceList(Context& context, const QJsonObject&)
{
    QJsonArray list;
    for (const NetworkInterface& one : context.installation().server.interfaces) {
        list.append(QJsonObject{{"ip", one.ip}, {"description", one.description}});
    }
    return success({{"list", list}});
}

bool isIPv4(const QString& text)
{
    return QHostAddress(text).protocol() == QAbstractSocket::IPv4Protocol;
}

/// The empty address stands for the default interface.
QJsonObject setNetworkInterface(Context& context, const QJsonObject& request)
{
    ServerSettings& server = context.installation().server;
    const QString ip = request.value("ip").toString();
    const bool known = std::any_of(server.interfaces.begin(), server.interfaces.end(),
                                   [&ip](const NetworkInterface& one) { return one.ip == ip; });
    if (!ip.isEmpty() && !known) {
        return refusal("error");
    }
    server.networkInterface = ip;
    context.pushToOthers(reloadPush("server"));
    return success();
}

QJsonObject setMulticastIP(Context& context, const QJsonObject& request)
{
    const QString ip = request.value("ip").toString();
    if (!isIPv4(ip) || !QHostAddress(ip).isMulticast()) {
        return refusal("error");
    }
    context.installation().server.multicastIp = ip;
    context.pushToOthers(reloadPush("server"));
    return success();
}

QJsonObject setCommandPort(Context& context, const QJsonObject& request)
{
    const int port = request.value("port").toInt();
    if (port < 1 || port > 65535) {
        return refusal("error");
    }
    if (port == announcementPort) { // taken by the server itself
        return refusal("busy");
    }
    context.installation().server.commandPort = port;
    context.pushToOthers(reloadPush("server"));
    return success();
}

/// All sessions end, and the server takes new ones again after a while.
QJsonObject restart(Context& context, const QJsonObject&)
{
    context.later(0, [](Server& server) { server.restart(); });
    return success();
}

} // namespace

Commands serverCommands()
{
    const QLatin1String server("server");
    return {
        {server, QLatin1String("getSettings"), {Right::Server}, getSettings},
        {server,
         QLatin1String("getNetworkInterfaceList"),
         {Right::Server},
         getNetworkInterfaceList},
        {server, QLatin1String("setNetworkInterface"), {Right::Server}, setNetworkInterface},
        {server, QLatin1String("setMulticastIP"), {Right::Server}, setMulticastIP},
        {server, QLatin1String("setCommandPort"), {Right::Server}, setCommandPort},
        {server, QLatin1String("restart"), {Right::Server}, restart},
    };
}

} // namespace simulator
