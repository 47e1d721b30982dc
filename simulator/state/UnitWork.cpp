#include "simulator/state/UnitWork.h"

#include "simulator/EventLog.h"

#include <algorithm>
#include <utility>

namespace simulator
{

namespace
{

enum class Stage { UnderWay, Done, Failed };

Stage stageOf(const Unit& unit, const UnitWork& work, const QDateTime& now)
{
    if (unit.link != Link::Bidirectional) {
        return Stage::Failed;
    }
    if (work.percent(now) < 100) {
        return Stage::UnderWay;
    }
    return work.fails ? Stage::Failed : Stage::Done;
}

/// A unit keeps its generation: the older ones have 0 as the first component there.
void setVersion(Unit& unit, const QString& version, const QDateTime& now)
{
    const bool newer = unit.isNewGeneration();
    unit.versionText = QString("Version %1 %2").arg(version, now.toString("yyyy-MM-dd"));
    unit.versionMain = version.section('.', 0, 0);
    unit.versionPss = newer ? version : "0." + version.section('.', 1);
}

} // namespace

int UnitWork::percent(const QDateTime& now) const
{
    const qint64 passed = std::max<qint64>(0, since.msecsTo(now));
    return int(std::min<qint64>(100, passed / (qint64(10) * seconds)));
}

UnitWork beginWork(Unit& unit, int seconds)
{
    return {QDateTime::currentDateTimeUtc(), seconds, std::exchange(unit.failsNext, false)};
}

void settleApplying(Unit& unit, const QDateTime& now)
{
    const Stage stage = unit.applying ? stageOf(unit, *unit.applying, now) : Stage::UnderWay;
    if (stage == Stage::UnderWay) {
        return;
    }
    unit.applying.reset();
    unit.applyFailed = stage == Stage::Failed;
    qCInfo(events) << "Unit" << unit.id << "applies its memory" << !unit.applyFailed;
    if (!unit.applyFailed) {
        unit.unedited.reset();
        unit.memoryStamp = now.toString("yyyy-MM-dd HH:mm:ss");
    }
}

bool settleUpgrade(Unit& unit, const QDateTime& now)
{
    const Stage stage = unit.upgrade ? stageOf(unit, unit.upgrade->work, now) : Stage::UnderWay;
    if (stage == Stage::UnderWay) {
        return false;
    }
    unit.upgradeFailed = stage == Stage::Failed;
    qCInfo(events) << "Unit" << unit.id << "is upgraded" << !unit.upgradeFailed;
    if (!unit.upgradeFailed) {
        setVersion(unit, unit.upgrade->version, now);
    }
    unit.upgrade.reset();
    return !unit.upgradeFailed;
}

} // namespace simulator
