#include "simulator/commands/Context.h"

namespace simulator
{

Push makePush(const QString& request, const QString& action, QJsonObject fields)
{
    fields.insert("request", request);
    fields.insert("action", action);
    return {fields, nullptr, std::nullopt, std::nullopt};
}

Push reloadPush(const QString& request)
{
    return makePush(request, "reloadChanges");
}

Push membershipPush(const QString& action, int zone, int unit)
{
    Push push = makePush("zone", action, {{"zoneId", zone}, {"deviceId", unit}});
    if (zone != 0) {
        push.aboutZone = zone;
    }
    return push;
}

Context::Context(Installation& installation, Session& session, AudioReceiver& receiver,
                 UploadReceiver& uploads, QStringList accounts)
    : state(installation),
      asking(session),
      microphone(receiver),
      files(uploads),
      connected(std::move(accounts))
{
}

const Account* Context::account() const
{
    return state.account(asking.account());
}

const Role* Context::role() const
{
    const Account* own = account();
    return own ? state.role(own->role) : nullptr;
}

QString Context::who() const
{
    return QString("%1 in session %2").arg(asking.account()).arg(asking.number());
}

void Context::pushToOthers(Push push)
{
    push.notTo = &asking;
    outbox.push_back(std::move(push));
}

} // namespace simulator
