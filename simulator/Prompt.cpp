#include "simulator/Prompt.h"

#include "simulator/Server.h"
#include "simulator/commands/PlaybackPushes.h"
#include "simulator/fiction/Fleet.h"
#include "simulator/state/Rights.h"
#include "simulator/state/Topology.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace simulator
{

namespace
{

/// A whole number from 0 to `most`.
std::optional<int> number(const QString& text, int most)
{
    bool valid = false;
    const int value = text.toInt(&valid);
    return valid && value >= 0 && value <= most ? std::optional<int>(value) : std::nullopt;
}

std::optional<bool> onOff(const QString& text)
{
    return text == "on"    ? std::optional<bool>(true)
           : text == "off" ? std::optional<bool>(false)
                           : std::nullopt;
}

constexpr int longestDelay = 600000; // milliseconds

/// The value of a right as it is typed: a switch, or the word of a level.
QJsonValue rightValue(const QString& text)
{
    const auto on = onOff(text);
    return on ? QJsonValue(*on) : QJsonValue(text);
}

/// The zones that a unit leaves when it goes to another one: a unit is in one physical zone.
QVector<int> zonesToLeave(const Installation& installation, int unit, const Zone& target)
{
    QVector<int> leaving;
    for (int id : installation.zonesOf(unit)) {
        if (id != target.id &&
            (id == rootZone || (target.physical && installation.zone(id)->physical))) {
            leaving.append(id);
        }
    }
    return leaving;
}

using Rows = std::array<Prompt::Row, 14>;

QString usage(const Prompt::Row& row)
{
    return QString("%1 %2").arg(row.name, row.arguments).trimmed();
}

QString help(const Rows& rows)
{
    QString text;
    for (const Prompt::Row& row : rows) {
        text += usage(row).leftJustified(46) + row.effect + '\n';
    }
    return text.trimmed();
}

} // namespace

Prompt::Prompt(Server& commanded) : server(commanded)
{
}

QString Prompt::execute(const QString& line)
{
    static const Rows rows{{
        {"link", "<unit> no|incoming|bidirectional", "connects or loses a unit", &Prompt::link},
        {"mains", "<unit> on|off", "gives a unit power or its battery", &Prompt::mains},
        {"battery", "<unit> <percent>", "charges a unit's battery so far", &Prompt::battery},
        {"case", "<unit> open|close", "opens or closes a unit", &Prompt::housing},
        {"line", "<unit> <line> ok|break", "breaks or mends a line of a unit", &Prompt::line},
        {"right", "<role> <right> on|off|<level>", "gives a right or takes it", &Prompt::right},
        {"role", "<user> <role>", "moves an account to another role", &Prompt::role},
        {"zone", "<unit> <zone>", "moves a unit to another zone", &Prompt::zone},
        {"unit", "<title...>", "makes a unit", &Prompt::unit},
        {"remove", "<unit>", "takes a unit away", &Prompt::remove},
        {"drop", "", "ends all connections", &Prompt::drop},
        {"slow", "<milliseconds>", "waits before each reply", &Prompt::slow},
        {"silent", "on|off", "answers nothing", &Prompt::silent},
        {"quit", "", "ends the server", &Prompt::quit},
    }};
    QStringList words = line.split(' ', Qt::SkipEmptyParts);
    if (words.isEmpty()) {
        return {};
    }
    const QString name = words.takeFirst();
    const auto row = std::find_if(rows.begin(), rows.end(),
                                  [&name](const Row& candidate) { return name == candidate.name; });
    if (row == rows.end()) {
        return name == "help" ? help(rows) : "Unknown command, try: help";
    }
    const int expected = QString(row->arguments).split(' ', Qt::SkipEmptyParts).size();
    if (QString(row->arguments).endsWith("...>")) {
        words = QStringList(words.join(' '));
    }
    if (words.size() != expected || words.contains(QString()) || !(this->*row->handle)(words)) {
        return "Usage: " + usage(*row);
    }
    return "ok";
}

/// Makes the change to the unit and tells it. False for an unknown unit.
template <typename Change> bool Prompt::changeUnit(const QString& id, Change change)
{
    Unit* unit = server.installation().unit(id.toInt());
    if (!unit) {
        return false;
    }
    change(*unit);
    server.tellUnit(unit->id);
    return true;
}

bool Prompt::link(const QStringList& arguments)
{
    const auto link = valueOf(linkWords, arguments.at(1));
    const Unit* unit = server.installation().unit(arguments.first().toInt());
    if (link && unit) {
        server.changeLink(unit->id, *link);
    }
    return link && unit;
}

bool Prompt::mains(const QStringList& arguments)
{
    const auto on = onOff(arguments.at(1));
    return on && changeUnit(arguments.first(), [on](Unit& unit) {
               unit.battery = !*on                      ? Battery::AcPowerMissing
                              : unit.batteryLevel < 100 ? Battery::Charge
                                                        : Battery::Ok;
           });
}

bool Prompt::battery(const QStringList& arguments)
{
    const auto level = number(arguments.at(1), 100);
    return level &&
           changeUnit(arguments.first(), [level](Unit& unit) { unit.batteryLevel = *level; });
}

bool Prompt::housing(const QStringList& arguments)
{
    const auto housing = valueOf(caseWords, arguments.at(1));
    return housing &&
           changeUnit(arguments.first(), [housing](Unit& unit) { unit.housing = *housing; });
}

bool Prompt::line(const QStringList& arguments)
{
    const QString& state = arguments.at(2);
    const Unit* unit = server.installation().unit(arguments.first().toInt());
    if (!unit || (state != "ok" && state != "break")) {
        return false;
    }
    const int tip = arguments.at(1).toInt();
    const auto place = std::find_if(unit->lines.begin(), unit->lines.end(),
                                    [tip](const Line& line) { return line.tipId == tip; });
    const int index = int(place - unit->lines.begin());
    return place != unit->lines.end() && changeUnit(arguments.first(), [&](Unit& changed) {
               changed.lines[index].inOrder = state == "ok";
           });
}

bool Prompt::right(const QStringList& arguments)
{
    Role* role = server.installation().role(arguments.first());
    if (!role || !setRight(*role, arguments.at(1), rightValue(arguments.at(2)))) {
        return false;
    }
    server.broadcast(makePush("role", "reloadChanges", {{"name", role->name}}));
    return true;
}

bool Prompt::role(const QStringList& arguments)
{
    Account* account = server.installation().account(arguments.first());
    const Role* role = server.installation().role(arguments.at(1));
    if (!account || !role) {
        return false;
    }
    account->role = role->name;
    server.broadcast(reloadPush("user"));
    return true;
}

bool Prompt::zone(const QStringList& arguments)
{
    Installation& installation = server.installation();
    const int unit = arguments.first().toInt();
    Zone* target = installation.zone(arguments.at(1).toInt());
    if (!target || !installation.unit(unit) || target->units.contains(unit)) {
        return false;
    }
    const QVector<int> leaving = zonesToLeave(installation, unit, *target);
    target->units.append(unit);
    // A console drops a unit that is in no zone, so it enters before it leaves.
    server.broadcast(membershipPush("includeDevice", target->id, unit));
    for (int id : leaving) {
        installation.zone(id)->units.removeAll(unit);
        server.broadcast(membershipPush("excludeDevice", id, unit));
    }
    return true;
}

bool Prompt::unit(const QStringList& arguments)
{
    Installation& installation = server.installation();
    int last = 0;
    for (const Unit& known : installation.allUnits()) {
        last = std::max(last, known.id);
    }
    installation.addUnit(makeNewUnit(last + 1, arguments.first()));
    includeUnit(installation, last + 1, rootZone);
    server.tellUnit(last + 1);
    return true;
}

bool Prompt::remove(const QStringList& arguments)
{
    Installation& installation = server.installation();
    const Unit* unit = installation.unit(arguments.first().toInt());
    if (!unit) {
        return false;
    }
    const int id = unit->id;
    for (int ended : freeUnit(installation, id)) {
        server.broadcast(stoppedPush(ended));
    }
    installation.removeUnit(id);
    server.broadcast(membershipPush("excludeDevice", 0, id));
    return true;
}

bool Prompt::drop(const QStringList&)
{
    server.dropConnections();
    return true;
}

bool Prompt::slow(const QStringList& arguments)
{
    const auto delay = number(arguments.first(), longestDelay);
    if (delay) {
        server.setReplyDelay(*delay);
    }
    return delay.has_value();
}

bool Prompt::silent(const QStringList& arguments)
{
    const auto on = onOff(arguments.first());
    if (on) {
        server.setSilent(*on);
    }
    return on.has_value();
}

bool Prompt::quit(const QStringList&)
{
    QCoreApplication::quit();
    return true;
}

} // namespace simulator
