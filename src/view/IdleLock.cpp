#include "view/IdleLock.h"

#include "app/Data.h"

#include <QSettings>

namespace
{

constexpr int defaultMilliseconds = 10 * IdleLock::millisecondsInMinute;

}

IdleLock::IdleLock()
{
    connect(&timer, &QTimer::timeout, this, &IdleLock::idle);
}

int IdleLock::idleMilliseconds()
{
    const int stored = Data::settings->value(QStringLiteral("admin/block_time")).toInt();
    return stored > 0 ? stored : defaultMilliseconds;
}

void IdleLock::reset()
{
    if (Data::blockStatus) {
        timer.start(idleMilliseconds());
    } else {
        timer.stop();
    }
}

void IdleLock::stop()
{
    timer.stop();
}
