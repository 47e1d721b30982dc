#include "view/WebView.h"

#include "app/Data.h"
#include "page/ScriptCall.h"

#include <QSettings>
#include <QTimer>

namespace
{

constexpr int defaultBlockMilliseconds = 600000;

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
