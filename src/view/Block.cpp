#include "view/WebView.h"

#include "app/Data.h"
#include "log/LogSettings.h"
#include "page/ScriptCall.h"
#include "protocol/ProtocolUser.h"
#include "protocol/Request.h"
#include "view/PasswordDigest.h"
#include "view/SlotLog.h"

#include <QSettings>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace
{

constexpr int millisecondsInMinute = 60000;
constexpr int defaultBlockMilliseconds = 10 * millisecondsInMinute;
constexpr int longestMinutes = std::numeric_limits<int>::max() / millisecondsInMinute;

/// The idle time that locks, read afresh each time. A value that is no time gives the default: a
/// lock that comes back at once could never be opened.
int blockMilliseconds()
{
    const int stored = Data::settings->value(QStringLiteral("admin/block_time")).toInt();
    return stored > 0 ? stored : defaultBlockMilliseconds;
}

void showBlockTime()
{
    Page::call("loadBlockTime", blockMilliseconds() / millisecondsInMinute);
}

void checkAccess(const char* target, const QString& password)
{
    send(UserCommand::CheckAccess, {{QStringLiteral("target"), QLatin1String(target)},
                                    {QStringLiteral("password"), passwordDigest(password)}});
}

} // namespace

void WebView::startBlockTimer()
{
    blockTimer->start(blockMilliseconds());
}

void WebView::resetBlockTimer()
{
    if (Data::blockStatus) {
        startBlockTimer();
    } else {
        blockTimer->stop();
    }
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
                             std::clamp(minutes, 1, longestMinutes) * millisecondsInMinute);
    Data::blockStatus = enabled;
    Data::settings->setValue(QStringLiteral("admin/block_enable"), enabled);
    resetBlockTimer();
}
