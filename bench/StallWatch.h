#pragma once

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

/// The longest time, in seconds, for which the event loop, and so a click, had to wait.
class StallWatch
{
public:
    StallWatch()
    {
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] { turn(); });
        clock.start();
        timer.start(0);
    }
    double longest() const { return static_cast<double>(longestNanoseconds) * 1e-9; }

private:
    void turn()
    {
        longestNanoseconds = std::max(longestNanoseconds, clock.nsecsElapsed());
        clock.restart();
    }

    QTimer timer;
    QElapsedTimer clock;
    qint64 longestNanoseconds = 0;
};
