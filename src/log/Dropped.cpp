#include "log/Dropped.h"

#include <QHash>
#include <QVector>

#include <utility>

namespace
{

struct Drops {
    int summaries = 0;
    QVector<QString> texts; ///< in the order in which they came up
    QHash<QString, int> counts;
    int others = 0;
};

Drops& drops()
{
    static Drops theDrops;
    return theDrops;
}

void tell(const Drops& told)
{
    const Logger::Burst burst(Log::logger());
    for (const QString& text : told.texts) {
        const int count = told.counts.value(text);
        Log::message(count == 1 ? text : text + QStringLiteral(" (%1 times)").arg(count));
    }
    if (told.others > 0) {
        Log::message(QStringLiteral("Dropped or ignored %1 more").arg(told.others));
    }
}

} // namespace

bool Log::dropped(const QString& text)
{
    Drops& current = drops();
    if (current.summaries == 0) {
        message(text);
        return true;
    }
    const auto known = current.counts.find(text);
    if (known != current.counts.end()) {
        ++*known;
        return false;
    }
    if (current.texts.size() == DropSummary::maximumTexts) {
        ++current.others;
        return false;
    }
    current.texts.append(text);
    current.counts.insert(text, 1);
    return true;
}

Log::DropSummary::DropSummary()
{
    ++drops().summaries;
}

Log::DropSummary::~DropSummary()
{
    if (--drops().summaries == 0) {
        tell(std::exchange(drops(), {}));
    }
}
