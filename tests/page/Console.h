#pragma once

#include "app/Program.h"
#include "support/DataFolder.h"

#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

class TestServer;

/// A name that would run as script or mark-up where it isn't taken as text.
extern const QString hostileText;

/// The program in a test, with its data in a temporary folder, and a hand and an eye on the page
/// that it shows.
class Console
{
public:
    /// Starts the program; `servers` are in its list already.
    explicit Console(const std::vector<Server>& servers = {});
    ~Console();

    Program& program() { return *theProgram; }
    WebView& view() const { return theProgram->view(); }
    ServerList& servers() { return theProgram->servers(); }
    /// Where the program has its files.
    QString folder() const { return data.path({}); }

    /// The value of a script expression in the page on show.
    QVariant value(const QString& script) const;
    QString text(const QString& script) const { return value(script).toString(); }
    /// Whether a script expression has become true within the time, in milliseconds.
    bool waitFor(const QString& script, int milliseconds = 10000) const;
    /// The page on show, without its folder: "login.html".
    QString page() const;
    bool waitForPage(const QString& name, int milliseconds = 10000) const;
    /// The login page, ready for the operator; a session is logged out.
    bool showLogin();
    /// A session's home page, by a login to a server that plays a script. From then on the test is
    /// the server: the connection is taken away, requests wait in the queue, and the mirror holds
    /// what `fill` puts into it.
    bool showSession(const std::function<void()>& fill = {});
    /// Messages that the page has written to its console because of a script error.
    QStringList scriptErrors() const;

    /// Ends the program and starts it again with the same data.
    void restart();

    /// Closes what dialog is open, types name and password into the login page and presses Enter.
    void logIn(const QString& name, const QString& password) const;

    /// A picture of the window, into the folder that the variable VANTORDESK_PICTURES names.
    void picture(const QString& name) const;

private:
    bool logInToScript();
    void waitForIcons() const;

    DataFolder data;
    std::unique_ptr<TestServer> server;
    std::unique_ptr<Program> theProgram;
};
