#include "view/WebView.h"

#include "app/Data.h"
#include "log/LogSettings.h"
#include "page/ScriptCall.h"
#include "protocol/ProtocolUser.h"
#include "protocol/Request.h"
#include "view/IdleLock.h"
#include "view/PasswordDigest.h"
#include "view/SlotLog.h"

#include <QSettings>

#include <algorithm>
#include <limits>

namespace
{

constexpr int longestMinutes = std::numeric_limits<int>::max() / IdleLock::millisecondsInMinute;

void showBlockTime()
{
    Page::call("loadBlockTime", IdleLock::idleMilliseconds() / IdleLock::millisecondsInMinute);
}

void checkAccess(const char* target, const QString& password)
{
    send(UserCommand::CheckAccess, {{QStringLiteral("target"), QLatin1String(target)},
                                    {QStringLiteral("password"), passwordDigest(password)}});
}

} // namespace

void WebView::resetBlockTimer()
{
    lock.reset();
}

void WebView::modal_blockShow()
{
    const SlotLog log("modal_blockShow");
    Page::call("block");
}

void WebView::modal_tryUnblock(const QString& password)
{
    const SlotLog log("access_tryUnblock");
    checkAccess("login", password);
}

void WebView::modal_tryUnblockAlarm(const QString& password)
{
    const SlotLog log("access_tryUnblockAlarm");
    Data::waitForAlarm = WaitForAlarmMessages;
    checkAccess("alarm", password);
}

void WebView::modal_tryUnblockTranslation(const QString& password)
{
    const SlotLog log("access_tryUnblockTranslation");
    Data::waitForAlarm = WaitForAlarmMicrophone;
    checkAccess("alarm", password);
}

void WebView::settings_block_init()
{
    const SlotLog log("settings_block_init", {}, LogLevel::ClientSettings);
    showBlockTime();
    Page::call("loadBlockStatus", Data::blockStatus);
}

void WebView::settings_block_save(bool enabled, int minutes)
{
    const SlotLog log("settings_block_save", QStringLiteral(": %1").arg(minutes),
                      LogLevel::ClientSettings);
    if (minutes <= 0) {
        showBlockTime();
    }
    Data::settings->setValue(QStringLiteral("admin/block_time"),
                             std::clamp(minutes, 1, longestMinutes) *
                                 IdleLock::millisecondsInMinute);
    Data::blockStatus = enabled;
    Data::settings->setValue(QStringLiteral("admin/block_enable"), enabled);
    resetBlockTimer();
}
