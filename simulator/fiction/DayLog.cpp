#include "simulator/fiction/DayLog.h"

#include "simulator/state/Words.h"

#include <QDate>
#include <QRandomGenerator>
#include <QTime>

#include <algorithm>

namespace simulator
{

namespace
{

constexpr int daysKept = 7;
constexpr int secondsADay = 24 * 60 * 60;
constexpr int leastLines = 400;
constexpr int charactersALine = 64;
constexpr int bytesAMegabyte = 1024 * 1024;

/// One line in so many is an error.
constexpr int linesPerError = 40;

template <typename Element> Element anyOf(const QVector<Element>& list, QRandomGenerator& chance)
{
    return list.isEmpty() ? Element() : list.at(chance.bounded(list.size()));
}

QString error(const Unit& unit, QRandomGenerator& chance)
{
    switch (chance.bounded(3)) {
    case 0:
        return QString("ERROR unit %1 \"%2\": no answer in 5000 ms").arg(unit.id).arg(unit.title);
    case 1:
        return QString("CRITICAL unit %1: AC power missing").arg(unit.id);
    default:
        return QString("Ошибка файла \"C:\\media\\gong <1>.mp3\": %1").arg(chance.generate());
    }
}

/// What happens on a day; the maximum level adds the traffic with the units.
QString event(const Installation& installation, QRandomGenerator& chance)
{
    const Unit unit = anyOf(installation.allUnits(), chance);
    const int kinds = installation.server.maximumLogLevel ? 8 : 4;
    switch (chance.bounded(kinds)) {
    case 0:
        return QString("INFO unit %1 \"%2\": link %3")
            .arg(unit.id)
            .arg(unit.title, wordOf(linkWords, unit.link));
    case 1:
        return QString("INFO user \"%1\" logged in").arg(anyOf(installation.accounts, chance).name);
    case 2:
        return QString("INFO unit %1: volume %2").arg(unit.id).arg(chance.bounded(101));
    case 3:
        return QString("INFO playback %1 started & stopped").arg(chance.bounded(1000));
    default:
        return QString("DEBUG unit %1 <- {\"action\":\"getState\",\"order\":%2}\t0x%3")
            .arg(unit.id)
            .arg(chance.bounded(100000))
            .arg(chance.generate(), 8, 16, QChar('0'));
    }
}

QString stamp(const QString& day, int second)
{
    return '[' + day + ' ' + QTime(0, 0).addSecs(second).toString("HH:mm:ss") + "] ";
}

} // namespace

QStringList logDays()
{
    QStringList days;
    for (int ago = daysKept - 1; ago >= 0; --ago) {
        days.append(QDate::currentDate().addDays(-ago).toString("dd-MM-yyyy"));
    }
    return days;
}

QString dayLog(const Installation& installation, const QString& day)
{
    QRandomGenerator chance(qHash(day, 1));
    const bool isToday = day == logDays().constLast();
    const int length = isToday ? installation.server.logMegabytes * bytesAMegabyte : 0;
    const int seconds =
        isToday ? std::max(1, QTime(0, 0).secsTo(QTime::currentTime())) : secondsADay;
    QString text = stamp(day, 0) + "INFO server " + installation.server.version + '\n';
    text.reserve(length);
    const qint64 lines = std::max(leastLines, length / charactersALine);
    for (qint64 line = 1; line < lines || text.size() < length; ++line) {
        text += stamp(day, int(std::min<qint64>(line * seconds / lines, seconds - 1)));
        text += chance.bounded(linesPerError) == 0
                    ? error(anyOf(installation.allUnits(), chance), chance)
                    : event(installation, chance);
        text += '\n';
    }
    return text;
}

} // namespace simulator
