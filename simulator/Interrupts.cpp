#include "simulator/Interrupts.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace simulator
{

namespace
{

std::array<int, 2> ends{-1, -1};

/// A signal may come anywhere; writing a byte is about all that is safe then.
void wake(int)
{
    const char byte = 0;
    const ssize_t written = write(ends[1], &byte, 1);
    static_cast<void>(written);
}

} // namespace

bool watchInterrupts(QObject* parent, std::function<void()> ended)
{
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return false;
    }
    auto* notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, parent);
    QObject::connect(notifier, &QSocketNotifier::activated, parent,
                     [ended = std::move(ended)] { ended(); });
    std::signal(SIGTERM, wake);
    std::signal(SIGINT, wake);
    return true;
}

} // namespace simulator
