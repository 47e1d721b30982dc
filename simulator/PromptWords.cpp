#include "simulator/PromptWords.h"

#include "simulator/state/Rights.h"

#include <QJsonObject>
#include <QSet>

#include <algorithm>
#include <array>

namespace simulator
{

namespace
{

constexpr int highestUnit = 1000000;

/// A whole number within bounds.
std::optional<int> number(const QString& text, int least, int most)
{
    bool valid = false;
    const int value = text.toInt(&valid);
    return valid && value >= least && value <= most ? std::optional<int>(value) : std::nullopt;
}

struct Range {
    const char* kind;
    int least;
    int most;
};

constexpr std::array<Range, 6> ranges{{
    {"<zone>", 0, 1000000},
    {"<line>", 0, 255},
    {"<percent>", 0, 100},
    {"<milliseconds>", 0, 600000},
    {"<count>", 1, 100000},
    {"<megabytes>", 0, 200},
}};

QString names(const QJsonObject& rights)
{
    QStringList words;
    for (auto right = rights.begin(); right != rights.end(); ++right) {
        const QJsonValue value = right.value();
        words.append(right.key() + ' ' +
                     (value.isBool() ? value.toBool() ? "on" : "off" : value.toString()));
    }
    return words.join(", ");
}

QString joined(const QVector<int>& ids)
{
    QStringList words;
    for (int id : ids) {
        words.append(QString::number(id));
    }
    return words.join(',');
}

struct NameKind {
    const char* kind;
    const char* what;
    bool (*isKnown)(const Installation& installation, const QString& name);
};

const std::array<NameKind, 5> nameKinds{{
    {"<units>", "unit",
     [](const Installation& all, const QString& id) { return all.unit(id.toInt()) != nullptr; }},
    {"<zone>", "zone",
     [](const Installation& all, const QString& id) { return all.zone(id.toInt()) != nullptr; }},
    {"<role>", "role",
     [](const Installation& all, const QString& name) { return all.role(name) != nullptr; }},
    {"<user>", "user",
     [](const Installation& all, const QString& name) { return all.account(name) != nullptr; }},
    {"<right>", "right",
     [](const Installation&, const QString& key) {
         return managementRights({}).contains(key) || broadcastRights({}).contains(key);
     }},
}};

QString describe(const Installation& installation, const Unit& unit)
{
    return QString("unit %1 \"%2\" %3, zones %4")
        .arg(unit.id)
        .arg(unit.title, wordOf(linkWords, unit.link), joined(installation.zonesOf(unit.id)));
}

QString describe(const Zone& zone)
{
    return QString("zone %1 \"%2\" %3, in %4, %5 units")
        .arg(zone.id)
        .arg(zone.title, zone.physical ? "physical" : "logic")
        .arg(zone.parent)
        .arg(zone.units.size());
}

QString describe(const Role& role)
{
    return QString("role %1 \"%2\": %3, %4")
        .arg(role.name, role.title, names(managementRights(role)), names(broadcastRights(role)));
}

} // namespace

QVector<int> unitsIn(const QString& word)
{
    QVector<int> units;
    QSet<int> taken;
    for (const QString& part : word.split(',')) {
        const auto first = number(part.section('-', 0, 0), 1, highestUnit);
        const auto last = number(part.section('-', 1), 1, highestUnit);
        if (!first || (part.contains('-') && !last)) {
            return {};
        }
        for (int id = *first; id <= last.value_or(*first); ++id) {
            if (!taken.contains(id)) {
                taken.insert(id);
                units.append(id);
            }
        }
    }
    return units;
}

QDateTime minuteIn(const QString& word)
{
    QDateTime minute = QDateTime::fromString(word, "yyyy-MM-ddTHH:mm");
    minute.setTimeSpec(Qt::UTC);
    return minute;
}

bool isFormed(const QString& kind, const QString& word)
{
    for (const Range& range : ranges) {
        if (kind == range.kind) {
            return number(word, range.least, range.most).has_value();
        }
    }
    if (kind == "<units>") {
        return !unitsIn(word).isEmpty();
    }
    if (kind == "<minute>") {
        return minuteIn(word).isValid();
    }
    const QStringList choices = kind.split('|');
    return choices.size() == 1 || choices.contains(word) ||
           (choices.contains("<level>") && valueOf(levelWords, word));
}

QString unknownName(const Installation& installation, const QString& kind, const QString& word)
{
    const auto place = std::find_if(nameKinds.begin(), nameKinds.end(),
                                    [&kind](const NameKind& one) { return kind == one.kind; });
    if (place == nameKinds.end()) {
        return {};
    }
    const QStringList names =
        kind == "<units>" ? joined(unitsIn(word)).split(',') : QStringList(word);
    for (const QString& name : names) {
        if (!place->isKnown(installation, name)) {
            return QString("There is no %1 %2, try: list").arg(place->what, name);
        }
    }
    return {};
}

QJsonValue rightValue(const QString& word)
{
    return word == "on" || word == "off" ? QJsonValue(word == "on") : QJsonValue(word);
}

QString inventory(const Installation& installation)
{
    QStringList lines;
    for (const Unit& unit : installation.allUnits()) {
        lines.append(describe(installation, unit));
    }
    for (const Zone& zone : installation.zones) {
        lines.append(describe(zone));
    }
    for (const Role& role : installation.roles) {
        lines.append(describe(role));
    }
    for (const Account& account : installation.accounts) {
        lines.append(
            QString("user %1 \"%2\", role %3").arg(account.name, account.title, account.role));
    }
    return lines.join('\n');
}

} // namespace simulator
