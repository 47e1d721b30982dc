#include "simulator/ServerFixture.h"

#include "simulator/fiction/InstallationBuilder.h"

namespace
{

simulator::Identity identity()
{
    static const QTemporaryDir folder;
    QString problem;
    auto made = simulator::loadOrMakeIdentity(folder.path(), &problem);
    if (!made) {
        qFatal("%s", qPrintable(problem));
    }
    return std::move(*made);
}

} // namespace

ServerFixture::ServerFixture(int devices, quint32 seed)
    : server(std::make_unique<simulator::Server>(simulator::buildInstallation(devices, seed),
                                                 identity()))
{
    server->listen(QHostAddress::LocalHost, 0);
}
