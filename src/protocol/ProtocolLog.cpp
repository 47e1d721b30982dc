#include "protocol/ProtocolLog.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/Commands.h"
#include "protocol/Protocols.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"

#include <algorithm>

namespace
{

constexpr CommandRow commands[] = {
    {"getLevel", protocolLogCommandGetLevel},
    {"setLevel", protocolLogCommandSetLevel},
    {"getServerLog", protocolLogCommandGetServerLog},
    {"saveClientLog", ignoreReply},
    {"getClientLog", ignoreReply},
    {"list", protocolLogCommandList},
};

void takeLevel(const QJsonObject& message)
{
    if (const auto isMaximum = Fields::boolean(message, "maximumLevel")) {
        Data::serverLogLevel = *isMaximum;
        Page::call("wrapperInput_log_setLevel", *isMaximum);
    }
}

} // namespace

ServerLogHooks& serverLogHooks()
{
    static ServerLogHooks hooks;
    return hooks;
}

void initProtocolLog(NetworkParser* parser)
{
    registerProtocol<LogCommand>(parser, "log", commands);
}

void protocolLogCommandGetLevel(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        takeLevel(reply);
    }
}

void protocolLogCommandSetLevel(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        takeLevel(request(reply));
        Page::call("modalAdminLogSaveLevel");
    }
}

void protocolLogCommandList(const QJsonObject& reply)
{
    const auto days = Fields::array(reply, "server");
    if (!succeeded(reply) || !days) {
        return;
    }
    Data::serverLogDates.clear();
    for (const QJsonValue& day : *days) {
        if (day.isString()) {
            Data::serverLogDates.append(day.toString());
        } else {
            Log::dropped(QStringLiteral("Dropped day of the server's logs: no text"));
        }
    }
    std::reverse(Data::serverLogDates.begin(), Data::serverLogDates.end());
    Page::call("wrapperInput_log_clearDates");
    for (const QString& day : qAsConst(Data::serverLogDates)) {
        Page::call("wrapperInput_log_addDate", day);
    }
}

void protocolLogCommandGetServerLog(const QJsonObject& reply)
{
    const QString date = request(reply).value(QLatin1String("date")).toString();
    const auto text = takeText(reply, "logFile");
    const ServerLogHooks& hooks = serverLogHooks();
    if (succeeded(reply) && text && hooks.arrived) {
        hooks.arrived(date, *text);
    } else if (hooks.refused) {
        hooks.refused(date);
    }
}
