#include "app/Wiring.h"

#include "app/Data.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "protocol/Protocols.h"
#include "protocol/Request.h"
#include "protocol/input/Pushes.h"

namespace Wiring
{

void joinNetwork()
{
    Data::parser.setPacketPrefix(QStringLiteral("order"));
    Data::parser.setProtocolPrefix(QStringLiteral("request"));
    Data::parser.setCommandPrefix(QStringLiteral("action"));
    initProtocols(&Data::parser);
    Data::parser.setPushHandler(routePush);
    Data::parser.setForbiddenHook([] { send(UserCommand::GetInfo); });
    Data::tcpClient.addParser(&Data::parser);
    Data::tcpClient.setCloseHook([] { Data::localPort = 0; });
}

} // namespace Wiring
