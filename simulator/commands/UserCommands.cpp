#include "simulator/EventLog.h"
#include "simulator/commands/CommandTable.h"

#include <QJsonArray>

namespace simulator
{

namespace
{

constexpr int protocolVersion = 9;

QJsonObject login(Context& context, const QJsonObject& request)
{
    if (request.value("version") != QJsonValue(protocolVersion)) {
        return {{"response", "required"}, {"version", protocolVersion}};
    }
    const QString name = request.value("user").toString();
    const Account* account = context.installation().account(name);
    if (!account || account->password != request.value("password").toString()) {
        qCInfo(events) << "Session" << context.session().number() << "failed to log in as" << name;
        return refusal("error");
    }
    qCInfo(events) << "Session" << context.session().number() << "logged in as" << name;
    context.session().setAccount(name);
    context.pushToOthers(reloadPush("user"));
    return success();
}

QJsonObject logout(Context& context, const QJsonObject&)
{
    qCInfo(events) << "Session" << context.session().number() << "logged out";
    context.session().setAccount({});
    context.pushToOthers(reloadPush("user"));
    return success();
}

QJsonObject checkAccess(Context& context, const QJsonObject& request)
{
    const Account& own = *context.account();
    const QString target = request.value("target").toString();
    const QString given = request.value("password").toString();
    const bool right = (target == "login" && given == own.password) ||
                       (target == "alarm" && given == own.alarmPassword);
    return right ? success() : refusal("forbidden");
}

QJsonObject describe(const Account& account)
{
    return {{"name", account.name}, {"title", account.title}, {"role", account.role}};
}

QJsonObject getInfo(Context& context, const QJsonObject&)
{
    return success(describe(*context.account()));
}

QJsonObject list(Context& context, const QJsonObject&)
{
    QJsonArray users;
    for (const Account& account : context.installation().accounts) {
        if (context.access().sees(account)) {
            users.append(describe(account));
        }
    }
    return success({{"users", users}});
}

QJsonObject getConnected(Context& context, const QJsonObject&)
{
    QJsonArray names;
    for (const QString& name : context.connectedAccounts()) {
        const Account* account = context.installation().account(name);
        if (account && context.access().sees(*account)) {
            names.append(name);
        }
    }
    return success({{"users", names}});
}

} // namespace

Commands userCommands()
{
    const QLatin1String user("user");
    return {
        {user, QLatin1String("login"), {Right::Anyone}, login},
        {user, QLatin1String("logout"), {Right::Session}, logout},
        {user, QLatin1String("checkAccess"), {Right::Session}, checkAccess},
        {user, QLatin1String("getInfo"), {Right::Session}, getInfo},
        {user, QLatin1String("list"), {Right::Session}, list},
        {user, QLatin1String("getConnected"), {Right::Session}, getConnected},
    };
}

} // namespace simulator
