#include "protocol/Request.h"

#include "app/Data.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"

void sendRequest(ProtocolId protocol, int command, QJsonObject fields)
{
    const int protocolIndex = static_cast<int>(protocol);
    const NetworkProtocol& registered = Data::parser.getProtocol(protocolIndex);
    fields.insert(QStringLiteral("request"), registered.getName());
    fields.insert(QStringLiteral("action"), registered.getNetworkCommand(command).getWireName());
    fields.insert(QStringLiteral("order"), Data::parser.orderCounter);
    Data::tcpClient.write(Data::parser.writeJson(protocolIndex, command, fields));
}
