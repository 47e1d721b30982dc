#include "simulator/commands/CommandTable.h"
#include "simulator/fiction/DayLog.h"

#include <QJsonArray>

namespace simulator
{

namespace
{

QJsonObject getLevel(Context& context, const QJsonObject&)
{
    return success({{"maximumLevel", context.installation().server.maximumLogLevel}});
}

QJsonObject list(Context&, const QJsonObject&)
{
    return success({{"server", QJsonArray::fromStringList(logDays())}});
}

QJsonObject setLevel(Context& context, const QJsonObject& request)
{
    if (!request.value("maximumLevel").isBool()) {
        return refusal("error");
    }
    context.installation().server.maximumLogLevel = request.value("maximumLevel").toBool();
    context.pushToOthers(reloadPush("log"));
    return success();
}

QJsonObject getServerLog(Context& context, const QJsonObject& request)
{
    const QString day = request.value("date").toString();
    return logDays().contains(day) ? success({{"logFile", dayLog(context.installation(), day)}})
                                   : refusal("error");
}

} // namespace

Commands logCommands()
{
    const QLatin1String log("log");
    return {
        {log, QLatin1String("getLevel"), {Right::Server}, getLevel},
        {log, QLatin1String("list"), {Right::Server}, list},
        {log, QLatin1String("setLevel"), {Right::Server}, setLevel},
        {log, QLatin1String("getServerLog"), {Right::Server}, getServerLog},
    };
}

} // namespace simulator
