#include "simulator/StandardInput.h"

#include <array>
#include <csignal>

#include <unistd.h>

namespace simulator
{

StandardInput::StandardInput(std::function<void(const QString& line)> lineRead)
    : take(std::move(lineRead)), notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    // In the background of a terminal a read would stop the whole program; so it only fails.
    std::signal(SIGTTIN, SIG_IGN);
    connect(&notifier, &QSocketNotifier::activated, this, &StandardInput::read);
}

void StandardInput::read()
{
    std::array<char, 4096> bytes{};
    const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0) {
        notifier.setEnabled(false);
        return;
    }
    buffer.append(bytes.data(), int(count));
    for (int end = buffer.indexOf('\n'); end >= 0; end = buffer.indexOf('\n')) {
        const QString line = QString::fromUtf8(buffer.left(end)).trimmed();
        buffer.remove(0, end + 1);
        take(line);
    }
}

} // namespace simulator
