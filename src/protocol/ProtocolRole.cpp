#include "protocol/Protocols.h"

#include "protocol/Commands.h"

namespace
{

constexpr CommandRow commands[] = {
    {"add"},         {"edit"},        {"delete"},         {"getInfo"},        {"list"},
    {"include"},     {"exclude"},     {"setRedirection"}, {"getRedirection"}, {"setServer"},
    {"getServer"},   {"setTasks"},    {"getTasks"},       {"setZones"},       {"getZones"},
    {"setPlaylist"}, {"getPlaylist"}, {"setPreset"},      {"getPreset"},      {"setPermissions"},
};

} // namespace

void initProtocolRole(NetworkParser* parser)
{
    registerProtocol<RoleCommand>(parser, "role", commands);
}
