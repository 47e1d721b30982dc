#pragma once

#include "simulator/Server.h"

#include <QTemporaryDir>

#include <memory>

/// A demo server in this process, listening on a free port of the loopback interface.
class ServerFixture
{
public:
    /// A fresh installation for each server; the certificate is made once a process.
    explicit ServerFixture(int devices = 24, quint32 seed = 1);

    simulator::Server& operator*() { return *server; }
    simulator::Server* operator->() { return server.get(); }

private:
    std::unique_ptr<simulator::Server> server;
};
