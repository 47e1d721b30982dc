#include "simulator/commands/UnitReport.h"

#include <QJsonArray>

namespace simulator
{

namespace
{

QJsonArray linesOf(const Unit& unit)
{
    QJsonArray lines;
    for (const Line& line : unit.lines) {
        lines.append(QJsonObject{{"tipId", line.tipId},
                                 {"title", line.title},
                                 {"state", line.inOrder ? "ok" : "break"},
                                 {"new", line.isNew}});
    }
    return lines;
}

} // namespace

QJsonObject conditionOf(const Unit& unit)
{
    return {{"versionMainText", unit.versionText},
            {"versionMain", unit.versionMain},
            {"versionPSS", unit.versionPss},
            {"versionLC", unit.versionLineControl},
            {"battery", wordOf(batteryWords, unit.battery)},
            {"batteryLevel", unit.batteryLevel},
            {"case", wordOf(caseWords, unit.housing)},
            {"lines", linesOf(unit)}};
}

Push unitPush(const Installation& installation, const Unit& unit)
{
    QJsonObject fields = conditionOf(unit);
    fields.insert("deviceId", unit.id);
    fields.insert("link", wordOf(linkWords, unit.link));
    fields.insert("volume", unit.volume);
    fields.insert("playback", installation.playbackWord(unit));
    Push push = makePush("device", "setState", fields);
    push.aboutUnit = unit.id;
    return push;
}

} // namespace simulator
