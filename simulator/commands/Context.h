#pragma once

#include "simulator/Session.h"
#include "simulator/state/Access.h"
#include "simulator/state/Installation.h"

#include <QJsonObject>

#include <functional>
#include <optional>
#include <vector>

namespace simulator
{

class AudioReceiver;
class Server;
class UploadReceiver;

/// A message of the server's own accord, and who hears it.
struct Push {
    QJsonObject message;
    const Session* notTo = nullptr; ///< a session that is left out
    std::optional<int> aboutUnit;   ///< only to those who see this unit
    std::optional<int> aboutZone;   ///< only to those who see this zone
};

/// A push with nothing but its two names.
Push makePush(const QString& request, const QString& action, QJsonObject fields = {});
/// The push that makes the consoles ask for a protocol's state again.
Push reloadPush(const QString& request);
/// The push by which a unit enters or leaves a zone: `action` is "includeDevice" or
/// "excludeDevice". Who does not see the zone does not hear of it; zone 0 is everybody's.
Push membershipPush(const QString& action, int zone, int unit);

/// What happens a while after a reply.
struct Later {
    int milliseconds;
    std::function<void(Server&)> deed;
};

/// What a command handler works with: the state, who asks, and the pushes that follow its reply.
class Context
{
public:
    Context(Installation& installation, Session& session, AudioReceiver& receiver,
            UploadReceiver& uploads, QStringList accounts);

    Installation& installation() { return state; }
    Session& session() { return asking; }
    /// The account that asks, null before the login and when it has been deleted meanwhile.
    const Account* account() const;
    /// The role of the account that asks, null as above and for an account without a role.
    const Role* role() const;
    /// Who asks, for the log.
    QString who() const;
    /// Only inside handlers of commands that need a login: there is a role then.
    Access access() const { return Access(state, *role()); }
    const QStringList& connectedAccounts() const { return connected; }
    /// Where the speaking console sends its sound.
    AudioReceiver& audioReceiver() { return microphone; }
    /// Where a console sends a file.
    UploadReceiver& uploadReceiver() { return files; }

    /// Sends a push to all sessions, behind the reply.
    void push(Push push) { outbox.push_back(std::move(push)); }
    /// The same to all but the one that asks.
    void pushToOthers(Push push);
    const std::vector<Push>& pushes() const { return outbox; }
    /// Does something a while after the reply, unless the server has ended by then.
    void later(int milliseconds, std::function<void(Server&)> deed)
    {
        deeds.push_back({milliseconds, std::move(deed)});
    }
    const std::vector<Later>& delayed() const { return deeds; }

private:
    Installation& state;
    Session& asking;
    AudioReceiver& microphone;
    UploadReceiver& files;
    QStringList connected;
    std::vector<Push> outbox;
    std::vector<Later> deeds;
};

} // namespace simulator
