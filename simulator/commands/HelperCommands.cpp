#include "simulator/commands/CommandTable.h"

#include <QDateTime>

namespace simulator
{

namespace
{

QJsonObject checkInternet(Context& context, const QJsonObject&)
{
    return context.installation().server.internet ? success() : refusal("noInternet");
}

QJsonObject checkServerUpdate(Context& context, const QJsonObject&)
{
    const ServerSettings& server = context.installation().server;
    if (!server.internet || server.offeredVersion.isEmpty()) {
        return refusal(server.internet ? "relevantVersion" : "noInternet");
    }
    return success({{"version", server.offeredVersion}});
}

QJsonObject getCurrentServerVersion(Context& context, const QJsonObject&)
{
    return success({{"version", context.installation().server.version}});
}

QJsonObject getDateTime(Context& context, const QJsonObject&)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    return success({{"utcDate", now.toString("yyyy-MM-dd")},
                    {"utcTime", now.toString("HH:mm:ss")},
                    {"timezone", context.installation().server.timezone}});
}

} // namespace

Commands helperCommands()
{
    const QLatin1String helper("helper");
    return {
        {helper, QLatin1String("checkInternet"), {Right::Session}, checkInternet},
        {helper, QLatin1String("checkServerUpdate"), {Right::Session}, checkServerUpdate},
        {helper,
         QLatin1String("getCurrentServerVersion"),
         {Right::Session},
         getCurrentServerVersion},
        {helper, QLatin1String("getDateTime"), {Right::Session}, getDateTime},
    };
}

} // namespace simulator
