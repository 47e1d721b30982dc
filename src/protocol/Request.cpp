#include "protocol/Request.h"

#include "app/Data.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"

void sendRequest(ProtocolId protocol, int command, const QJsonObject& fields)
{
    Data::tcpClient.request(static_cast<int>(protocol), command, fields);
}

bool isRequestWaiting(ProtocolId protocol, int command)
{
    return Data::parser.isWaiting(static_cast<int>(protocol), command);
}
