#include "protocol/Protocols.h"

#include "protocol/Commands.h"

namespace
{

constexpr CommandRow commands[] = {
    {"add"}, {"edit"}, {"setPosition"}, {"setTitle"}, {"remove"}, {"list"}, {"play"}, {"stop"},
};

} // namespace

void initProtocolPreset(NetworkParser* parser)
{
    registerProtocol<PresetCommand>(parser, "preset", commands);
}
