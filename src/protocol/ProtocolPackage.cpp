#include "protocol/Protocols.h"

#include "protocol/Commands.h"

void initProtocolPackage(NetworkParser* parser)
{
    // A name only: it holds the index.
    registerProtocol(parser, "package", nullptr, 0);
}
