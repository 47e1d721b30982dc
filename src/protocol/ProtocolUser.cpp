#include "protocol/ProtocolUser.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "log/Log.h"
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
#include "protocol/UserAccounts.h"

namespace
{

constexpr CommandRow commands[] = {
    {"add", protocolUserCommandAdd},
    {"login", protocolUserCommandLogin},
    {"logout", protocolUserCommandLogout},
    {"delete", protocolUserCommandDelete},
    {"checkAccess", protocolUserCommandCheckAccess},
    {"edit", protocolUserCommandEdit},
    {"getInfo", protocolUserCommandGetInfo},
    {"list", protocolUserCommandList},
    {"getConnected", protocolUserCommandGetConnected},
    {"saveValue", protocolUserCommandSaveValue},
    {"loadValue", protocolUserCommandLoadValue},
};

/// The page behind an alarm password, and what its dialog does.
struct AlarmPage {
    WaitForAlarm waiting;
    const char* closeDialog;
    const char* markWrong;
    const char* topMenu;
    const char* mainBody;
    const char* bottomMenu;
    const char* modal;
};

constexpr AlarmPage alarmPages[] = {
    {WaitForAlarmMessages, "warningUnblock", "modal_alarm_error", "alarm_list", "alarm_list",
     "alarm_messages_list", "alarm"},
    {WaitForAlarmMicrophone, "microphoneUnblock", "modal_translation_error", "translation",
     "translation", "translation", "translation"},
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
    auto user = std::make_unique<User>();
    if (Data::userList.find(user->getId())) {
        user->setId(nextUserId());
    }
    return Data::userList.append(std::move(user));
}

void logWrongPassword()
{
    Log::message("access_error: forbbiden", LogLevel::AccessError);
}

void answerLock(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        Page::call("unblock");
        runHook(sessionHooks().lockOpened);
    } else if (response(reply) == QLatin1String("forbidden")) {
        logWrongPassword();
        Page::call("modalBlockError");
        Page::call("modalBlockWrongPassword");
    }
}

void openAlarmPage(const AlarmPage& page)
{
    Page::call(page.closeDialog);
    Page::call("loadSideMenu", "alarm_zone_list");
    Page::call("loadTopMenu", page.topMenu);
    Page::call("loadMainBody", page.mainBody);
    Page::call("loadBotMenu", page.bottomMenu);
    Page::call("loadModal", page.modal);
}

void answerAlarm(const QJsonObject& reply)
{
    const bool isWrong = response(reply) == QLatin1String("forbidden");
    const auto page =
        std::find_if(std::begin(alarmPages), std::end(alarmPages),
                     [](const AlarmPage& each) { return each.waiting == Data::waitForAlarm; });
    if (page == std::end(alarmPages) || !(isWrong || succeeded(reply))) {
        return;
    }
    Data::waitForAlarm = WaitForNothing;
    if (isWrong) {
        logWrongPassword();
        Page::call(page->markWrong);
    } else {
        openAlarmPage(*page);
    }
}

} // namespace

void initProtocolUser(NetworkParser* parser)
{
    registerProtocol<UserCommand>(parser, "user", commands);
}

void protocolUserCommandLogin(const QJsonObject& reply)
{
    const QString word = response(reply);
    Log::message(word);
    if (succeeded(reply)) {
        runHook(sessionHooks().loginSucceeded);
    } else if (word == QLatin1String("error")) {
        runHook(sessionHooks().loginRefused);
    } else if (word == QLatin1String("required")) {
        // A server that doesn't say which version it speaks is older than that answer.
        Page::call("modalLoginVersionError", Data::apiVersion,
                   Fields::integer(reply, "version").value_or(0));
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
        return;
    }
    Data::leaving = false;
    Data::waitForExit = false; // a later logout is no exit
    if (response(reply) == QLatin1String("error")) {
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
    User* const current = Data::getCurrentUser();
    if (!name || (current && !title)) { // the session begins without a title, too
        Log::dropped(QStringLiteral("Dropped user information: no name or title"));
        return;
    }
    if (current) {
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
        user->setTitle(title.value_or(user->getTitle()));
    }
    Page::call("modalLoadingHide");
    runHook(sessionHooks().loginCompleted);
}

void protocolUserCommandCheckAccess(const QJsonObject& reply)
{
    const auto target = Fields::text(request(reply), "target");
    if (target == QStringLiteral("login")) {
        answerLock(reply);
    } else if (target == QStringLiteral("alarm")) {
        answerAlarm(reply);
    }
}
