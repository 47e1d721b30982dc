#include "protocol/ProtocolRole.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "log/Log.h"
#include "model/ModelList.h"
#include "model/Role.h"
#include "model/User.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/Commands.h"
#include "protocol/FieldSetter.h"
#include "protocol/NamedEntries.h"
#include "protocol/Protocols.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"
#include "protocol/RoleAccess.h"
#include "protocol/RoleRights.h"

namespace
{

constexpr CommandRow commands[] = {
    {"add", protocolRoleCommandAdd},
    {"edit", protocolRoleCommandEdit},
    {"delete", protocolRoleCommandDelete},
    {"getInfo", protocolRoleCommandGetInfo},
    {"list", protocolRoleCommandList},
    {"include", protocolRoleCommandInclude},
    {"exclude", protocolRoleCommandExclude},
    {"setRedirection", protocolRoleCommandSetRedirection},
    {"getRedirection", protocolRoleCommandGetRedirection},
    {"setServer", protocolRoleCommandSetServer},
    {"getServer", protocolRoleCommandGetServer},
    {"setTasks", protocolRoleCommandSetTasks},
    {"getTasks", protocolRoleCommandGetTasks},
    {"setZones", protocolRoleCommandSetZones},
    {"getZones", protocolRoleCommandGetZones},
    {"setPlaylist", protocolRoleCommandSetPlaylist},
    {"getPlaylist", protocolRoleCommandGetPlaylist},
    {"setPreset", protocolRoleCommandSetPreset},
    {"getPreset", protocolRoleCommandGetPreset},
    {"setPermissions", protocolRoleCommandSetPermissions},
};

constexpr char deleteScript[] = "wrapperInput_role_delete";

constexpr Refusal addRefusals[] = {
    {"error", "modalAdminAddRoleError"},
    {"titleExists", "modalAdminTitleExists"},
};

/// The id behind that of the last role; 0 is kept for the operator's own.
int nextRoleId()
{
    int id = Data::roleList.isEmpty() ? 1 : Data::roleList.last()->getId() + 1;
    while (Data::roleList.find(id)) {
        ++id;
    }
    return id;
}

void askForContent(const QString& name)
{
    for (const RoleCommand command :
         {RoleCommand::GetRedirection, RoleCommand::GetServer, RoleCommand::GetZones,
          RoleCommand::GetPlaylist, RoleCommand::GetPreset, RoleCommand::GetTasks}) {
        send(command, {{QStringLiteral("role"), name}});
    }
}

/// What a role that the server knows no rights for yet starts with.
void sendFirstRights(const QString& name)
{
    const QString control = QStringLiteral("control");
    const QString read = QStringLiteral("read");
    send(RoleCommand::SetServer, {{QStringLiteral("role"), name},
                                  {QStringLiteral("serverManagement"), false},
                                  {QStringLiteral("userManagement"), false},
                                  {QStringLiteral("zoneManagement"), false},
                                  {QStringLiteral("roleManagement"), QStringLiteral("unavailable")},
                                  {QStringLiteral("playbackManagement"), control},
                                  {QStringLiteral("deviceManagement"), control},
                                  {QStringLiteral("taskManagement"), read},
                                  {QStringLiteral("presetManagement"), read}});
}

/// The role with the name that the request was about; null, with a log line, if it has gone.
Role* requestedRole(const QJsonObject& reply)
{
    const QString name = Fields::text(request(reply), "name").value_or(QString());
    Role* const role = Data::getRoleByName(name);
    if (!role) {
        Log::dropped(QStringLiteral("Ignored reply: unknown role ") + name);
    }
    return role;
}

void takeUsers(Role& role, const QJsonObject& entry)
{
    const auto users = Fields::array(entry, "users");
    if (!users) {
        Log::dropped(QStringLiteral("Ignored users of a role: no list"));
        return;
    }
    for (const NamedEntry& user : namedEntries(*users, "role's user")) {
        Log::message(QStringLiteral("Found user ") + user.name);
        if (!role.users.contains(user.name)) {
            role.users.append(user.name);
        }
    }
}

void takeRole(const QString& name, const QJsonObject& entry)
{
    Role* role = Data::getRoleByName(name);
    const bool isKnown = role != nullptr;
    Log::message(QLatin1String(isKnown ? "Found role " : "New role ") + name);
    if (!isKnown) {
        role = &appendRole(name);
    }
    FieldSetter<Role>(*role, entry, "role list").text("title", &Role::setTitle);
    takeUsers(*role, entry);
    if (!isKnown && Data::getCurrentRole()) {
        askForContent(name);
    }
}

void setRoleOfUser(const QJsonObject& asked, const QString& role)
{
    const QString name = Fields::text(asked, "user").value_or(QString());
    if (User* const user = Data::getUserByName(name)) {
        user->changeRole(role);
    } else {
        Log::dropped(QStringLiteral("Ignored reply: unknown user ") + name);
    }
}

} // namespace

void initProtocolRole(NetworkParser* parser)
{
    registerProtocol<RoleCommand>(parser, "role", commands);
}

Role& appendRole(const QString& name, const QString& title)
{
    auto role = std::make_unique<Role>();
    role->setId(nextRoleId());
    role->setName(name);
    role->setTitle(title);
    return *Data::roleList.append(std::move(role));
}

void protocolRoleCommandAdd(const QJsonObject& reply)
{
    const auto name = Fields::text(request(reply), "name");
    if (!succeeded(reply) || !name) {
        showRefusal(reply, addRefusals);
        return;
    }
    const QString title = Fields::text(request(reply), "title").value_or(QString());
    // The push about the new role, which has no title, may have been quicker than the answer.
    if (Role* const known = Data::getRoleByName(*name)) {
        known->setTitle(title);
    } else {
        appendRole(*name, title).addToPage(false);
    }
    Page::call("modalAdminAddRoleHide");
    sendFirstRights(*name);
}

void protocolRoleCommandEdit(const QJsonObject& reply)
{
    if (Role* const role = succeeded(reply) ? requestedRole(reply) : nullptr) {
        const QJsonObject asked = request(reply);
        FieldSetter<Role>(*role, asked, "role edit").text("title", &Role::setTitle);
    }
}

void protocolRoleCommandDelete(const QJsonObject& reply)
{
    const Role* const role = succeeded(reply) ? requestedRole(reply) : nullptr;
    if (!role) {
        return;
    }
    for (User& user : Data::userList) {
        if (user.getRole() == role->getName()) {
            user.changeRole(QString());
        }
    }
    Page::call(deleteScript, role->getId());
    Data::roleList.remove(role);
}

void protocolRoleCommandGetInfo(const QJsonObject& reply)
{
    const auto name = Fields::text(reply, "name");
    if (!succeeded(reply) || !name) {
        return;
    }
    Role* role = Data::getRoleByName(*name);
    const bool isKnown = role != nullptr;
    if (!isKnown) {
        auto own = std::make_unique<Role>();
        own->setCurrent(true);
        own->setName(*name);
        role = Data::roleList.append(std::move(own));
    }
    FieldSetter<Role>(*role, reply, "role information").text("title", &Role::setTitle);
    if (!isKnown) {
        askForContent(*name);
    }
}

void protocolRoleCommandList(const QJsonObject& reply)
{
    const auto roles = Fields::array(reply, "roles");
    if (!succeeded(reply) || !roles) {
        return;
    }
    const QVector<NamedEntry> entries = namedEntries(*roles, "role");
    if (roles->size() < Data::roleList.size()) {
        removeUnnamed(Data::roleList, entries, "role", deleteScript);
    } else if (roles->size() > Data::roleList.size()) {
        for (const NamedEntry& entry : entries) {
            takeRole(entry.name, entry.fields);
        }
    }
}

void protocolRoleCommandInclude(const QJsonObject& reply)
{
    const QJsonObject asked = request(reply);
    const auto role = Fields::text(asked, "role");
    if (succeeded(reply) && role) {
        setRoleOfUser(asked, *role);
    }
}

void protocolRoleCommandExclude(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        setRoleOfUser(request(reply), QString());
    }
}
