#include "protocol/UserAccounts.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/ModelList.h"
#include "model/Role.h"
#include "model/User.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/FieldSetter.h"
#include "protocol/NamedEntries.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"

#include <QHash>

#include <algorithm>

namespace
{

constexpr char deleteScript[] = "wrapperInput_user_delete";

constexpr Refusal addRefusals[] = {
    {"error", "modalAdminAddUserError"},
    {"titleExists", "modalAdminTitleExists"},
};

constexpr Refusal editRefusals[] = {
    {"error", "modalAdminEditUserError"},
    {"titleExists", "modalAdminTitleExists"},
};

/// The user that the request was about; null, with a log line, if it has gone.
User* requestedUser(const QJsonObject& reply)
{
    const QString name = Fields::text(request(reply), "name").value_or(QString());
    User* const user = Data::getUserByName(name);
    if (!user) {
        Log::dropped(QStringLiteral("Ignored reply: unknown user ") + name);
    }
    return user;
}

/// A new user, of whom the message tells more than the name.
std::unique_ptr<User> makeUser(const QString& name, const QJsonObject& source)
{
    auto user = std::make_unique<User>();
    user->setId(nextUserId());
    user->setName(name);
    FieldSetter<User> set(*user, source, "new user");
    set.text("title", &User::setTitle);
    if (source.contains(QLatin1String("role"))) {
        set.text("role", &User::setRole);
    }
    return user;
}

/// Takes a user into the mirror, and shows the row.
void addUser(std::unique_ptr<User> made)
{
    const User& user = *Data::userList.append(std::move(made));
    user.addToPage();
}

void updateUser(User& user, const QJsonObject& entry)
{
    FieldSetter<User> set(user, entry, "user list");
    set.text("title", &User::setTitle);
    set.text("role", &User::changeRole);
}

/// The roles of the users that the server has still to take in, by name.
QHash<QString, QString>& awaitedRoles()
{
    static QHash<QString, QString> roles;
    return roles;
}

/// Stores a value of the current user under the key that was asked for.
void storeValue(const QJsonObject& reply, const QJsonObject& source)
{
    if (!succeeded(reply)) {
        return;
    }
    const auto key = Fields::text(request(reply), "key");
    const auto value = Fields::text(source, "value");
    User* const user = Data::getCurrentUser();
    if (key && value && user) {
        user->setValue(*key, *value);
    } else {
        Log::dropped(QStringLiteral("Ignored value of the user: no key, value or user"));
    }
}

} // namespace

int nextUserId()
{
    int id = Data::userList.size();
    for (const User& user : Data::userList) {
        id = std::max(id, user.getId() + 1);
    }
    return id;
}

void includeInRole(const QString& name, const QString& role)
{
    send(RoleCommand::Include, {{QStringLiteral("user"), name}, {QStringLiteral("role"), role}});
}

void includeInRoleOnceAdded(const QString& name, const QString& role)
{
    awaitedRoles().insert(name, role);
}

void protocolUserCommandAdd(const QJsonObject& reply)
{
    const QJsonObject asked = request(reply);
    const auto name = Fields::text(asked, "name");
    const QString role = awaitedRoles().take(name.value_or(QString()));
    if (!succeeded(reply) || !name) {
        showRefusal(reply, addRefusals);
        return;
    }
    // The list after a push may have been quicker than the answer.
    if (!Data::getUserByName(*name)) {
        auto user = makeUser(*name, asked);
        user->setStatus(false);
        addUser(std::move(user));
    }
    if (!role.isEmpty()) {
        includeInRole(*name, role);
    }
    Page::call("modalAdminAddUserHide");
}

void protocolUserCommandEdit(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        showRefusal(reply, editRefusals);
        return;
    }
    User* const user = requestedUser(reply);
    if (!user) {
        return;
    }
    if (!User::isAdmin(user->getName())) {
        const QJsonObject asked = request(reply);
        FieldSetter<User>(*user, asked, "user edit").text("title", &User::setTitle);
    }
    Page::call("modalAdminEditUser");
}

void protocolUserCommandDelete(const QJsonObject& reply)
{
    const User* const user = succeeded(reply) ? requestedUser(reply) : nullptr;
    if (!user) {
        return;
    }
    for (Role& role : Data::roleList) {
        role.users.removeAll(user->getName());
    }
    Page::call(deleteScript, user->getId());
    Data::userList.remove(user);
}

void protocolUserCommandList(const QJsonObject& reply)
{
    const auto users = Fields::array(reply, "users");
    if (!succeeded(reply) || !users) {
        return;
    }
    const QVector<NamedEntry> entries = namedEntries(*users, "user");
    if (users->size() < Data::userList.size()) {
        removeUnnamed(Data::userList, entries, "user", deleteScript);
    }
    // As many entries as users, under other names, take nobody in.
    const bool isMore = users->size() > Data::userList.size();
    for (const NamedEntry& entry : entries) {
        if (User* const user = Data::getUserByName(entry.name)) {
            updateUser(*user, entry.fields);
        } else if (isMore) {
            addUser(makeUser(entry.name, entry.fields));
        }
    }
}

void protocolUserCommandGetConnected(const QJsonObject& reply)
{
    const auto names = Fields::array(reply, "users");
    if (!succeeded(reply) || !names) {
        return;
    }
    for (User& user : Data::userList) {
        user.setStatus(false);
    }
    for (const QJsonValue& name : *names) {
        if (User* const user = name.isString() ? Data::getUserByName(name.toString()) : nullptr) {
            user->setStatus(true);
        }
    }
}

void protocolUserCommandSaveValue(const QJsonObject& reply)
{
    storeValue(reply, request(reply));
}

void protocolUserCommandLoadValue(const QJsonObject& reply)
{
    storeValue(reply, reply);
}
