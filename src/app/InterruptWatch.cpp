#include "app/InterruptWatch.h"

#include "app/Data.h"
#include "log/Log.h"

#include <QSocketNotifier>

#include <csignal>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>

namespace
{

int pipeEnds[2] = {-1, -1};

void signal_handler(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(pipeEnds[1], &byte, 1);
}

} // namespace

InterruptWatch::InterruptWatch()
{
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, &InterruptWatch::interrupted);
    std::signal(SIGINT, signal_handler);
    std::signal(SIGPIPE, SIG_IGN); // standard output may go away before the program does
}

InterruptWatch::~InterruptWatch()
{
    std::signal(SIGINT, SIG_DFL);
    notifier.reset();
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}

void InterruptWatch::interrupted()
{
    char byte = 0;
    while (::read(pipeEnds[0], &byte, 1) == 1) {
        Log::message("Error");
    }
}
#else
InterruptWatch::InterruptWatch()
{
    std::signal(SIGINT, SIG_IGN); // there is no safe way to log from the signal's context here
}

InterruptWatch::~InterruptWatch() = default;

void InterruptWatch::interrupted()
{
}
#endif
