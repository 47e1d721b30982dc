#include "simulator/Server.h"

#include "simulator/EventLog.h"
#include "simulator/commands/CommandTable.h"
#include "simulator/commands/Context.h"
#include "simulator/commands/PlaybackPushes.h"
#include "simulator/commands/UnitReport.h"
#include "simulator/state/Access.h"

#include <QTimer>

#include <algorithm>

namespace simulator
{

class Server::Listener : public QTcpServer
{
public:
    explicit Listener(std::function<void(qintptr)> take) : accept(std::move(take)) {}

protected:
    void incomingConnection(qintptr descriptor) override { accept(descriptor); }

private:
    std::function<void(qintptr)> accept;
};

namespace
{

const Role* roleOf(const Installation& installation, const Session& session)
{
    const Account* account = installation.account(session.account());
    return account ? installation.role(account->role) : nullptr;
}

bool mayHear(const Installation& installation, const Session& session, const Push& push)
{
    const Role* role = roleOf(installation, session);
    if (session.account().isEmpty() || &session == push.notTo) {
        return false;
    }
    if (!role) {
        // Who has lost his account or his role learns it when he asks about himself.
        return push.message.value("request") == "user";
    }
    const Access access(installation, *role);
    const Zone* zone = push.aboutZone ? installation.zone(*push.aboutZone) : nullptr;
    if (push.aboutZone && !(zone && access.sees(*zone))) {
        return false;
    }
    const Unit* unit = push.aboutUnit ? installation.unit(*push.aboutUnit) : nullptr;
    return !push.aboutUnit || (unit && access.sees(*unit));
}

} // namespace

Server::Server(Installation fiction, Identity own)
    : state(std::move(fiction)),
      identity(std::move(own)),
      listener(std::make_unique<Listener>([this](qintptr descriptor) { accept(descriptor); }))
{
    connect(&microphone, &AudioReceiver::said, this, &Server::said);
    connect(&uploads, &UploadReceiver::said, this, &Server::said);
}

Server::~Server() = default;

bool Server::listen(const QHostAddress& address, quint16 port)
{
    return listener->listen(address, port);
}

QString Server::errorString() const
{
    return listener->errorString();
}

QHostAddress Server::address() const
{
    return listener->serverAddress();
}

quint16 Server::port() const
{
    return listener->serverPort();
}

QStringList Server::connectedAccounts() const
{
    QStringList names;
    for (const auto& session : sessions) {
        if (!session->account().isEmpty() && !names.contains(session->account())) {
            names.append(session->account());
        }
    }
    return names;
}

void Server::broadcast(const Push& push)
{
    broadcast(std::vector<Push>{push});
}

void Server::broadcast(const std::vector<Push>& pushes)
{
    for (const auto& session : sessions) {
        std::vector<QJsonObject> heard;
        for (const Push& push : pushes) {
            if (mayHear(state, *session, push)) {
                heard.push_back(push.message);
            }
        }
        if (!heard.empty()) {
            session->push(heard);
        }
    }
}

void Server::tellUnits(const QVector<int>& ids)
{
    std::vector<Push> pushes;
    for (int id : ids) {
        if (const Unit* unit = state.unit(id)) {
            pushes.push_back(unitPush(state, *unit));
        }
    }
    broadcast(pushes);
}

void Server::changeLink(const QVector<int>& ids, Link link)
{
    std::vector<Push> pushes;
    bool plays = false;
    bool hears = false;
    for (int id : ids) {
        Unit* unit = state.unit(id);
        if (!unit || unit->link == link) {
            continue;
        }
        qCInfo(events).noquote() << "Unit" << id << "link" << wordOf(linkWords, link);
        unit->link = link;
        pushes.push_back(unitPush(state, *unit));
        plays = plays || unit->playback > 0;
        hears = hears || (state.redirection && state.redirection->units.contains(id));
    }
    // The consoles took the units off their playback when they went.
    if (link == Link::Bidirectional && plays) {
        pushes.push_back(makePush("playback", "play"));
    }
    if (link == Link::Bidirectional && hears) {
        pushes.push_back(makePush("playback", "startRedirection"));
    }
    broadcast(pushes);
}

void Server::end(int playback, const QString& by)
{
    const QVector<int> units = state.activeUnits(*state.playback(playback));
    endPlayback(state, playback, by);
    broadcast(endPushes(state, playback, units));
}

void Server::setReplyDelay(int milliseconds)
{
    manners.replyDelay = milliseconds;
    for (const auto& session : sessions) {
        session->hurry();
    }
}

void Server::dropConnections()
{
    // Dropping a session takes it out of the list under way.
    std::vector<Session*> present;
    std::transform(sessions.begin(), sessions.end(), std::back_inserter(present),
                   [](const auto& session) { return session.get(); });
    for (Session* session : present) {
        session->drop();
    }
}

void Server::restart()
{
    constexpr int downMilliseconds = 3000;
    const QHostAddress where = address();
    const quint16 portBefore = port();
    qCInfo(events) << "The server restarts";
    listener->close();
    dropConnections();
    QTimer::singleShot(downMilliseconds, this, [this, where, portBefore] {
        if (listen(where, portBefore)) {
            qCInfo(events) << "The server is back";
        }
    });
}

void Server::accept(qintptr descriptor)
{
    sessions.push_back(
        std::make_unique<Session>(descriptor, nextSession++, identity, manners, nullptr));
    Session* session = sessions.back().get();
    connect(session, &Session::requested, this,
            [this, session](const QJsonObject& request) { serve(*session, request); });
    connect(session, &Session::ended, this, [this, session] { close(session); });
}

void Server::serve(Session& session, const QJsonObject& request)
{
    Context context(state, session, microphone, uploads, connectedAccounts());
    session.reply(request, answer(context, request));
    broadcast(context.pushes());
    for (const Later& later : context.delayed()) {
        QTimer::singleShot(later.milliseconds, this, [this, deed = later.deed] { deed(*this); });
    }
    if (session.account().isEmpty()) {
        silenceIfSpeaker(session);
    }
    if (!state.redirection) {
        microphone.close();
    }
}

void Server::silenceIfSpeaker(const Session& session)
{
    if (!state.redirection || state.redirection->speaker != session.number()) {
        return;
    }
    broadcast(silence(state));
    microphone.close();
}

void Server::close(Session* session)
{
    const auto place =
        std::find_if(sessions.begin(), sessions.end(),
                     [session](const auto& candidate) { return candidate.get() == session; });
    if (place == sessions.end()) {
        return;
    }
    qCInfo(events) << "Session" << session->number() << "ended";
    silenceIfSpeaker(*session);
    if (uploads.current().session == session->number()) {
        uploads.close();
    }
    const bool wasLoggedIn = !session->account().isEmpty();
    // Its own signal is under way, so it may not be destroyed here.
    place->release()->deleteLater();
    sessions.erase(place);
    if (wasLoggedIn) {
        broadcast(reloadPush("user"));
    }
}

} // namespace simulator
