#include "model/User.h"

#include "page/ScriptCall.h"

void User::setName(const QString& userName)
{
    if (name != userName) {
        Page::call("wrapperInput_user_edit", id, userName, title);
    }
    name = userName;
}

void User::setTitle(const QString& userTitle)
{
    if (title != userTitle) {
        Page::call("wrapperInput_user_edit", id, name, userTitle);
    }
    if (current) {
        Page::call("wrapperInput_userGlobal_edit", userTitle);
    }
    title = userTitle;
}

void User::changeRole(const QString& roleName)
{
    if (role == roleName) {
        return;
    }
    if (roleName.isEmpty()) {
        Page::call("wrapperInput_role_exclude", id, role);
    } else {
        Page::call("wrapperInput_role_include", id, roleName);
    }
    role = roleName;
}

void User::setStatus(bool connected)
{
    Page::call(connected ? "wrapperInput_user_login" : "wrapperInput_user_logout", id);
    status = connected;
}

void User::addToPage() const
{
    Page::call("wrapperInput_user_add", id, name, title, status, current);
}
