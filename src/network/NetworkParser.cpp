#include "network/NetworkParser.h"

#include "app/Data.h"
#include "log/Log.h"
#include "network/Fields.h"

#include <QJsonDocument>
#include <QStringBuilder>

#include <utility>

namespace
{

void log(const QString& text, int level = LogLevel::Always)
{
    Log::message(text, level);
}

/// The whole message, for the traffic trace only: the text is dear for a large one.
void logDocument(const QJsonObject& message)
{
    if (Log::isWritten(LogLevel::Debug)) {
        Log::message(QJsonDocument(message).toJson(), LogLevel::Debug);
    }
}

} // namespace

void NetworkParser::addProtocol(std::unique_ptr<NetworkProtocol> protocol)
{
    protocols.push_back(std::move(protocol));
}

void NetworkParser::setAcknowledgementWriter(std::function<void(const QByteArray&)> writer)
{
    writeAcknowledgement = std::move(writer);
}

void NetworkParser::setPushHandler(Hook handler)
{
    handlePush = std::move(handler);
}

void NetworkParser::setForbiddenHook(std::function<void()> hook)
{
    onForbidden = std::move(hook);
}

QByteArray NetworkParser::writeJson(int protocolId, int commandId, const QJsonObject& request)
{
    packets.emplace(orderCounter, PacketInfo{protocolId, commandId, request});
    ++orderCounter;
    return QJsonDocument(request).toJson();
}

QByteArray NetworkParser::acknowledgement(int order)
{
    // Written out in the indented form of all our messages: every push costs one.
    return "{\n    \"order\": " % QByteArray::number(order) %
           ",\n    \"response\": \"success\"\n}\n";
}

void NetworkParser::reset()
{
    orderCounter = 0;
    packets.clear();
}

void NetworkParser::parse(const QByteArray& text)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (!document.isObject()) {
        log(QStringLiteral("Dropped message of %1 bytes: %2")
                .arg(text.size())
                .arg(error.errorString()));
        return;
    }
    const QJsonObject message = document.object();
    if (message.value(QLatin1String("request")).isString()) {
        parsePush(message);
    } else if (message.value(QLatin1String("response")).isString()) {
        parseReply(message);
    } else {
        log(QStringLiteral("Dropped message: neither reply nor push"));
        logDocument(message);
    }
}

void NetworkParser::parsePush(const QJsonObject& message)
{
    log(QStringLiteral("Input packet: "));
    logDocument(message);
    const int order = Fields::integer(message.value(packetPrefix)).value_or(0);
    if (writeAcknowledgement) {
        writeAcknowledgement(acknowledgement(order));
    }
    if (handlePush) {
        handlePush(message);
    }
}

void NetworkParser::logReply(const QJsonObject& message, const QString& protocol,
                             const QString& command, const QString& response) const
{
    const Logger::Burst burst(Log::logger());
    log(QStringLiteral("Packet answer: "));
    log(QStringLiteral("Order id: ") + QString::number(message.value(packetPrefix).toInt()));
    log(QStringLiteral("Protocol: ") + protocol);
    log(QStringLiteral("Command: ") + command);
    log(QStringLiteral("Response: ") + response);
    logDocument(message);
}

std::optional<PacketInfo> NetworkParser::takePacket(const QJsonObject& message)
{
    const std::optional<int> order = Fields::integer(message.value(packetPrefix));
    const auto packet = order ? packets.find(*order) : packets.end();
    if (packet == packets.end()) {
        return std::nullopt;
    }
    PacketInfo info = std::move(packet->second);
    packets.erase(packet);
    return info;
}

void NetworkParser::parseReply(QJsonObject message)
{
    const std::optional<PacketInfo> packet = takePacket(message);
    if (!packet) {
        log(QStringLiteral("Dropped reply: no request waits for it"));
        logDocument(message);
        return;
    }
    const NetworkProtocol& protocol = getProtocol(packet->protocolId);
    const NetworkCommand& command = protocol.getNetworkCommand(packet->commandId);
    const QString response = message.value(QLatin1String("response")).toString();
    logReply(message, protocol.getName(), command.getName(), response);
    message.insert(QStringLiteral("requestReply"), packet->request);
    if (response == QLatin1String("forbidden") && protocol.getName() != QLatin1String("user") &&
        onForbidden) {
        onForbidden();
    }
    if (!command.hasFunction()) {
        log(QStringLiteral("Dropped reply: the command has no handler"));
        return;
    }
    command(message);
}
