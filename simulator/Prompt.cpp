#include "simulator/Prompt.h"

#include "simulator/PromptWords.h"
#include "simulator/Schedule.h"
#include "simulator/Server.h"
#include "simulator/commands/PlaybackPushes.h"
#include "simulator/commands/UnitReport.h"
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

const QString byHand = "the prompt";

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

using Rows = std::array<Prompt::Row, 24>;

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
    return text + "<units> is a list such as 3,7-9; what is set stays until it is set back";
}

/// The words of a line behind its first; the last kind may take all that is left.
QStringList wordsFor(const QStringList& kinds, QStringList words)
{
    if (!kinds.isEmpty() && kinds.last().endsWith("...>") && words.size() > kinds.size()) {
        const QString rest = words.mid(kinds.size() - 1).join(' ');
        words = words.mid(0, kinds.size() - 1) + QStringList(rest);
    }
    return words;
}

bool areFormed(const QStringList& kinds, const QStringList& words)
{
    return std::equal(
        words.begin(), words.end(), kinds.begin(), kinds.end(),
        [](const QString& word, const QString& kind) { return isFormed(kind, word); });
}

} // namespace

Prompt::Prompt(Server& commanded) : server(commanded)
{
}

QString Prompt::execute(const QString& line)
{
    static const Rows rows{{
        {"link", "<units> no|incoming|bidirectional", "connects or loses units", &Prompt::link},
        {"mains", "<units> on|off", "gives units power or their battery", &Prompt::mains},
        {"battery", "<units> <percent>", "charges units' batteries so far", &Prompt::battery},
        {"case", "<units> open|close", "opens or closes units", &Prompt::housing},
        {"line", "<units> <line> ok|break", "breaks or mends a line of units", &Prompt::line},
        {"terminal", "<units> <line>", "lets a new terminal device appear", &Prompt::terminal},
        {"fail", "<units>", "lets units' next apply or upgrade fail", &Prompt::fail},
        {"right", "<role> <right> on|off|<level>", "gives a right or takes it", &Prompt::right},
        {"role", "<user> <role>", "moves an account to another role", &Prompt::role},
        {"zone", "<units> <zone>", "moves units to another zone", &Prompt::zone},
        {"unit", "<title...>", "makes a unit", &Prompt::unit},
        {"remove", "<units>", "takes units away, all in one write", &Prompt::remove},
        {"restore", "", "brings back the units that were taken away", &Prompt::restore},
        {"storm", "<count>", "tells so many unit states in one write", &Prompt::storm},
        {"due", "<minute>", "does what the tasks have for a minute of UTC", &Prompt::due},
        {"internet", "on|off", "gives the server the Internet or takes it", &Prompt::internet},
        {"update", "<version>", "offers an update, 'none' takes it back", &Prompt::update},
        {"log", "<megabytes>", "fills today's log up to that size", &Prompt::log},
        {"memory", "<units> <megabytes>", "gives units so much free memory", &Prompt::memory},
        {"drop", "", "ends all connections", &Prompt::drop},
        {"slow", "<milliseconds>", "waits before each reply", &Prompt::slow},
        {"silent", "on|off", "answers nothing", &Prompt::silent},
        {"list", "", "names units, zones, roles with their rights, users", &Prompt::list},
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
    return carryOut(*row, words);
}

QString Prompt::carryOut(const Row& row, const QStringList& typed)
{
    const QStringList kinds = QString(row.arguments).split(' ', Qt::SkipEmptyParts);
    const QStringList words = wordsFor(kinds, typed);
    if (!areFormed(kinds, words)) {
        return "Usage: " + usage(row);
    }
    for (int place = 0; place < kinds.size(); ++place) {
        QString problem = unknownName(server.installation(), kinds.at(place), words.at(place));
        if (!problem.isEmpty()) {
            return problem;
        }
    }
    const QString answer = (this->*row.handle)(words);
    return answer.isEmpty() ? "ok" : answer;
}

/// Makes the change to the units and tells them.
template <typename Change> QString Prompt::changeUnits(const QString& ids, Change change)
{
    const QVector<int> units = unitsIn(ids);
    for (int id : units) {
        change(*server.installation().unit(id));
    }
    server.tellUnits(units);
    return {};
}

QString Prompt::link(const QStringList& arguments)
{
    const QVector<int> units = unitsIn(arguments.first());
    for (int id : units) {
        server.installation().unit(id)->linkByHand = true;
    }
    server.changeLink(units, *valueOf(linkWords, arguments.at(1)));
    return {};
}

/// With the mains the charging goes on by itself again.
QString Prompt::mains(const QStringList& arguments)
{
    const bool on = arguments.at(1) == "on";
    return changeUnits(arguments.first(), [on](Unit& unit) {
        unit.powerByHand = !on;
        unit.battery = !on                       ? Battery::AcPowerMissing
                       : unit.batteryLevel < 100 ? Battery::Charge
                                                 : Battery::Ok;
    });
}

QString Prompt::battery(const QStringList& arguments)
{
    const int level = arguments.at(1).toInt();
    return changeUnits(arguments.first(), [level](Unit& unit) {
        unit.powerByHand = true;
        unit.batteryLevel = level;
    });
}

QString Prompt::housing(const QStringList& arguments)
{
    const Case housing = *valueOf(caseWords, arguments.at(1));
    return changeUnits(arguments.first(), [housing](Unit& unit) { unit.housing = housing; });
}

QString Prompt::line(const QStringList& arguments)
{
    const int tip = arguments.at(1).toInt();
    QVector<Line*> lines;
    for (int id : unitsIn(arguments.first())) {
        QVector<Line>& all = server.installation().unit(id)->lines;
        const auto place = std::find_if(all.begin(), all.end(),
                                        [tip](const Line& line) { return line.tipId == tip; });
        if (place == all.end()) {
            return QString("There is no line %1 on unit %2").arg(tip).arg(id);
        }
        lines.append(&*place);
    }
    for (Line* line : lines) {
        line->inOrder = arguments.at(2) == "ok";
    }
    server.tellUnits(unitsIn(arguments.first()));
    return {};
}

QString Prompt::terminal(const QStringList& arguments)
{
    const int tip = arguments.at(1).toInt();
    return changeUnits(arguments.first(), [tip](Unit& unit) {
        const bool isKnown = std::any_of(unit.lines.begin(), unit.lines.end(),
                                         [tip](const Line& line) { return line.tipId == tip; });
        if (!isKnown) {
            unit.lines.append({tip, QString("Оконечное устройство %1").arg(tip), true, true});
        }
    });
}

QString Prompt::fail(const QStringList& arguments)
{
    for (int id : unitsIn(arguments.first())) {
        server.installation().unit(id)->failsNext = true;
    }
    return {};
}

QString Prompt::right(const QStringList& arguments)
{
    Role& role = *server.installation().role(arguments.first());
    if (!setRight(role, arguments.at(1), rightValue(arguments.at(2)))) {
        return QString("The right %1 doesn't take %2").arg(arguments.at(1), arguments.at(2));
    }
    server.broadcast(makePush("role", "reloadChanges", {{"name", role.name}}));
    return {};
}

QString Prompt::role(const QStringList& arguments)
{
    server.installation().account(arguments.first())->role = arguments.at(1);
    server.broadcast(reloadPush("user"));
    return {};
}

QString Prompt::zone(const QStringList& arguments)
{
    Installation& installation = server.installation();
    Zone& target = *installation.zone(arguments.at(1).toInt());
    std::vector<Push> pushes;
    for (int unit : unitsIn(arguments.first())) {
        if (target.units.contains(unit)) {
            continue;
        }
        const QVector<int> leaving = zonesToLeave(installation, unit, target);
        target.units.append(unit);
        // A console drops a unit that is in no zone, so it enters before it leaves.
        pushes.push_back(membershipPush("includeDevice", target.id, unit));
        for (int id : leaving) {
            installation.zone(id)->units.removeAll(unit);
            pushes.push_back(membershipPush("excludeDevice", id, unit));
        }
    }
    server.broadcast(pushes);
    return pushes.empty() ? "They stand there already" : "";
}

QString Prompt::unit(const QStringList& arguments)
{
    Installation& installation = server.installation();
    int last = 0;
    for (const Unit& known : installation.allUnits()) {
        last = std::max(last, known.id);
    }
    for (const Removed& away : removed) {
        last = std::max(last, away.unit.id);
    }
    installation.addUnit(makeNewUnit(last + 1, arguments.first()));
    includeUnit(installation, last + 1, rootZone);
    server.tellUnits({last + 1});
    return {};
}

QString Prompt::remove(const QStringList& arguments)
{
    Installation& installation = server.installation();
    std::vector<Push> pushes;
    for (int id : unitsIn(arguments.first())) {
        for (int ended : freeUnit(installation, id, byHand)) {
            pushes.push_back(stoppedPush(ended));
        }
        removed.append({*installation.unit(id), installation.zonesOf(id)});
        installation.removeUnit(id);
        pushes.push_back(membershipPush("excludeDevice", 0, id));
    }
    server.broadcast(pushes);
    return {};
}

/// A console puts a unit that it doesn't know into the root zone; the pushes behind its first
/// state put it where it stood, as far as that is still there.
QString Prompt::restore(const QStringList&)
{
    Installation& installation = server.installation();
    std::vector<Push> pushes;
    for (const Removed& back : removed) {
        const int id = back.unit.id;
        installation.addUnit(back.unit);
        for (int zone : back.zones) {
            includeUnit(installation, id, zone);
        }
        if (installation.zonesOf(id).isEmpty()) {
            includeUnit(installation, id, rootZone);
        }
        pushes.push_back(unitPush(installation, back.unit));
        const QVector<int> zones = installation.zonesOf(id);
        for (int zone : zones) {
            if (zone != rootZone) {
                pushes.push_back(membershipPush("includeDevice", zone, id));
            }
        }
        if (!zones.contains(rootZone)) {
            pushes.push_back(membershipPush("excludeDevice", rootZone, id));
        }
    }
    removed.clear();
    server.broadcast(pushes);
    return pushes.empty() ? "No unit was taken away" : "";
}

QString Prompt::storm(const QStringList& arguments)
{
    const Installation& installation = server.installation();
    std::vector<Push> states;
    for (const Unit& unit : installation.allUnits()) {
        states.push_back(unitPush(installation, unit));
    }
    if (states.empty()) {
        return "There is no unit";
    }
    std::vector<Push> pushes(std::size_t(arguments.first().toInt()));
    for (std::size_t place = 0; place < pushes.size(); ++place) {
        pushes[place] = states[place % states.size()];
    }
    server.broadcast(pushes);
    return {};
}

QString Prompt::due(const QStringList& arguments)
{
    Schedule(server).fire(minuteIn(arguments.first()));
    return {};
}

QString Prompt::internet(const QStringList& arguments)
{
    server.installation().server.internet = arguments.first() == "on";
    if (!server.installation().server.internet) {
        server.broadcast(makePush("helper", "brokenInternet"));
    }
    return {};
}

QString Prompt::update(const QStringList& arguments)
{
    const QString& version = arguments.first();
    server.installation().server.offeredVersion = version == "none" ? QString() : version;
    return {};
}

QString Prompt::log(const QStringList& arguments)
{
    server.installation().server.logMegabytes = arguments.first().toInt();
    return {};
}

QString Prompt::memory(const QStringList& arguments)
{
    for (int id : unitsIn(arguments.first())) {
        if (Unit* const unit = server.installation().unit(id)) {
            unit->memory.available = arguments.at(1).toInt() * 1024 * 1024;
        }
    }
    return {};
}

QString Prompt::drop(const QStringList&)
{
    server.dropConnections();
    return {};
}

QString Prompt::slow(const QStringList& arguments)
{
    server.setReplyDelay(arguments.first().toInt());
    return {};
}

QString Prompt::silent(const QStringList& arguments)
{
    server.setSilent(arguments.first() == "on");
    return {};
}

QString Prompt::list(const QStringList&)
{
    return inventory(server.installation());
}

QString Prompt::quit(const QStringList&)
{
    QCoreApplication::quit();
    return {};
}

} // namespace simulator
