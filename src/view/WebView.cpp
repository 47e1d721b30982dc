#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/ModelList.h"
#include "model/Role.h"
#include "model/ServerSettings.h"
#include "model/User.h"
#include "network/NetworkParser.h"
#include "page/ScriptCall.h"
#include "protocol/Request.h"
#include "view/DeviceReplay.h"
#include "view/LocalPage.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QKeyEvent>
#include <QScreen>
#include <QSettings>
#include <QTimer>
#include <QWebFrame>
#include <QWebHistory>
#include <QWebView>

namespace
{

constexpr QSize smallestWindow{1280, 800};

/// Pages live in the program; nothing is gained by keeping copies of them.
void keepCachesSmall()
{
    QWebSettings::setMaximumPagesInCache(0);
    QWebSettings::setObjectCacheCapacities(0, 1024 * 1024, 4 * 1024 * 1024);
}

/// Whether any of the screens of today shows a part of the window's bar.
bool isOnScreen(const QRect& window)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
        return screen->availableGeometry().intersects(
            QRect(window.topLeft(), QSize(window.width(), 1)));
    });
}

/// One picture of a screen: what comes faster than that is seen at once.
constexpr int scriptPauseMilliseconds = 16;

/// Most calls are of functions that the page on show doesn't have; asking costs less than an error.
QString onlyIfDefined(const QString& call)
{
    return QLatin1String("typeof ") + call.left(call.indexOf(QLatin1Char('('))) +
           QLatin1String("==='function'&&") + call;
}

} // namespace

WebView::WebView()
    : blockTimer(new QTimer(this)),
      scriptTimer(new QTimer(this)),
      deviceReplay(new DeviceReplay(this)),
      view(std::make_unique<QWebView>())
{
    keepCachesSmall();
    view->setPage(new LocalPage(view.get()));
    view->setAttribute(Qt::WA_MouseTracking, true);
    view->installEventFilter(this);
    view->history()->setMaximumItemCount(0);
    view->resize(smallestWindow);
    view->setContextMenuPolicy(Qt::NoContextMenu);
    connect(view.get(), &QWebView::loadFinished, this, &WebView::loaded);
    Log::message("Load login page");
    loadPage(LocalPage::loginUrl);
    scriptTimer->setSingleShot(true);
    scriptTimer->setInterval(scriptPauseMilliseconds);
    connect(scriptTimer, &QTimer::timeout, this, &WebView::flushScripts);
    connect(blockTimer, &QTimer::timeout, this, &WebView::modal_blockShow);
    connect(&udpSocket, &QUdpSocket::readyRead, this, &WebView::login_serverFound);
}

WebView::~WebView()
{
    // A page that goes while it is loading still says that it has finished.
    view->disconnect(this);
}

void WebView::loadPage(const QUrl& page)
{
    flushScripts();
    sessionPage = page == LocalPage::sessionUrl;
    view->load(page);
    publishWrapper();
}

void WebView::closeWindow()
{
    view->close();
}

void WebView::publishWrapper()
{
    view->page()->mainFrame()->addToJavaScriptWindowObject(QStringLiteral("wrapper"), this,
                                                           QWebFrame::QtOwnership);
}

void WebView::loaded(bool)
{
    Log::message("Page loaded");
    view->history()->clear();
    publishWrapper();
    if (view->isHidden()) {
        restoreWindow();
    }
    documentElement = view->page()->mainFrame()->documentElement();
    if (Data::userRoleChanged) {
        Page::call("modalRoleChangedShow");
        Data::userRoleChanged = false;
    }
}

void WebView::runJavascript(const QString& text)
{
    if (Log::isWritten(LogLevel::Debug)) {
        Log::message(QStringLiteral("Command to Javascript: ") + text, LogLevel::Debug);
    }
    if (collecting) {
        collectedScripts += QLatin1String("try{") + onlyIfDefined(text) +
                            QLatin1String("}catch(error){console.error(error);}");
    } else {
        flushScripts();
        documentElement.evaluateJavaScript(onlyIfDefined(text));
    }
}

void WebView::collectScripts(bool isCollecting)
{
    collecting = isCollecting;
    if (!isCollecting && !collectedScripts.isEmpty() && !scriptTimer->isActive()) {
        scriptTimer->start();
    }
}

void WebView::flushScripts()
{
    scriptTimer->stop();
    const QString scripts = std::exchange(collectedScripts, QString());
    if (!scripts.isEmpty()) {
        documentElement.evaluateJavaScript(scripts);
    }
}

void WebView::stopTimers()
{
    blockTimer->stop();
    deviceReplay->stop();
}

void WebView::global_about()
{
    Log::message("about");
    Page::call("wrapperInput_serverGlobal_setServerVersion",
               Data::serverSettings.getServerVersion());
    Page::call("wrapperInput_serverGlobal_setClientVersion", Data::clientVersion);
    Log::message("aboutEnd");
}

void WebView::global_loadFrame()
{
    Log::message("global_loadFrame");
    // What arrived while the page was on its way has found nobody there.
    send(HelperCommand::GetDateTime);
    load_permissions();
    if (const Role* const role = Data::getCurrentRole()) {
        role->reloadRoles();
    }
    if (const User* const user = Data::getCurrentUser()) {
        Page::call("wrapperInput_userGlobal_edit", user->getTitle());
        Page::call("modalLoadingHide");
    }
    Log::message("global_loadFrameEnd");
}

void WebView::restoreWindow()
{
    QSettings& stored = *Data::settings;
    view->setMinimumSize(smallestWindow);
    if (stored.value(QStringLiteral("screen/ifFullScreen"), false).toBool()) {
        view->showFullScreen();
    }
    if (stored.value(QStringLiteral("screen/isMaximized"), false).toBool()) {
        view->showMinimized();
        view->showMaximized();
        return;
    }
    view->show();
    const QSize size(
        stored.value(QStringLiteral("screen/width"), smallestWindow.width()).toInt(),
        stored.value(QStringLiteral("screen/height"), smallestWindow.height()).toInt());
    view->resize(size);
    const QSize desktop = QApplication::desktop()->size();
    const QPoint centred((desktop.width() - size.width()) / 2,
                         (desktop.height() - size.height()) / 2);
    const QPoint position(stored.value(QStringLiteral("screen/x"), centred.x()).toInt(),
                          stored.value(QStringLiteral("screen/y"), centred.y()).toInt());
    view->move(isOnScreen(QRect(position, size)) ? position : centred);
}

void WebView::saveWindow()
{
    QSettings& stored = *Data::settings;
    stored.setValue(QStringLiteral("screen/ifFullScreen"), view->isFullScreen());
    stored.setValue(QStringLiteral("screen/isMaximized"), view->isMaximized());
    stored.setValue(QStringLiteral("screen/width"), view->width());
    stored.setValue(QStringLiteral("screen/height"), view->height());
    stored.setValue(QStringLiteral("screen/x"), view->x());
    stored.setValue(QStringLiteral("screen/y"), view->y());
}

bool WebView::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Close:
        saveWindow();
        windowClosed();
        return false;
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_F11) {
            view->setWindowState(view->windowState() ^ Qt::WindowFullScreen);
        }
        resetBlockTimer();
        break;
    case QEvent::MouseMove:
        resetBlockTimer();
        break;
    case QEvent::ActivationChange:
        if (view->isActiveWindow()) {
            windowActivated();
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void WebView::windowActivated()
{
    Log::message("Window Activated");
    if (Data::getCurrentRole() && Data::parser.orderCounter != 0) {
        send(HelperCommand::GetDateTime);
    }
}

void WebView::windowClosed()
{
    if (Data::getCurrentUser()) {
        Data::waitForExit = true;
        send(UserCommand::Logout);
    }
}
