#include "simulator/commands/CommandTable.h"

#include <QJsonArray>

namespace simulator
{

namespace
{

QJsonObject getLevel(Context& context, const QJsonObject&)
{
    return success({{"maximumLevel", context.installation().server.maximumLogLevel}});
}

QJsonObject list(Context& context, const QJsonObject&)
{
    return success({{"server", QJsonArray::fromStringList(context.installation().server.logDays)}});
}

} // namespace

Commands logCommands()
{
    const QLatin1String log("log");
    return {
        {log, QLatin1String("getLevel"), {Right::Server}, getLevel},
        {log, QLatin1String("list"), {Right::Server}, list},
    };
}

} // namespace simulator
