#pragma once

#include "simulator/wire/ObjectReader.h"

#include <QHostAddress>
#include <QJsonObject>
#include <QObject>
#include <QQueue>
#include <QSslSocket>
#include <QTimer>

#include <vector>

namespace simulator
{

struct Identity;

/// How the server behaves towards its consoles, for trying what they make of it.
struct Manners {
    int replyDelay = 0;  ///< milliseconds before a request is looked at
    bool silent = false; ///< requests are read and never answered
    /// Bytes that a console may leave unread before it is dropped.
    qint64 mostUnread = 320LL * 1024 * 1024;
};

/// One connection: TLS, the objects of its stream, who is logged in, and what is sent back.
class Session : public QObject
{
    Q_OBJECT

public:
    /// Takes over an accepted socket and starts the handshake. `serverManners` must outlive the
    /// session.
    Session(qintptr descriptor, int number, const Identity& identity, const Manners& serverManners,
            QObject* parent);
    ~Session() override;

    int number() const { return sequence; }
    /// Name of the account that is logged in, empty for none.
    QString account() const { return accountName; }
    void setAccount(const QString& name) { accountName = name; }
    /// The address of this machine that the console has reached.
    QHostAddress localAddress() const { return socket.localAddress(); }

    /// Answers a request: `answer` goes out with the order of the request.
    void reply(const QJsonObject& request, QJsonObject answer);
    /// Sends pushes in one write, each under the next order of this connection.
    void push(const std::vector<QJsonObject>& messages);
    /// Ends the connection at once.
    void drop();
    /// Starts the wait of the request whose turn it is anew, when the manners have changed.
    void hurry();

Q_SIGNALS:
    /// A request has arrived and its turn has come. It is answered by reply(), once.
    void requested(const QJsonObject& request);
    /// The connection is gone; the session can be deleted.
    void ended();

private:
    void read();
    void take(const QByteArray& text);
    void serveNext();
    void send(const QByteArray& text);
    void dismiss(const char* why);

    QSslSocket socket;
    ObjectReader reader;
    QQueue<QJsonObject> waiting;
    QTimer patience; ///< for the handshake
    QTimer delay;
    QTimer overflow; ///< drops the session, but not in the middle of a broadcast
    const Manners& manners;
    QString accountName;
    int sequence;
    int nextPush = 1000000; ///< far from the orders that a console counts up from 0
};

} // namespace simulator
