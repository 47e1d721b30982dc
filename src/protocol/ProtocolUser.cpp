#include "protocol/ProtocolUser.h"

#include "app/Data.h"
#include "log/Logger.h"
#include "model/ModelList.h"
#include "model/Role.h"
#include "model/User.h"
#include "network/Fields.h"
#include "network/TcpClient.h"
#include "protocol/Commands.h"
#include "protocol/Protocols.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"
#include "protocol/SessionHooks.h"

namespace
{

constexpr CommandRow commands[] = {
    {"add"},
    {"login", protocolUserCommandLogin},
    {"logout", protocolUserCommandLogout},
    {"delete"},
    {"checkAccess", protocolUserCommandCheckAccess},
    {"edit"},
    {"getInfo", protocolUserCommandGetInfo},
    {"list"},
    {"getConnected"},
    {"saveValue"},
    {"loadValue"},
};

void runHook(const std::function<void()>& hook)
{
    if (hook) {
        hook();
    }
}

/// The user that the end of the login makes current: one of the list, or a new one.
User* takeCurrentUser(const QString& name)
{
    if (User* const known = Data::getUserByName(name)) {
        return known;
    }
    return Data::userList.append(std::make_unique<User>());
}

} // namespace

void initProtocolUser(NetworkParser* parser)
{
    registerProtocol<UserCommand>(parser, "user", commands);
}

void protocolUserCommandLogin(const QJsonObject& reply)
{
    const QString word = response(reply);
    Data::logger.message(word);
    if (succeeded(reply)) {
        runHook(sessionHooks().loginSucceeded);
    } else if (word == QLatin1String("error")) {
        runHook(sessionHooks().loginRefused);
    } else if (word == QLatin1String("required")) {
        if (const auto version = Fields::integer(reply, "version")) {
            Page::call("modalLoginVersionError", Data::apiVersion, *version);
        } else {
            Data::logger.message("Dropped refused login: no version");
        }
    }
}

void protocolUserCommandLogout(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        if (Data::waitForExit) {
            Data::tcpClient.close();
            runHook(sessionHooks().closeProgram);
        } else {
            Data::tcpClient.exit();
        }
    } else if (response(reply) == QLatin1String("error")) {
        send(UserCommand::GetInfo);
    }
}

void protocolUserCommandGetInfo(const QJsonObject& reply)
{
    if (response(reply) == QLatin1String("forbidden")) {
        Data::tcpClient.exit();
        return;
    }
    if (!succeeded(reply)) {
        return;
    }
    const auto name = Fields::text(reply, "name");
    const auto title = Fields::text(reply, "title");
    if (!name || !title) {
        Data::logger.message("Dropped user information: no name or title");
        return;
    }
    if (User* const current = Data::getCurrentUser()) {
        current->setName(*name);
        current->setTitle(*title);
        const Role* const role = Data::getCurrentRole();
        const auto roleName = Fields::text(reply, "role");
        if (role && roleName && *roleName != role->getName()) {
            Data::userRoleChanged = true;
            Data::tcpClient.exit();
            return;
        }
    } else {
        User* const user = takeCurrentUser(*name);
        user->setCurrent(true);
        user->setStatus(true);
        user->setName(*name);
        user->setTitle(*title);
    }
    Page::call("modalLoadingHide");
}
