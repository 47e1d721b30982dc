#pragma once

#include "network/NetworkCommand.h"

#include <utility>
#include <vector>

/// A named group of commands. A command's index is its place in the order of registration.
class NetworkProtocol
{
public:
    const QString& getName() const { return name; }
    void setName(const QString& protocolName) { name = protocolName; }

    void addNetworkCommand(NetworkCommand command) { commands.push_back(std::move(command)); }
    int getCommandCount() const { return static_cast<int>(commands.size()); }
    /// The command at an index from 0 to `getCommandCount()` - 1.
    const NetworkCommand& getNetworkCommand(int index) const
    {
        return commands[static_cast<std::size_t>(index)];
    }

private:
    std::vector<NetworkCommand> commands;
    QString name;
};
