#include "simulator/Prompt.h"

#include "simulator/Server.h"

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

using Rows = std::array<Prompt::Row, 8>;

QString usage(const Prompt::Row& row)
{
    return QString("%1 %2").arg(row.name, row.arguments).trimmed();
}

QString help(const Rows& rows)
{
    QString text;
    for (const Prompt::Row& row : rows) {
        text += usage(row).leftJustified(42) + row.effect + '\n';
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
    if (words.size() != expected || !(this->*row->handle)(words)) {
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
