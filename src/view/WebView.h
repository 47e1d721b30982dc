#pragma once

#include <QObject>
#include <QUdpSocket>
#include <QWebElement>

#include <memory>

class QTimer;
class QWebView;

/// The window, and the single door between pages and native code: published to the pages as
/// `wrapper`, it receives every action of the operator through its slots, which send a request or
/// replay the mirror into the page. The slots of a page stand in a file named after it.
class WebView : public QObject
{
    Q_OBJECT
public:
    WebView();
    ~WebView() override;

    /// The top-level window.
    QWebView* getView() const { return view.get(); }

public Q_SLOTS:
    // Frame: WebView.cpp
    /// After every page load: publishes `wrapper` again, shows the window after the first one.
    void loaded(bool succeeded);
    /// Runs one script in the page on show; lost before the first page has arrived.
    void runJavascript(const QString& text);
    void stopTimers();
    void global_about();
    /// Replays what the frame may have missed while it loaded: user, clock, administration entry,
    /// alarm icons, and the end of the login.
    void global_loadFrame();

    // Servers and discovery: ServerSlots.cpp
    void login_serverList();
    void login_addServer(const QString& ip, int port);
    /// `address` is the text ip, "/", port.
    void login_deleteServer(const QString& address);
    void login_findServer();
    void login_serverFound();
    void login_stopFindingServer();

    // Session: Login.cpp
    /// Connects, blocking for 3 seconds at most, and asks for the login; `address` is the text ip,
    /// "/", port.
    void login_tryLogin(const QString& name, const QString& password, const QString& address);
    void login_loginSuccess();
    void login_loginError();
    void global_logout();
    void global_exit();
    void loadLoginPage();

    // Screen lock: Block.cpp
    void resetBlockTimer();
    void modal_blockShow();

    // Rights: admin/Role.cpp
    void load_permissions();
    void admin_loadPermissions();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void publishWrapper();
    void loadPage(const QUrl& page);
    void restoreWindow();
    void saveWindow();
    void windowActivated();
    void windowClosed();
    void startBlockTimer();
    bool acceptsAddress(const QString& ip) const;

    QTimer* blockTimer;
    QUdpSocket udpSocket;
    QWebElement documentElement;
    std::unique_ptr<QWebView> view;
    bool sessionPage = false; ///< index.html is on show or on its way
};
