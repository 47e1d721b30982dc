#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/ModelList.h"
#include "model/User.h"
#include "page/ScriptCall.h"
#include "protocol/Request.h"
#include "protocol/UserAccounts.h"
#include "view/PasswordDigest.h"
#include "view/SlotLog.h"

namespace
{

QString describe(const QString& name, const QString& title, const QString& roleName)
{
    return QStringLiteral(": ") + name + QLatin1String(", ") + title + QLatin1String(", ") +
           roleName;
}

} // namespace

void WebView::admin_loadUserList()
{
    const SlotLog log("admin_loadUserList", {}, LogLevel::UserSettings);
    for (const User& user : Data::userList) {
        Log::message(QStringLiteral("Load user: ") + user.getName(), LogLevel::UserSettings);
        user.addToPage();
    }
    if (!Data::userList.isEmpty()) {
        admin_selectUser(Data::userList.at(0)->getId());
    }
}

void WebView::admin_selectUser(int id)
{
    const SlotLog log("admin_selectUser", {}, LogLevel::UserSettings);
    User* const user = Data::userList.find(id);
    if (!user) {
        Log::message(QStringLiteral("Unknown user: %1").arg(id), LogLevel::UserSettings);
        return;
    }
    Page::call("wrapperInput_user_edit", id, user->getName(), user->getTitle());
    user->setStatus(user->getStatus());
    Page::call("wrapperInput_role_include", id, user->getRole());
}

void WebView::admin_addUser(const QString& name, const QString& title, const QString& password,
                            const QString& alarmPassword, const QString& roleName)
{
    const SlotLog log("admin_addUser", describe(name, title, roleName), LogLevel::UserSettings);
    includeInRoleOnceAdded(name, roleName);
    send(UserCommand::Add, {{QStringLiteral("name"), name},
                            {QStringLiteral("title"), title},
                            {QStringLiteral("password"), passwordDigest(password)},
                            {QStringLiteral("passwordForAlarm"), passwordDigest(alarmPassword)}});
}

void WebView::admin_editUser(const QString& name, const QString& title, const QString& password,
                             const QString& alarmPassword, const QString& roleName)
{
    const SlotLog log("admin_editUser", describe(name, title, roleName), LogLevel::UserSettings);
    QJsonObject fields{{QStringLiteral("name"), name},
                       {QStringLiteral("title"), User::isAdmin(name) ? QString() : title}};
    if (!password.isEmpty()) {
        fields.insert(QStringLiteral("password"), passwordDigest(password));
    }
    if (!alarmPassword.isEmpty()) {
        fields.insert(QStringLiteral("passwordForAlarm"), passwordDigest(alarmPassword));
    }
    send(UserCommand::Edit, fields);
    const User* const user = Data::getUserByName(name);
    if (user && user->getRole() != roleName) {
        send(RoleCommand::Exclude, {{QStringLiteral("user"), name}});
        includeInRole(name, roleName);
    }
}

void WebView::admin_deleteUser(const QString& name)
{
    const SlotLog log("admin_deleteUser", {}, LogLevel::UserSettings);
    send(UserCommand::Delete, {{QStringLiteral("name"), name}});
}
