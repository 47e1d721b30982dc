#include "simulator/commands/CommandTable.h"
#include "simulator/state/Rights.h"

#include <algorithm>

namespace simulator
{

namespace
{

bool titleIsTaken(const Installation& installation, const QString& title, const QString& byOther)
{
    return std::any_of(installation.accounts.begin(), installation.accounts.end(),
                       [&title, &byOther](const Account& account) {
                           return account.title == title && account.name != byOther;
                       });
}

bool isName(const QString& name)
{
    return isTitle(name) && !name.contains(' ');
}

/// A digest of the length that passwords travel in.
bool isDigest(const QString& password)
{
    constexpr int digits = 32;
    return password.size() == digits;
}

QJsonObject add(Context& context, const QJsonObject& request)
{
    Account account;
    account.name = request.value("name").toString();
    account.title = request.value("title").toString();
    account.password = request.value("password").toString();
    account.alarmPassword = request.value("passwordForAlarm").toString();
    Installation& installation = context.installation();
    if (!isName(account.name) || !isTitle(account.title) || !isDigest(account.password) ||
        !isDigest(account.alarmPassword) || installation.account(account.name)) {
        return refusal("error");
    }
    if (titleIsTaken(installation, account.title, {})) {
        return refusal("titleExists");
    }
    installation.accounts.append(account);
    context.pushToOthers(reloadPush("user"));
    return success();
}

/// Puts the password under `key` into `password` when the request has one. False for a bad one.
bool takePassword(const QJsonObject& request, const char* key, QString& password)
{
    if (!request.contains(key)) {
        return true;
    }
    password = request.value(key).toString();
    return isDigest(password);
}

/// The administrator's title stays, whatever the request says.
QJsonObject edit(Context& context, const QJsonObject& request)
{
    Installation& installation = context.installation();
    Account* account = installation.account(request.value("name").toString());
    if (!account) {
        return refusal("error");
    }
    Account changed = *account;
    if (changed.name != administratorName) {
        changed.title = request.value("title").toString();
    }
    if (!isTitle(changed.title) || !takePassword(request, "password", changed.password) ||
        !takePassword(request, "passwordForAlarm", changed.alarmPassword)) {
        return refusal("error");
    }
    if (titleIsTaken(installation, changed.title, changed.name)) {
        return refusal("titleExists");
    }
    *account = changed;
    context.pushToOthers(reloadPush("user"));
    return success();
}

/// Nobody deletes the administrator or the account that he works with.
QJsonObject remove(Context& context, const QJsonObject& request)
{
    const QString name = request.value("name").toString();
    QVector<Account>& accounts = context.installation().accounts;
    const auto place = std::find_if(accounts.begin(), accounts.end(),
                                    [&name](const Account& one) { return one.name == name; });
    if (place == accounts.end() || name == administratorName ||
        name == context.session().account()) {
        return refusal("error");
    }
    accounts.erase(place);
    context.pushToOthers(reloadPush("user"));
    return success();
}

/// Gives the account of a request another role; an empty one takes it away.
QJsonObject move(Context& context, const QJsonObject& request, const QString& role)
{
    Account* account = context.installation().account(request.value("user").toString());
    if (!account || (account->name == administratorName && role != administratorName)) {
        return refusal("error");
    }
    account->role = role;
    context.pushToOthers(reloadPush("user"));
    return success();
}

QJsonObject include(Context& context, const QJsonObject& request)
{
    const Role* role = context.installation().role(request.value("role").toString());
    return role ? move(context, request, role->name) : refusal("error");
}

QJsonObject exclude(Context& context, const QJsonObject& request)
{
    return move(context, request, {});
}

} // namespace

Commands userEditingCommands()
{
    const QLatin1String user("user");
    const QLatin1String role("role");
    return {
        {user, QLatin1String("add"), {Right::Users}, add},
        {user, QLatin1String("edit"), {Right::Users}, edit},
        {user, QLatin1String("delete"), {Right::Users}, remove},
        {role, QLatin1String("include"), {Right::Users}, include},
        {role, QLatin1String("exclude"), {Right::Users}, exclude},
    };
}

} // namespace simulator
