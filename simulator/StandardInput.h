#pragma once

#include <QByteArray>
#include <QSocketNotifier>

#include <functional>

namespace simulator
{

/// Reads lines from the standard input while the event loop runs. Its end is no event: the program
/// goes on without.
class StandardInput : public QObject
{
    Q_OBJECT

public:
    explicit StandardInput(std::function<void(const QString& line)> lineRead);

private:
    void read();

    std::function<void(const QString& line)> take;
    QByteArray buffer;
    QSocketNotifier notifier;
};

} // namespace simulator
