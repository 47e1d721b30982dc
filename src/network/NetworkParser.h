#pragma once

#include "network/NetworkProtocol.h"
#include "network/OutgoingMessage.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

/// What makes the console send: its operator and what follows from that, or its own reading of the
/// installation (pushes, and the answers to what it asked), which mustn't keep an operator waiting.
enum class Cause { Operator, Console };

/// A request that is to be sent: the indexes of its command, and the command's own fields.
struct Request {
    int protocolId = 0;
    int commandId = 0;
    QJsonObject fields{};
    Cause cause = Cause::Operator;
    Attachment attachment{};
};

/// What is remembered of a sent request until its reply has come.
struct PacketInfo {
    int protocolId = 0;
    int commandId = 0;
    QJsonObject request;                 ///< without long texts
    Cause replyCauses = Cause::Operator; ///< what its reply's handler sends for
};

/// One object of the stream, read but not yet handled.
struct IncomingMessage {
    QJsonObject object;
    QString problem;     ///< why it is none; empty for an object
    LongTexts longTexts; ///< what has been left out of a large one
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

    /// What a request would be sent for now: that of the message whose handler is running, and the
    /// operator outside of handlers, in an event loop that a handler runs too.
    Cause currentCause() const;

    /// A text of the request with more characters than this isn't remembered for `requestReply`: a
    /// file that is sent would be kept in memory until the server has swallowed it.
    static constexpr int maximumRememberedText = 16 * 1024;

    /// Gives a request its names and the next `order`, remembers it, and gives what is to be sent.
    OutgoingMessage writeJson(const Request& request);
    /// The text of the acknowledgement of a push.
    static QByteArray acknowledgement(int order);

    /// An object of more bytes than this is large.
    static constexpr int largeObjectSize = 1024 * 1024;

    /// Reads the text of one object. May be called in any thread.
    static IncomingMessage read(QByteArray text);
    /// Handles one object of the stream. What is no object, neither reply nor push, or a reply to
    /// nothing, changes nothing and is told in the log.
    void handle(IncomingMessage& message);
    /// Reads and handles one object.
    void parse(const QByteArray& text)
    {
        IncomingMessage message = read(text);
        handle(message);
    }

    /// Takes the long text of that name out of the message whose handler is running; nothing where
    /// it has none.
    std::optional<QByteArray> takeLongText(const QString& name);

    /// Forgets all requests and starts again at order 0.
    void reset();
    /// How many requests wait for their reply.
    int getPacketCount() const { return static_cast<int>(packets.size()); }
    /// Whether one of them is of that command.
    bool isWaiting(int protocolId, int commandId) const;

private:
    void parsePush(const QJsonObject& message);
    void parseReply(QJsonObject& message);
    void logReply(const QJsonObject& message, const QString& protocol, const QString& command,
                  const QString& response) const;
    std::optional<PacketInfo> takePacket(const QJsonObject& message);

    /// A handler that is running, and the event loop that it was called from.
    struct Handling {
        Cause cause;
        int loopLevel;
    };
    static int loopLevel();

    std::vector<std::unique_ptr<NetworkProtocol>> protocols;
    QString protocolPrefix = QStringLiteral("request");
    QString commandPrefix = QStringLiteral("action");
    QString packetPrefix = QStringLiteral("order");
    std::map<int, PacketInfo> packets;
    std::optional<Handling> handling;
    LongTexts* longTexts = nullptr; ///< of the message that is being handled
    std::function<void(const QByteArray&)> writeAcknowledgement;
    Hook handlePush;
    std::function<void()> onForbidden;
};
