#include "protocol/Protocols.h"

#include "protocol/Commands.h"

namespace
{

constexpr CommandRow commands[] = {
    {"add"}, {"edit"}, {"enable"}, {"delete"}, {"list"}, {"getPlays"},
};

} // namespace

void initProtocolTask(NetworkParser* parser)
{
    registerProtocol<TaskCommand>(parser, "task", commands);
}
