#include "protocol/Request.h"

#include "app/Data.h"
#include "network/Fields.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"

void sendRequest(ProtocolId protocol, int command, const QJsonObject& fields,
                 const Attachment& attachment)
{
    Data::tcpClient.request(static_cast<int>(protocol), command, fields, attachment);
}

std::optional<QByteArray> takeText(const QJsonObject& reply, const char* name)
{
    if (auto text = Data::parser.takeLongText(QLatin1String(name))) {
        return text;
    }
    const auto text = Fields::text(reply, name);
    return text ? std::optional(text->toUtf8()) : std::nullopt;
}

bool isRequestWaiting(ProtocolId protocol, int command)
{
    return Data::parser.isWaiting(static_cast<int>(protocol), command);
}
