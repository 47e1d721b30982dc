#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

/// Logs "Error" for each SIGINT and lets the program go on. The signal's own context only writes a
/// byte into a pipe; the line is written from the event loop.
class InterruptWatch : public QObject
{
public:
    InterruptWatch();
    ~InterruptWatch() override;

private:
    void interrupted();

    std::unique_ptr<QSocketNotifier> notifier;
};
