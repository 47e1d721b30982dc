#include "protocol/input/InputProtocolHelper.h"

#include "app/Data.h"
#include "model/ServerSettings.h"
#include "network/Fields.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"

void inputProtocolHelperCommandNotify(const QJsonObject& message)
{
    // This push is acknowledged twice: once as any other, once for itself.
    const int order = Fields::integer(message, "order").value_or(0);
    Data::tcpClient.write(NetworkParser::acknowledgement(order));
}

void inputProtocolHelperCommandBrokenInternet(const QJsonObject&)
{
    Data::serverSettings.setInternetStatus(false);
}

void inputProtocolHelperCommandBrokenLink(const QJsonObject&)
{
    // The console has no use for it.
}
