#include "simulator/Announcer.h"
#include "simulator/EventLog.h"
#include "simulator/Interrupts.h"
#include "simulator/Life.h"
#include "simulator/Options.h"
#include "simulator/Server.h"
#include "simulator/fiction/InstallationBuilder.h"

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

std::unique_ptr<Announcer> announce(const Options& options, quint16 port)
{
    const QString wanted =
        options.announceInterface.isEmpty() ? "127.0.0.1" : options.announceInterface;
    const auto interface = findInterface(wanted);
    if (!interface) {
        qCWarning(events).noquote() << "No announcement: there is no interface" << wanted;
        return nullptr;
    }
    auto announcer = std::make_unique<Announcer>(*interface, port);
    return announcer->start() ? std::move(announcer) : nullptr;
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
    Server server(buildInstallation(options->devices, options->seed), std::move(*identity));
    if (!server.listen(options->address, options->port)) {
        return fail(where(options->address, options->port) + ": " + server.errorString());
    }
    if (!watchInterrupts(&application, [] { QCoreApplication::quit(); })) {
        return fail("No pipe for the signals");
    }
    std::printf("Listening on %s\n", where(server.address(), server.port()).toLatin1().constData());
    std::fflush(stdout);
    qCInfo(events) << options->devices << "units, seed" << options->seed;

    const auto announcer = options->announce ? announce(*options, server.port()) : nullptr;
    Life life(server, options->seed);
    if (!options->quiet) {
        life.start();
    }
    return application.exec();
}
