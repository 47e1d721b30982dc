#include "protocol/Protocols.h"

#include "protocol/Commands.h"

namespace
{

constexpr CommandRow commands[] = {
    {"getLevel"}, {"setLevel"}, {"getServerLog"}, {"saveClientLog"}, {"getClientLog"}, {"list"},
};

} // namespace

void initProtocolLog(NetworkParser* parser)
{
    registerProtocol<LogCommand>(parser, "log", commands);
}
