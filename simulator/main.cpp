#include "simulator/Announcer.h"
#include "simulator/EventLog.h"
#include "simulator/Interrupts.h"
#include "simulator/Life.h"
#include "simulator/Options.h"
#include "simulator/Playout.h"
#include "simulator/Prompt.h"
#include "simulator/Schedule.h"
#include "simulator/Server.h"
#include "simulator/StandardInput.h"
#include "simulator/fiction/InstallationBuilder.h"
#include "simulator/fiction/Samples.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

using namespace simulator;

namespace
{

int fail(const QString& problem)
{
    std::fprintf(stderr, "%s\n", problem.toLocal8Bit().constData());
    return 1;
}

QString where(const QHostAddress& address, quint16 port)
{
    const bool isIPv6 = address.protocol() == QAbstractSocket::IPv6Protocol;
    return (isIPv6 ? "[" + address.toString() + "]" : address.toString()) + ':' +
           QString::number(port);
}

void say(const QString& text)
{
    std::printf("%s\n", text.toLocal8Bit().constData());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName("vantordesk-simulator");
    qSetMessagePattern("[%{time hh:mm:ss.zzz}] %{message}");
    std::signal(SIGPIPE, SIG_IGN);

    QString problem;
    const auto options = readOptions(application.arguments(), &problem);
    if (!options) {
        return fail(problem);
    }
    auto identity = loadOrMakeIdentity(options->dataFolder, &problem);
    if (!identity) {
        return fail(problem);
    }
    if (!options->samplesFolder.isEmpty() && !writeSamples(options->samplesFolder, &problem)) {
        return fail(problem);
    }
    const auto interface = findInterface(options->announceInterface);
    if (options->announce && !interface) {
        return fail("There is no network interface " + options->announceInterface);
    }
    Server server(buildInstallation(options->devices, options->seed), std::move(*identity));
    if (!server.listen(options->address, options->port)) {
        return fail(where(options->address, options->port) + ": " + server.errorString());
    }
    if (!watchInterrupts(&application, [] { QCoreApplication::quit(); })) {
        return fail("No pipe for the signals");
    }
    say("Listening on " + where(server.address(), server.port()));
    qCInfo(events) << options->devices << "units, seed" << options->seed;

    std::optional<Announcer> announcer;
    if (options->announce) {
        announcer.emplace(*interface, server.port(), options->announcePort);
        announcer->start();
    }
    QObject::connect(&server, &Server::said, &application, say);
    Playout playout(server);
    playout.start();
    Life life(server, options->seed);
    Schedule schedule(server);
    if (!options->quiet) {
        schedule.start();
        life.start();
    }
    Prompt prompt(server);
    const StandardInput input([&prompt](const QString& line) {
        const QString answer = prompt.execute(line);
        if (!answer.isEmpty()) {
            say(answer);
        }
    });
    return application.exec();
}
