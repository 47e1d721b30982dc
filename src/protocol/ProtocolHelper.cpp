#include "protocol/ProtocolHelper.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/ServerSettings.h"
#include "network/Fields.h"
#include "protocol/Commands.h"
#include "protocol/Protocols.h"
#include "protocol/Reply.h"

namespace
{

constexpr CommandRow commands[] = {
    {"checkInternet", protocolHelperCommandCheckInternet},
    {"checkServerUpdate", protocolHelperCommandCheckServerUpdate},
    {"getCurrentServerVersion", protocolHelperCommandGetCurrentServerVersion},
    {"getDateTime", protocolHelperCommandGetDateTime},
};

} // namespace

void initProtocolHelper(NetworkParser* parser)
{
    registerProtocol<HelperCommand>(parser, "helper", commands);
}

void protocolHelperCommandCheckInternet(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        Data::serverSettings.setInternetStatus(true);
    } else if (response(reply) == QLatin1String("noInternet")) {
        Data::serverSettings.setInternetStatus(false);
    }
}

void protocolHelperCommandCheckServerUpdate(const QJsonObject& reply)
{
    const QString word = response(reply);
    if (succeeded(reply) || word == QLatin1String("downloading")) {
        if (const auto version = Fields::text(reply, "version")) {
            Data::serverSettings.setAvailableServerVersion(*version);
        }
    } else if (word == QLatin1String("noInternet") || word == QLatin1String("noUpdate") ||
               word == QLatin1String("relevantVersion")) {
        Data::serverSettings.setAvailableServerVersion(Data::serverSettings.getServerVersion());
    }
}

void protocolHelperCommandGetCurrentServerVersion(const QJsonObject& reply)
{
    const auto version = Fields::text(reply, "version");
    if (succeeded(reply) && version) {
        Data::serverSettings.setServerVersion(*version);
    }
}

void protocolHelperCommandGetDateTime(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        return;
    }
    const auto date = Fields::text(reply, "utcDate");
    const auto time = Fields::text(reply, "utcTime");
    const auto hours = Fields::integer(reply, "timezone");
    if (!date || !time || !hours) {
        Log::dropped(QStringLiteral("Dropped server time: not a date, a time and a time zone"));
        return;
    }
    Page::call("wrapperInput_global_setTime", *date + QLatin1Char(' ') + *time, *hours);
}
