#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Role.h"
#include "model/ServerSettings.h"
#include "model/User.h"
#include "network/NetworkParser.h"
#include "page/ScriptCall.h"
#include "protocol/Request.h"
#include "view/IdleLock.h"
#include "view/LocalPage.h"
#include "view/ScriptPipe.h"
#include "view/WindowPlace.h"

#include <QKeyEvent>
#include <QTimer>
#include <QWebFrame>
#include <QWebHistory>
#include <QWebView>

#include <utility>

namespace
{

constexpr QSize firstSize{1280, 800};

/// Pages live in the program; nothing is gained by keeping copies of them.
void keepCachesSmall()
{
    QWebSettings::setMaximumPagesInCache(0);
    QWebSettings::setObjectCacheCapacities(0, 1024 * 1024, 4 * 1024 * 1024);
}

} // namespace

WebView::WebView(const Parts& parts)
    : scripts(parts.scripts),
      discovery(parts.discovery),
      lock(parts.lock),
      folders(parts.folders),
      upload(parts.upload),
      fileWork(parts.fileWork),
      logFeed(parts.logFeed),
      view(std::make_unique<QWebView>())
{
    keepCachesSmall();
    view->setPage(new LocalPage(view.get()));
    view->setWindowTitle(QStringLiteral("Пульт управления вещанием"));
    view->setAttribute(Qt::WA_MouseTracking, true);
    view->installEventFilter(this);
    view->history()->setMaximumItemCount(0);
    view->resize(firstSize);
    view->setContextMenuPolicy(Qt::NoContextMenu);
    scripts.setFrame(frame());
    // The object is there before the first script of each page.
    connect(frame(), &QWebFrame::javaScriptWindowObjectCleared, this, &WebView::publishWrapper);
    connect(&lock, &IdleLock::idle, this, &WebView::modal_blockShow);
    connect(view.get(), &QWebView::loadFinished, this, &WebView::loaded);
    Log::message("Load login page");
    loadPage(LocalPage::loginUrl);
}

WebView::~WebView()
{
    // A page that goes while it is loading still says that it has finished.
    view->disconnect(this);
    scripts.setFrame(nullptr);
}

QWebFrame* WebView::frame() const
{
    return view->page()->mainFrame();
}

void WebView::loadPage(const QUrl& page)
{
    scripts.endReplays();
    scripts.flush();
    sessionPage = page == LocalPage::sessionUrl;
    frameLoaded = false;
    cachesCleared = false;
    view->load(page);
}

void WebView::closeWindow()
{
    view->close();
}

void WebView::publishWrapper()
{
    frame()->addToJavaScriptWindowObject(QStringLiteral("wrapper"), this, QWebFrame::QtOwnership);
}

void WebView::loaded(bool)
{
    Log::message("Page loaded");
    view->history()->clear();
    if (view->isHidden()) {
        WindowPlace::restore(*view);
    }
    if (!sessionPage && !Data::loginMessage.isEmpty()) {
        Page::call("wrapperInput_login_setNotice", std::exchange(Data::loginMessage, QString()));
    }
    if (Data::userRoleChanged) {
        Page::call("modalRoleChangedShow");
        Data::userRoleChanged = false;
    }
}

void WebView::runJavascript(const QString& text)
{
    scripts.runText(text);
}

QString WebView::frame_takeCalls()
{
    return scripts.take();
}

void WebView::stopTimers()
{
    lock.stop();
    scripts.endReplays();
}

void WebView::loginCompleted()
{
    if (frameLoaded && !cachesCleared && Data::getCurrentUser()) {
        cachesCleared = true;
        // Takes the engine a tenth of a second, for which the next request needn't wait.
        QTimer::singleShot(0, this, [] { QWebSettings::clearMemoryCaches(); });
    }
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
    Page::call("wrapperInput_global_setAlarmUnits", Device::getAlarmCount());
    frameLoaded = true;
    loginCompleted();
    Log::message("global_loadFrameEnd");
}

bool WebView::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Close:
        WindowPlace::save(*view);
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
        Data::leaving = true;
        Data::waitForExit = true;
        send(UserCommand::Logout);
    }
}
