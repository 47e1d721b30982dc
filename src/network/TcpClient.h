#pragma once

#include "log/Dropped.h"
#include "network/JsonStreamSplitter.h"
#include "network/KnownPeers.h"
#include "network/NetworkParser.h"
#include "network/OutgoingMessage.h"
#include "network/PeerWatch.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QThreadPool>
#include <QTimer>
#include <QVector>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

class QSslSocket;

/// The one TLS connection to the audio server, and the end of a session with it.
///
/// Messages leave from a queue, first in first out, with one request in flight: each object
/// received, of whatever kind, releases the next. What the console asks for by itself waits outside
/// the queue and enters request by request as the queue runs dry, in the order in which it was
/// caused; a request gets its number when it enters. The queue is driven by events (a write, an
/// object received), with a timer as the fallback.
///
/// Reading is never re-entered: what arrives while a handler runs is taken up by the loop that
/// called it. A large object is read off the main thread, and what is behind it waits. Nothing on
/// this path blocks but the connect, which is bounded.
class TcpClient : public QObject
{
    Q_OBJECT
public:
    static constexpr int encryptedTimeoutMilliseconds = 3000;
    static constexpr int connectedTimeoutMilliseconds = 10000;
    /// The socket is given an attachment in pieces of so many bytes, each once the last has left
    /// it.
    static constexpr int attachmentPiece = 256 * 1024;
    /// Bytes that the socket decrypts ahead: what a turn of the event loop costs of a large object.
    static constexpr int readBufferSize = 1024 * 1024;
    /// After so long the objects that have come in a flood make room for other events.
    static constexpr int readingTurnMilliseconds = 20;

    /// An object of more than `maximumObjectSize` bytes ends the session.
    explicit TcpClient(int maximumObjectSize = JsonStreamSplitter::defaultMaximumSize);
    ~TcpClient() override;

    /// The parser that objects are given to and that numbers the requests; not owned.
    void addParser(NetworkParser* messageParser);
    /// What ends a session above the network, run by `exit` after the connection is closed.
    void setSessionEndHook(std::function<void()> hook);
    /// Is called when a connection is given up, whatever for, before anything of the next one.
    void setCloseHook(std::function<void()> hook);
    /// Where the fingerprints of the servers' certificates are kept; see `KnownPeers`.
    void setFingerprintFile(const QString& path) { knownPeers = KnownPeers(path); }
    /// Is called with true before the objects of one read are handled, and with false behind them.
    void setReadHook(std::function<void(bool)> hook);

    /// Connects over TLS, blocking for 3 seconds at most while the connection and the handshake
    /// are made. The peer's certificate is asked for and never judged. False, with log lines, when
    /// no connection stands.
    bool connectToServer(const QString& host, int port);
    /// The local TCP port of the connection, 0 without one.
    int getLocalPort() const;
    /// Whether the server connected to last has shown another certificate than the time before.
    bool hasPeerChanged() const { return peerChanged; }

    /// Queues one message.
    void write(const OutgoingMessage& message);
    /// Queues a request, or lets it wait where it belongs to the console's own reading. `fields`
    /// are the command's own. Without a connection nothing waits. Nothing overtakes an attachment
    /// that is leaving.
    void request(int protocolId, int commandId, const QJsonObject& fields,
                 const Attachment& attachment = {});
    /// While the session end hook runs: whether the connection has gone by itself.
    bool hasLostConnection() const { return lostConnection; }

    /// The texts of the messages that are in the queue.
    QVector<QByteArray> queuedMessages() const;
    /// How many requests wait outside the queue.
    int waitingRequestCount() const { return static_cast<int>(waiting.size()); }

    /// Drops the queue, what waits and what has been received, and closes the socket without
    /// `exit`.
    void close();

public Q_SLOTS:
    void readMessage();
    void writeMessage();
    /// Ends the session: closes the connection, forgets its requests, runs the session end hook.
    void exit();
    void handshake();

private:
    void connectionLost();
    bool waitForConnection(const QString& host, int port);
    void meetPeer(const QString& host, int port);
    void scheduleWriting();
    bool enterWaiting();
    void send(const OutgoingMessage& message);
    void sendAttachment();
    static void logSent(const OutgoingMessage& message);
    void scheduleReading();
    void gatherLog();
    void readObjects();
    bool handleNext();
    void take(JsonStreamSplitter::Found found);
    void received(const QByteArray& text);
    void readAside(const QByteArray& text);
    void readingAsideEnded(int connection, const std::shared_ptr<IncomingMessage>& message);
    void releaseQueue();

    std::deque<OutgoingMessage> messages;
    std::deque<Request> waiting;
    NetworkParser* parser = nullptr;
    std::unique_ptr<QSslSocket> socket;
    PeerWatch peerWatch;
    KnownPeers knownPeers;
    bool peerChanged = false;
    bool lostConnection = false;
    QTimer writeTimer{this};
    JsonStreamSplitter splitter;
    int waitingAnswers = 0;
    QByteArray leaving;      ///< the attachment that is being written; empty without one
    int leavingAt = 0;       ///< how much of it the socket has been given
    int connectionCount = 0; ///< tells a read whose connection has ended while it was handled
    bool writingScheduled = false;
    bool sending = false;
    bool reading = false;        ///< the loop over what has arrived is running
    bool isReadingAside = false; ///< a large object is under way, with its turn to come
    std::optional<IncomingMessage> readObject; ///< a large one, whose turn has come
    std::optional<Log::ReadLog> gathered;
    std::function<void()> onSessionEnd;
    std::function<void()> onClose;
    std::function<void(bool)> onRead;
    QThreadPool readers; ///< the last member: it ends before what its work comes back to
};
