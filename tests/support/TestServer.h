#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QJsonObject>
#include <QMutex>
#include <QObject>
#include <QSemaphore>
#include <QStringList>
#include <QThread>
#include <QVector>

#include <functional>
#include <map>
#include <memory>

class JsonStreamSplitter;
class QSslSocket;
class QTcpSocket;

/// An audio server of a test: listens on a port of its own in a thread of its own, since the
/// console's connect blocks the main thread. It keeps what it receives and plays a script; a
/// request without a script stays unanswered, and an acknowledgement always does.
class TestServer
{
public:
    enum class Conduct {
        Tls,
        OldTls,       ///< speaks TLS 1.2 and greets with a push in the flight of its handshake
        Silent,       ///< accepts and says nothing
        Plain,        ///< answers in clear text
        HangsUp,      ///< closes each connection at once
        HangsUpLater, ///< closes each connection as soon as it is encrypted
    };

    /// What is done at one request: `objects` leave in one write. An object with a `response`
    /// and no `order` gets the request's.
    struct Step {
        QVector<QJsonObject> objects{};
        QByteArray rest{};   ///< bytes behind the objects
        bool closes = false; ///< hang up behind them
    };

    explicit TestServer(Conduct conduct = Conduct::Tls, std::function<void()> enterThread = {},
                        const QHostAddress& address = QHostAddress::LocalHost);
    ~TestServer();
    TestServer(const TestServer&) = delete;
    TestServer& operator=(const TestServer&) = delete;

    int port() const { return listeningPort; }

    /// Plays `step` at every later request of that name, such as "user/login".
    void onRequest(const QString& name, const Step& step);
    void answer(const QString& name, const QJsonObject& reply) { onRequest(name, {{reply}}); }
    /// Answers every request without a script of its own with "success".
    void answerAll();
    /// Takes so long for each later answer.
    void setDelay(int milliseconds);

    void send(const QJsonObject& object) { send(QVector<QJsonObject>{object}); }
    /// All in one write.
    void send(const QVector<QJsonObject>& objects);
    /// Writes bytes to the newest connection.
    void sendRaw(const QByteArray& bytes);
    /// Ends the newest connection after what has been sent.
    void hangUp();

    /// Stops the whole server where it is, its reading included, until `thaw`.
    void freeze();
    void thaw();
    /// Runs something in the server's thread and waits for it.
    void run(const std::function<void()>& work);

    QVector<QJsonObject> received() const;
    /// What was received, each as `describe` has it.
    QStringList receivedNames() const;
    /// A message of the console as "user/login 0" for a request and "ack 7" for an acknowledgement.
    static QString describe(const QJsonObject& message);
    QByteArray receivedBytes() const;
    int connectionCount() const;
    int openConnectionCount() const;

private:
    void listen(const QHostAddress& address);
    void accept(qintptr descriptor);
    void startTls(QSslSocket* socket);
    void read(QTcpSocket* socket, JsonStreamSplitter& splitter);
    void handle(QTcpSocket* socket, const QJsonObject& message);

    const Conduct conduct;
    int listeningPort = 0;
    QThread thread;
    std::unique_ptr<QObject> worker; ///< lives in the thread, parent of all that does
    QTcpSocket* newest = nullptr;
    QSemaphore frozen;

    mutable QMutex mutex; ///< for all below
    std::map<QString, Step> script;
    bool answersAll = false;
    int delay = 0;
    QVector<QJsonObject> messages;
    QByteArray bytes;
    int connections = 0;
    int openConnections = 0;
};
