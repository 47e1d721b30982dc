#include "simulator/commands/CommandTable.h"

#include <QJsonArray>

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
    };
}

} // namespace simulator
