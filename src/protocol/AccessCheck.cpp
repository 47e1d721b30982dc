#include "protocol/AccessCheck.h"

#include "app/Data.h"
#include "log/LogSettings.h"
#include "log/Logger.h"
#include "network/Fields.h"
#include "protocol/ProtocolUser.h"
#include "protocol/Reply.h"
#include "protocol/SessionHooks.h"

#include <QCryptographicHash>

namespace
{

/// What each alarm dialog runs when it is opened, and when it is refused.
struct AlarmPage {
    const char* unblock;
    const char* refuse;
    const char* sideMenu;
    const char* topMenu;
    const char* mainBody;
    const char* botMenu;
    const char* modal;
};

constexpr AlarmPage alarmMessages{"warningUnblock", "modal_alarm_error", "alarm_zone_list",
                                  "alarm_list",     "alarm_list",        "alarm_messages_list",
                                  "alarm"};
constexpr AlarmPage alarmMicrophone{"microphoneUnblock", "modal_translation_error",
                                    "alarm_zone_list",   "translation",
                                    "translation",       "translation",
                                    "translation"};

void openAlarmPage(const AlarmPage& page)
{
    Page::call(page.unblock);
    Page::call("loadSideMenu", page.sideMenu);
    Page::call("loadTopMenu", page.topMenu);
    Page::call("loadMainBody", page.mainBody);
    Page::call("loadBotMenu", page.botMenu);
    Page::call("loadModal", page.modal);
}

void answerLock(bool allowed)
{
    if (allowed) {
        Page::call("unblock");
        if (sessionHooks().unlocked) {
            sessionHooks().unlocked();
        }
        return;
    }
    Page::call("modalBlockError");
    Page::call("modalBlockWrongPassword");
}

void answerAlarm(bool allowed)
{
    const int dialog = Data::waitForAlarm;
    Data::waitForAlarm = AlarmAccess::None;
    if (dialog != AlarmAccess::Messages && dialog != AlarmAccess::Microphone) {
        return;
    }
    const AlarmPage& page = dialog == AlarmAccess::Messages ? alarmMessages : alarmMicrophone;
    if (allowed) {
        openAlarmPage(page);
    } else {
        Page::call(page.refuse);
    }
}

} // namespace

QString passwordDigest(const QString& password)
{
    const QByteArray digest = QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5);
    return QString::fromLatin1(digest.toHex());
}

void protocolUserCommandCheckAccess(const QJsonObject& reply)
{
    const bool forbidden = response(reply) == QLatin1String("forbidden");
    if (!succeeded(reply) && !forbidden) {
        return;
    }
    if (forbidden) {
        Data::logger.message("access_error: forbbiden", LogLevel::AccessError);
    }
    if (request(reply).value(QLatin1String("target")) == QLatin1String("login")) {
        answerLock(!forbidden);
    } else {
        answerAlarm(!forbidden);
    }
}
