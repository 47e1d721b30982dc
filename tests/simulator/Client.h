#pragma once

#include <QJsonObject>
#include <QSslSocket>
#include <QVector>

/// A console reduced to its wire: sends requests over TLS and sorts what comes back into replies
/// and pushes. Each wait ends after twenty seconds at the most.
class Client
{
public:
    explicit Client(quint16 port);

    bool isConnected() const { return socket.isEncrypted(); }
    /// Sends bytes as they stand.
    void sendRaw(const QByteArray& bytes);
    /// Sends a request in the indented form of the console and gives its order.
    int send(const QString& request, const QString& action, QJsonObject fields = {});
    /// The next reply, empty when none comes.
    QJsonObject takeReply();
    /// The next push, empty when none comes.
    QJsonObject takePush();
    /// The next push with this action; the ones before it are passed over.
    QJsonObject takePush(const QString& action);
    /// send() and takeReply() in one.
    QJsonObject ask(const QString& request, const QString& action, const QJsonObject& fields = {});
    /// Logs in with the password that the fiction's accounts have: their own name.
    bool logIn(const QString& name);
    /// True once the server has ended the connection.
    bool waitForEnd();

    /// What has come and nobody has taken.
    QVector<QJsonObject> replies;
    QVector<QJsonObject> pushes;

private:
    void read();
    QJsonObject takeFirst(QVector<QJsonObject>& arrived);

    QSslSocket socket;
    QByteArray buffer;
    int nextOrder = 0;
};

/// A password as it travels.
QString digestOf(const QString& password);
