#include "protocol/Protocols.h"

#include "protocol/Commands.h"

namespace
{

constexpr CommandRow commands[] = {
    {"getSettings"},         {"getNetworkInterfaceList"},
    {"setNetworkInterface"}, {"setMulticastIp", nullptr, "setMulticastIP"},
    {"setCommandPort"},      {"restartAudioServer", nullptr, "restart"},
};

} // namespace

void initProtocolServer(NetworkParser* parser)
{
    registerProtocol<ServerCommand>(parser, "server", commands);
}
