#pragma once

#include "log/LogSettings.h"
#include "model/ServerList.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QVariant>

#include <functional>
#include <memory>

class WebView;

/// A name that would run as script or mark-up where it isn't taken as text.
extern const QString hostileText;

/// The whole console in a test: store, network, real pages in a real view, with its files in a
/// temporary folder. One a process, as in the program.
class Console
{
public:
    Console();
    ~Console();

    WebView& view() { return *webView; }
    ServerList& servers() { return *serverList; }
    QString folder() const { return files.path(); }

    /// The value of a script expression in the page on show.
    QVariant value(const QString& script) const;
    QString text(const QString& script) const { return value(script).toString(); }
    /// Whether a script expression has become true within the time, in milliseconds.
    bool waitFor(const QString& script, int milliseconds = 10000) const;
    /// Loads one of the top pages anew, and returns when it has taken the place of the old one.
    void load(const QUrl& page) const;
    /// Loads the session page anew; whether its frame and the home page's tabs have come.
    bool showSession() const;
    /// The page on show, without its folder: "login.html".
    QString page() const;
    bool waitForPage(const QString& name, int milliseconds = 10000) const;
    /// Messages that the page has written to its console because of a script error.
    QStringList scriptErrors() const;

    /// Goes through the login page by hand: picks the server, fills in the form, presses "Войти".
    void logIn(const QString& name, const QString& password) const;

    /// A picture of the window, into the folder that the variable VANTORDESK_PICTURES names.
    void picture(const QString& name) const;

private:
    QTemporaryDir files;
    std::unique_ptr<QSettings> settings;
    LogSettings logSettings;
    std::unique_ptr<ServerList> serverList;
    std::unique_ptr<WebView> webView;
};
