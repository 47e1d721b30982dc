#pragma once

#include "simulator/AudioReceiver.h"
#include "simulator/Identity.h"
#include "simulator/Session.h"
#include "simulator/UploadReceiver.h"
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

    /// Sends a push to every logged-in session that may see what it is about; several in one write.
    void broadcast(const Push& push);
    void broadcast(const std::vector<Push>& pushes);
    /// Tells the state of units to every logged-in session that sees them.
    void tellUnits(const QVector<int>& ids);
    /// Connects or loses units and tells it; those that carry a playback join it again.
    void changeLink(const QVector<int>& ids, Link link);
    /// Ends a playback that runs, and tells it; `by` is for the log.
    void end(int playback, const QString& by);

    void dropConnections();
    /// Ends all connections, and takes none for a few seconds.
    void restart();
    /// For all sessions, from their next request on.
    void setReplyDelay(int milliseconds);
    void setSilent(bool silent) { manners.silent = silent; }
    void setMostUnread(qint64 bytes) { manners.mostUnread = bytes; }

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
    UploadReceiver uploads;
    std::unique_ptr<Listener> listener;
    std::vector<std::unique_ptr<Session>> sessions;
    int nextSession = 1;
};

} // namespace simulator
