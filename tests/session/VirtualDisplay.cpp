#include "session/VirtualDisplay.h"

#include <QStandardPaths>
#include <QtTest>

VirtualDisplay::~VirtualDisplay()
{
    server.terminate();
    server.waitForFinished();
}

QString VirtualDisplay::start()
{
    for (const QString tool : {"Xvfb", "xdotool", "import"}) {
        if (QStandardPaths::findExecutable(tool).isEmpty()) {
            return QStringLiteral("no %1 on this machine").arg(tool);
        }
    }
    // It takes a free number and says which once it takes connections.
    server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp"});
    QByteArray said;
    const bool isUp = QTest::qWaitFor(
        [&] {
            said += server.readAllStandardOutput();
            return said.endsWith('\n');
        },
        20000);
    number = QLatin1Char(':') + QString::fromLatin1(said).trimmed();
    return isUp ? QString() : QStringLiteral("the virtual display doesn't come up");
}

QByteArray VirtualDisplay::run(const QString& program, const QStringList& arguments) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("DISPLAY", number);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.waitForFinished();
    return process.readAllStandardOutput();
}

bool VirtualDisplay::focusWindow(const QString& title) const
{
    QByteArray window;
    const bool isThere = QTest::qWaitFor(
        [&] {
            window = tell({"search", "--onlyvisible", "--name", "^" + title + "$"}).trimmed();
            return !window.isEmpty();
        },
        20000);
    tell({"windowfocus", "--sync", QString::fromLatin1(window)});
    return isThere;
}

void VirtualDisplay::click(const QPoint& place) const
{
    tell({"mousemove", QString::number(place.x()), QString::number(place.y()), "click", "1"});
}

QImage VirtualDisplay::picture() const
{
    return QImage::fromData(run("import", {"-window", "root", "png:-"}));
}
