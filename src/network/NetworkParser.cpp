#include "network/NetworkParser.h"

#include "log/Dropped.h"
#include "log/Log.h"
#include "network/Fields.h"
#include "network/Redaction.h"

#include <QJsonDocument>
#include <QScopedValueRollback>
#include <QStringBuilder>
#include <QThread>

#include <utility>

#include <algorithm>

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
        Log::message(redacted(QJsonDocument(message).toJson()), LogLevel::Debug);
    }
}

void drop(const QString& reason, const QJsonObject& message)
{
    if (Log::dropped(reason)) {
        logDocument(message);
    }
}

/// Whether a command only asks for what is there. What comes of such an answer is the console's
/// own reading, whoever has asked: a list of units makes hundreds of questions.
bool asksOnly(const QString& command)
{
    return command.startsWith(QLatin1String("get")) || command.startsWith(QLatin1String("list"));
}

QJsonObject withoutLongTexts(QJsonObject request)
{
    for (auto field = request.begin(); field != request.end();) {
        const bool isLong =
            field->isString() && field->toString().size() > NetworkParser::maximumRememberedText;
        field = isLong ? request.erase(field) : field + 1;
    }
    return request;
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

int NetworkParser::loopLevel()
{
    return QThread::currentThread()->loopLevel();
}

Cause NetworkParser::currentCause() const
{
    return handling && handling->loopLevel == loopLevel() ? handling->cause : Cause::Operator;
}

OutgoingMessage NetworkParser::writeJson(const Request& request)
{
    const NetworkProtocol& protocol = getProtocol(request.protocolId);
    const QString& command = protocol.getNetworkCommand(request.commandId).getWireName();
    QJsonObject message = request.fields;
    message.insert(QStringLiteral("request"), protocol.getName());
    message.insert(QStringLiteral("action"), command);
    message.insert(QStringLiteral("order"), orderCounter);
    const Cause replyCauses = asksOnly(command) ? Cause::Console : request.cause;
    const bool hasContent = !request.attachment.base64.isEmpty();
    if (!hasContent && !request.attachment.name.isEmpty()) {
        message.insert(request.attachment.name, QString());
    }
    OutgoingMessage outgoing{QJsonDocument(message).toJson(), protocol.getName(), command};
    if (hasContent) {
        outgoing.text.chop(int(qstrlen("\n}\n")));
        outgoing.text += ",\n    \"" % request.attachment.name.toUtf8() % "\": \"";
        outgoing.attachment = request.attachment.base64;
    }
    packets.emplace(orderCounter, PacketInfo{request.protocolId, request.commandId,
                                             withoutLongTexts(std::move(message)), replyCauses});
    ++orderCounter;
    return outgoing;
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

IncomingMessage NetworkParser::read(QByteArray text)
{
    LongTexts texts = text.size() > largeObjectSize ? takeLongTexts(text) : LongTexts();
    QJsonParseError error{};
    QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error == QJsonParseError::IllegalUTF8String) {
        // What a file of the server holds may be anything: its broken bytes become U+FFFD.
        document = QJsonDocument::fromJson(QString::fromUtf8(text).toUtf8(), &error);
    }
    if (document.isObject()) {
        return {document.object(), {}, std::move(texts)};
    }
    return {{}, QStringLiteral("%1 bytes: %2").arg(text.size()).arg(error.errorString()), {}};
}

std::optional<QByteArray> NetworkParser::takeLongText(const QString& name)
{
    const auto text = longTexts ? longTexts->find(name) : LongTexts::iterator();
    return longTexts && text != longTexts->end() ? std::optional(std::exchange(text->second, {}))
                                                 : std::nullopt;
}

void NetworkParser::handle(IncomingMessage& message)
{
    const QScopedValueRollback<LongTexts*> texts(longTexts, &message.longTexts);
    if (!message.problem.isEmpty()) {
        Log::dropped(QStringLiteral("Dropped message of ") + message.problem);
    } else if (message.object.value(QLatin1String("request")).isString()) {
        parsePush(message.object);
    } else if (message.object.value(QLatin1String("response")).isString()) {
        parseReply(message.object);
    } else {
        drop(QStringLiteral("Dropped message: neither reply nor push"), message.object);
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
    const QScopedValueRollback<std::optional<Handling>> running(
        handling, Handling{Cause::Console, loopLevel()});
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

bool NetworkParser::isWaiting(int protocolId, int commandId) const
{
    return std::any_of(packets.begin(), packets.end(), [&](const auto& packet) {
        return packet.second.protocolId == protocolId && packet.second.commandId == commandId;
    });
}

void NetworkParser::parseReply(QJsonObject& message)
{
    const std::optional<PacketInfo> packet = takePacket(message);
    if (!packet) {
        drop(QStringLiteral("Dropped reply: no request waits for it"), message);
        return;
    }
    const NetworkProtocol& protocol = getProtocol(packet->protocolId);
    const NetworkCommand& command = protocol.getNetworkCommand(packet->commandId);
    const QString response = message.value(QLatin1String("response")).toString();
    logReply(message, protocol.getName(), command.getName(), response);
    message.insert(QStringLiteral("requestReply"), packet->request);
    const QScopedValueRollback<std::optional<Handling>> running(
        handling, Handling{packet->replyCauses, loopLevel()});
    if (response == QLatin1String("forbidden") && protocol.getName() != QLatin1String("user") &&
        onForbidden) {
        onForbidden();
    }
    if (!command.hasFunction()) {
        Log::dropped(QStringLiteral("Dropped reply: the command has no handler"));
        return;
    }
    command(message);
}
