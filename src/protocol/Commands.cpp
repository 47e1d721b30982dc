#include "protocol/Commands.h"

#include "page/ScriptCall.h"
#include "protocol/Forbidden.h"
#include "protocol/Reply.h"

namespace
{

/// Whether a command asks for what the mirror holds: no control of a page waits for its reply.
bool onlyReads(const QString& name)
{
    return name.startsWith(QLatin1String("get")) || name.startsWith(QLatin1String("list"));
}

/// The handler of a command's replies. Behind those of all that changes something the operator is
/// told of a missing right, and the page that the answer is there, whatever its word, so that the
/// control that has asked comes back.
NetworkCommand::Function replyHandler(const char* protocol, const CommandRow& row)
{
    if (onlyReads(QLatin1String(row.name))) {
        return row.handler;
    }
    const bool tellsForbidden =
        Forbidden::isTold(QLatin1String(protocol), QLatin1String(row.name));
    const QString request = QLatin1String(protocol) + QLatin1Char('/') + QLatin1String(row.name);
    return [handler = row.handler, tellsForbidden, request](const QJsonObject& reply) {
        const QString word = response(reply);
        handler(reply);
        if (tellsForbidden) {
            Forbidden::tell(reply);
        }
        Page::call("wrapperInput_global_answered", request, word);
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
