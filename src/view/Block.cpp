#include "view/WebView.h"

#include "app/Data.h"
#include "log/Logger.h"
#include "page/ScriptCall.h"
#include "protocol/AccessCheck.h"
#include "protocol/Request.h"

#include <QSettings>
#include <QTimer>

namespace
{

constexpr int defaultBlockMilliseconds = 600000;

/// Asks the server whether the password is the user's: `target` is "login" or "alarm".
void askAccess(const QString& target, const QString& password)
{
    send(UserCommand::CheckAccess, {{QStringLiteral("target"), target},
                                    {QStringLiteral("password"), passwordDigest(password)}});
}

} // namespace

void WebView::startBlockTimer()
{
    blockTimer->start(
        Data::settings->value(QStringLiteral("admin/block_time"), defaultBlockMilliseconds)
            .toInt());
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
    Page::call("block");
}

void WebView::modal_tryUnblock(const QString& password)
{
    Data::logger.message("access_tryUnblock");
    askAccess(QStringLiteral("login"), password);
}

void WebView::modal_tryUnblockAlarm(const QString& password)
{
    Data::logger.message("access_tryUnblockAlarm");
    Data::waitForAlarm = AlarmAccess::Messages;
    askAccess(QStringLiteral("alarm"), password);
}

void WebView::modal_tryUnblockTranslation(const QString& password)
{
    Data::logger.message("access_tryUnblockTranslation");
    Data::waitForAlarm = AlarmAccess::Microphone;
    askAccess(QStringLiteral("alarm"), password);
}
