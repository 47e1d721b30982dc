#include "protocol/Protocols.h"

void initProtocols(NetworkParser* parser)
{
    initProtocolDevice(parser);
    initProtocolHelper(parser);
    initProtocolLog(parser);
    initProtocolPackage(parser);
    initProtocolPlayback(parser);
    initProtocolPreset(parser);
    initProtocolRole(parser);
    initProtocolServer(parser);
    initProtocolTask(parser);
    initProtocolUser(parser);
    initProtocolZone(parser);
}
