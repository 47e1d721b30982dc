#include "protocol/ProtocolServer.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/ServerSettings.h"
#include "network/Fields.h"
#include "network/TcpClient.h"
#include "page/ScriptCall.h"
#include "protocol/Commands.h"
#include "protocol/Protocols.h"
#include "protocol/Reply.h"

namespace
{

constexpr CommandRow commands[] = {
    {"getSettings", protocolServerCommandGetSettings},
    {"getNetworkInterfaceList", protocolServerCommandGetNetworkInterfaceList},
    {"setNetworkInterface", protocolServerCommandSetNetworkInterface},
    {"setMulticastIp", protocolServerCommandSetMulticastIp, "setMulticastIP"},
    {"setCommandPort", protocolServerCommandSetCommandPort},
    {"restartAudioServer", protocolServerCommandRestart, "restart"},
};

constexpr int highestPort = 0xFFFF;

std::optional<int> readPort(const QJsonObject& message, const char* field)
{
    const auto port = Fields::integer(message, field);
    return port && *port >= 0 && *port <= highestPort ? port : std::nullopt;
}

constexpr Refusal settingRefusals[] = {{"error", "modalAdminServerSettingErrorShow"}};
constexpr Refusal portRefusals[] = {{"error", "modalAdminServerSettingErrorShow"},
                                    {"busy", "modalAdminServerSettingBusyPortShow"}};

} // namespace

void initProtocolServer(NetworkParser* parser)
{
    registerProtocol<ServerCommand>(parser, "server", commands);
}

void protocolServerCommandGetSettings(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        return;
    }
    const auto interface = Fields::text(reply, "networkInterface");
    const auto multicast = Fields::text(reply, "multicastIP");
    const auto port = readPort(reply, "commandPort");
    if (!interface || !multicast || !port) {
        Log::dropped(QStringLiteral("Ignored settings of the server: a field is missing"));
        return;
    }
    Data::serverSettings.setSelectedInterface(*interface);
    Data::serverSettings.setMulticastIp(*multicast);
    Data::serverSettings.setCommandPort(*port);
}

void protocolServerCommandGetNetworkInterfaceList(const QJsonObject& reply)
{
    const auto list = Fields::array(reply, "list");
    if (!succeeded(reply) || !list) {
        return;
    }
    QVector<NetworkInterface>& interfaces = Data::serverSettings.getInterfaces();
    for (int gone = interfaces.size() - 1; gone >= 0; --gone) {
        Page::call("wrapperInput_server_deleteInterface", gone);
    }
    interfaces.clear();
    for (const QJsonValue& value : *list) {
        const QJsonObject element = value.toObject();
        if (const auto ip = Fields::text(element, "ip")) {
            interfaces.append({*ip, Fields::text(element, "description").value_or(QString())});
            Page::call("wrapperInput_server_addInterface", interfaces.size() - 1, *ip,
                       interfaces.last().description, false);
        } else {
            Log::dropped(QStringLiteral("Dropped interface of the server: no address"));
        }
    }
}

void protocolServerCommandSetNetworkInterface(const QJsonObject& reply)
{
    showRefusal(reply, settingRefusals);
    const auto ip = Fields::text(request(reply), "ip");
    if (succeeded(reply) && ip) {
        Data::serverSettings.setSelectedInterface(*ip);
    }
}

void protocolServerCommandSetMulticastIp(const QJsonObject& reply)
{
    showRefusal(reply, settingRefusals);
    const auto ip = Fields::text(request(reply), "ip");
    if (succeeded(reply) && ip) {
        Data::serverSettings.storeMulticastIp(*ip);
    }
}

void protocolServerCommandSetCommandPort(const QJsonObject& reply)
{
    showRefusal(reply, portRefusals);
    const auto port = readPort(request(reply), "port");
    if (succeeded(reply) && port) {
        Data::serverSettings.storeCommandPort(*port);
        Page::call("modalAdminServerSettingSavedShow");
    }
}

void protocolServerCommandRestart(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        Data::tcpClient.exit();
    }
}
