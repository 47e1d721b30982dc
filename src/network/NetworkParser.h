#pragma once

#include "network/NetworkProtocol.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

/// What is remembered of a sent request until its reply has come.
struct PacketInfo {
    int protocolId = 0;
    int commandId = 0;
    QJsonObject request;
};

/// Numbers the outgoing requests, remembers them, tells replies from pushes, and gives each to its
/// handler. The registered protocols stay for the life of the process; `orderCounter` and the
/// remembered requests belong to one connection.
class NetworkParser
{
public:
    using Hook = std::function<void(const QJsonObject&)>;

    /// The `order` of the next request.
    int orderCounter = 0;

    void setProtocolPrefix(const QString& key) { protocolPrefix = key; }
    const QString& getProtocolPrefix() const { return protocolPrefix; }
    void setCommandPrefix(const QString& key) { commandPrefix = key; }
    const QString& getCommandPrefix() const { return commandPrefix; }
    void setPacketPrefix(const QString& key) { packetPrefix = key; }
    const QString& getPacketPrefix() const { return packetPrefix; }

    void addProtocol(std::unique_ptr<NetworkProtocol> protocol);
    int getProtocolCount() const { return static_cast<int>(protocols.size()); }
    /// The protocol at an index from 0 to `getProtocolCount()` - 1.
    const NetworkProtocol& getProtocol(int index) const
    {
        return *protocols[static_cast<std::size_t>(index)];
    }

    /// Takes the text of each acknowledgement; called before the push is handled.
    void setAcknowledgementWriter(std::function<void(const QByteArray&)> writer);
    /// Is given each push, acknowledged already.
    void setPushHandler(Hook handler);
    /// Is called before the handler of a reply "forbidden" to any command but those of `user`.
    void setForbiddenHook(std::function<void()> hook);

    /// Remembers a request, whose `order` is `orderCounter`, moves the counter on, and gives the
    /// text to send.
    QByteArray writeJson(int protocolId, int commandId, const QJsonObject& request);
    /// The text of the acknowledgement of a push.
    static QByteArray acknowledgement(int order);

    /// Handles one object of the stream. What is no object, neither reply nor push, or a reply to
    /// nothing, changes nothing and is logged.
    void parse(const QByteArray& text);

    /// Forgets all requests and starts again at order 0.
    void reset();
    /// How many requests wait for their reply.
    int getPacketCount() const { return static_cast<int>(packets.size()); }

private:
    void parsePush(const QJsonObject& message);
    void parseReply(QJsonObject message);
    void logReply(const QJsonObject& message, const QString& protocol, const QString& command,
                  const QString& response) const;
    std::optional<PacketInfo> takePacket(const QJsonObject& message);

    std::vector<std::unique_ptr<NetworkProtocol>> protocols;
    QString protocolPrefix = QStringLiteral("request");
    QString commandPrefix = QStringLiteral("action");
    QString packetPrefix = QStringLiteral("order");
    std::map<int, PacketInfo> packets;
    std::function<void(const QByteArray&)> writeAcknowledgement;
    Hook handlePush;
    std::function<void()> onForbidden;
};
