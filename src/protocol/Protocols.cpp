#include "protocol/Protocols.h"

#include "app/Data.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "protocol/Request.h"
#include "protocol/input/Pushes.h"

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

void joinProtocols()
{
    NetworkParser& parser = Data::parser;
    if (parser.getProtocolCount() > 0) {
        return;
    }
    parser.setPacketPrefix(QStringLiteral("order"));
    parser.setProtocolPrefix(QStringLiteral("request"));
    parser.setCommandPrefix(QStringLiteral("action"));
    initProtocols(&parser);
    parser.setPushHandler(routePush);
    parser.setForbiddenHook([] { send(UserCommand::GetInfo); });
    Data::tcpClient.addParser(&parser);
    Data::tcpClient.setCloseHook([] { Data::localPort = 0; });
}
