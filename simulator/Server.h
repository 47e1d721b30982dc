#pragma once

#include "simulator/AudioReceiver.h"
#include "simulator/Identity.h"
#include "simulator/Session.h"
#include "simulator/state/Installation.h"

#include <QHostAddress>
#include <QTcpServer>

#include <functional>
#include <memory>
#include <vector>

namespace simulator
{

struct Push;

/// The listener and its sessions, with the one installation that all of them see.
class Server : public QObject
{
    Q_OBJECT

public:
    Server(Installation fiction, Identity own);
    ~Server() override;

    /// False when the address or the port can't be had; errorString() says why. Port 0 picks one.
    bool listen(const QHostAddress& address, quint16 port);
    QString errorString() const;
    QHostAddress address() const;
    quint16 port() const;

    Installation& installation() { return state; }
    /// Connections that stand, logged in or not.
    int sessionCount() const { return int(sessions.size()); }
    /// Names of the accounts that are logged in, each once.
    QStringList connectedAccounts() const;

    /// Sends a push to every logged-in session that may see what it is about.
    void broadcast(const Push& push);
    /// Tells the state of a unit to every logged-in session that sees the unit.
    void tellUnit(int id);
    /// Connects or loses a unit and tells it; one that carries a playback joins it again.
    void changeLink(int id, Link link);

    void dropConnections();
    /// For all sessions, from their next request on.
    void setReplyDelay(int milliseconds) { manners.replyDelay = milliseconds; }
    void setSilent(bool silent) { manners.silent = silent; }

Q_SIGNALS:
    /// A line for the person who watches the server.
    void said(const QString& line);

private:
    /// Ends the broadcast of a session that can't speak any more.
    void silenceIfSpeaker(const Session& session);
    void accept(qintptr descriptor);
    void serve(Session& session, const QJsonObject& request);
    void close(Session* session);

    /// Hands accepted sockets on before a QTcpSocket is made of them.
    class Listener;

    Installation state;
    Identity identity;
    Manners manners;
    AudioReceiver microphone;
    std::unique_ptr<Listener> listener;
    std::vector<std::unique_ptr<Session>> sessions;
    int nextSession = 1;
};

} // namespace simulator
