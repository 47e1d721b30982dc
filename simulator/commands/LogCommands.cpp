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
    if (!context.installation().server.logDays.contains(day)) {
        return refusal("error");
    }
    QString text;
    for (const Unit& unit : context.installation().allUnits()) {
        text += QString("[%1 06:00:%2] unit %3 \"%4\": link %5\n")
                    .arg(day)
                    .arg(unit.id % 60, 2, 10, QChar('0'))
                    .arg(unit.id)
                    .arg(unit.title, wordOf(linkWords, unit.link));
    }
    return success({{"logFile", text}});
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
