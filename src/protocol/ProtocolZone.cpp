#include "protocol/Protocols.h"

#include "protocol/Commands.h"

namespace
{

constexpr CommandRow commands[] = {
    {"add"}, {"edit"}, {"delete"}, {"list"}, {"includeDevice"}, {"excludeDevice"},
};

} // namespace

void initProtocolZone(NetworkParser* parser)
{
    registerProtocol<ZoneCommand>(parser, "zone", commands);
}
