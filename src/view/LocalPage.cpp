#include "view/LocalPage.h"

#include "app/Data.h"
#include "log/Log.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QWebFrame>
#include <QWebSettings>

const QUrl LocalPage::loginUrl{QStringLiteral("qrc:/Web/login.html")};
const QUrl LocalPage::sessionUrl{QStringLiteral("qrc:/Web/index.html")};

bool LocalNetwork::isLocal(const QUrl& url)
{
    return url.scheme() == QLatin1String("qrc");
}

QNetworkReply* LocalNetwork::createRequest(Operation operation, const QNetworkRequest& request,
                                           QIODevice* outgoing)
{
    if (isLocal(request.url())) {
        return QNetworkAccessManager::createRequest(operation, request, outgoing);
    }
    Log::message(QStringLiteral("Page request refused: ") + request.url().toString());
    QNetworkRequest refused(request);
    refused.setUrl(QUrl(QStringLiteral("qrc:/refused")));
    return QNetworkAccessManager::createRequest(GetOperation, refused, nullptr);
}

LocalPage::LocalPage(QObject* parent) : QWebPage(parent)
{
    setNetworkAccessManager(new LocalNetwork(this));
    QWebSettings* const local = settings();
    local->setAttribute(QWebSettings::PluginsEnabled, false);
    local->setAttribute(QWebSettings::JavaEnabled, false);
    local->setAttribute(QWebSettings::LocalStorageEnabled, false);
    local->setAttribute(QWebSettings::OfflineStorageDatabaseEnabled, false);
    local->setAttribute(QWebSettings::OfflineWebApplicationCacheEnabled, false);
    local->setAttribute(QWebSettings::DnsPrefetchEnabled, false);
    local->setAttribute(QWebSettings::JavascriptCanOpenWindows, false);
    local->setAttribute(QWebSettings::LocalContentCanAccessRemoteUrls, true);
    connect(this, &QWebPage::consoleMessageReceived, this, &LocalPage::logMessage);
    connect(this, &QWebPage::frameCreated, this, &LocalPage::closeSocketDoor);
    closeSocketDoor(mainFrame());
}

/// Web sockets pass by the network access manager, so they are taken away from the scripts, and so
/// are the workers, which have sockets of their own.
void LocalPage::closeSocketDoor(QWebFrame* frame)
{
    connect(frame, &QWebFrame::javaScriptWindowObjectCleared, this, [frame] {
        frame->evaluateJavaScript(
            QStringLiteral("['WebSocket', 'Worker', 'SharedWorker'].forEach(function (name) {"
                           "Object.defineProperty(window, name, {value: undefined}); });"));
    });
}

bool LocalPage::acceptNavigationRequest(QWebFrame* frame, const QNetworkRequest& request,
                                        NavigationType)
{
    const QUrl page = request.url().adjusted(QUrl::RemoveFragment);
    if (frame == mainFrame() && (page == loginUrl || page == sessionUrl)) {
        return true;
    }
    Log::message(QStringLiteral("Page navigation refused: ") + request.url().toString());
    return false;
}

QWebPage* LocalPage::createWindow(WebWindowType)
{
    return nullptr;
}

void LocalPage::logMessage(MessageSource, MessageLevel level, const QString& message, int line,
                           const QString& source)
{
    const bool isFault = level == ErrorMessageLevel || level == WarningMessageLevel;
    Log::message(
        QStringLiteral("Page message: %1 (%2:%3)").arg(message, source, QString::number(line)),
        isFault ? LogLevel::Always : LogLevel::Debug);
}

void LocalPage::javaScriptAlert(QWebFrame*, const QString& message)
{
    Log::message(QStringLiteral("Page alert: ") + message);
}
