#pragma once

#include "network/JsonStreamSplitter.h"
#include "network/PeerWatch.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>
#include <QVector>

#include <functional>
#include <memory>

class NetworkParser;
class QSslSocket;

/// The one TLS connection to the audio server, and the end of a session with it.
///
/// Messages leave from a queue, first in first out, with one request in flight: each object
/// received, of whatever kind, releases the next. The queue is driven by events (a write, an
/// object received), with a timer as the fallback. Nothing on this path blocks but the connect,
/// which is bounded.
class TcpClient : public QObject
{
    Q_OBJECT
public:
    static constexpr int encryptedTimeoutMilliseconds = 3000;
    static constexpr int connectedTimeoutMilliseconds = 10000;

    /// An object of more than `maximumObjectSize` bytes ends the session.
    explicit TcpClient(int maximumObjectSize = JsonStreamSplitter::defaultMaximumSize);
    ~TcpClient() override;

    /// The parser that objects are given to and that numbers the requests; not owned.
    void addParser(NetworkParser* messageParser);
    /// What ends a session above the network, run by `exit` after the connection is closed.
    void setSessionEndHook(std::function<void()> hook);
    /// Is called with true before the objects of one read are handled, and with false behind them.
    void setReadHook(std::function<void(bool)> hook);

    /// Connects over TLS, blocking for 3 seconds at most while the connection and the handshake
    /// are made. The peer's certificate is asked for and never judged. False, with log lines, when
    /// no connection stands.
    bool connectToServer(const QString& host, int port);
    /// The local TCP port of the connection, 0 without one.
    int getLocalPort() const;

    /// Queues the UTF-8 text of one message.
    void write(const QByteArray& message);
    /// The messages that haven't left yet.
    const QVector<QByteArray>& queuedMessages() const { return messages; }

    /// Drops the queue and what has been received, and closes the socket without `exit`.
    void close();

public Q_SLOTS:
    void readMessage();
    void writeMessage();
    /// Ends the session: closes the connection, forgets its requests, runs the session end hook.
    void exit();
    void handshake();

private:
    bool waitForConnection(const QString& host, int port);
    void scheduleWriting();
    void received(const QByteArray& text);
    void releaseQueue();
    void send(const QByteArray& text);
    /// Logs a sent message and tells whether it expects an answer.
    static bool logSent(const QByteArray& text);

    QVector<QByteArray> messages;
    NetworkParser* parser = nullptr;
    std::unique_ptr<QSslSocket> socket;
    PeerWatch peerWatch;
    QTimer writeTimer{this};
    JsonStreamSplitter splitter;
    int waitingAnswers = 0;
    int connectionCount = 0; ///< tells a read whose connection has ended while it was handled
    bool writingScheduled = false;
    bool reading = false; ///< objects are being handled; what they write leaves after each
    std::function<void()> onSessionEnd;
    std::function<void(bool)> onRead;
};
