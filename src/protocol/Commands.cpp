#include "protocol/Commands.h"

#include "protocol/Forbidden.h"

namespace
{

NetworkCommand::Function replyHandler(const char* protocol, const CommandRow& row)
{
    if (!Forbidden::isTold(QLatin1String(protocol), QLatin1String(row.name))) {
        return row.handler;
    }
    return [handler = row.handler](const QJsonObject& reply) {
        handler(reply);
        Forbidden::tell(reply);
    };
}

} // namespace

void registerProtocol(NetworkParser* parser, const char* name, const CommandRow* rows,
                      std::size_t count)
{
    auto protocol = std::make_unique<NetworkProtocol>();
    protocol->setName(QLatin1String(name));
    for (std::size_t index = 0; index < count; ++index) {
        NetworkCommand command;
        command.setName(QLatin1String(rows[index].name));
        if (rows[index].wireName) {
            command.setWireName(QLatin1String(rows[index].wireName));
        }
        if (rows[index].handler) {
            command.setFunction(replyHandler(name, rows[index]));
        }
        protocol->addNetworkCommand(command);
    }
    parser->addProtocol(std::move(protocol));
}
