#include "session/ConsoleProcess.h"

#include <QRegularExpression>
#include <QtTest>

#include <csignal>

namespace
{

constexpr int longestWaitMilliseconds = 30000;

}

ConsoleProcess::~ConsoleProcess()
{
    process.kill();
    process.waitForFinished();
}

void ConsoleProcess::start(const QString& dataRoot, const QStringList& arguments,
                           const QString& display)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_DATA_HOME", dataRoot);
    if (!display.isEmpty()) {
        environment.insert("DISPLAY", display);
        environment.insert("QT_QPA_PLATFORM", "xcb");
    }
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(CONSOLE), arguments);
}

const QString& ConsoleProcess::output()
{
    said += QString::fromUtf8(process.readAllStandardOutput());
    return said;
}

bool ConsoleProcess::waitForLine(const QString& pattern)
{
    const QRegularExpression line("\\] " + pattern + "\n");
    QRegularExpressionMatch match;
    const bool found = QTest::qWaitFor(
        [&] {
            match = line.match(output(), looked);
            return match.hasMatch();
        },
        longestWaitMilliseconds);
    looked = found ? match.capturedEnd() : looked;
    return found;
}

void ConsoleProcess::interrupt() const
{
    ::kill(static_cast<pid_t>(process.processId()), SIGINT);
}

bool ConsoleProcess::waitForEnd()
{
    return process.waitForFinished(longestWaitMilliseconds) && process.exitCode() == 0 &&
           process.exitStatus() == QProcess::NormalExit;
}
