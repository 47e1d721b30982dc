#include "page/Console.h"

#include "app/Data.h"
#include "log/Log.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "support/TestServer.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QWebFrame>
#include <QWebView>
#include <QtTest>

const QString hostileText =
    QStringLiteral("\"><img src=x onerror=\"window.pwned=1\">'\\\n</script>");

namespace
{

/// Leaves a list of servers for the program that will start.
void storeServers(const QString& folder, const std::vector<Server>& servers)
{
    QDir().mkpath(folder);
    ServerList list(folder + "servers.json");
    for (const Server& server : servers) {
        list.addServer(server);
    }
}

} // namespace

Console::Console(const std::vector<Server>& servers)
{
    storeServers(folder(), servers);
    restart();
}

Console::~Console()
{
    waitForIcons();
}

QVariant Console::value(const QString& script) const
{
    // An element or a list of them would be turned into a map of all that hangs on it.
    const QByteArray quoted = QJsonDocument(QJsonArray{script}).toJson(QJsonDocument::Compact);
    return view().frame()->evaluateJavaScript(
        QStringLiteral("(function (value) { return value instanceof Object ? undefined : value; })"
                       "((0, eval)(%1[0]))")
            .arg(QString::fromUtf8(quoted)));
}

bool Console::waitFor(const QString& script, int milliseconds) const
{
    return QTest::qWaitFor([&] { return value(script).toBool(); }, milliseconds);
}

void Console::restart()
{
    if (theProgram) {
        waitForIcons();
        theProgram.reset();
    }
    theProgram = std::make_unique<Program>(QStringList{"console", "--debug"});
}

bool Console::showLogin()
{
    if (page() == "index.html") {
        value("wrapper_Global_logout()");
    }
    const bool isThere = waitForPage("login.html") && waitFor("$('#modalError').length > 0");
    waitForIcons();
    return isThere;
}

/// A page that is left while its icons load leaves the later ones of this process without them.
void Console::waitForIcons() const
{
    constexpr int longEnough = 2000;
    waitFor("typeof $ !== 'undefined' && "
            "(!$('.fa:visible').length || $('.fa:visible').first().width() > 0)",
            longEnough);
}

bool Console::logInToScript()
{
    server = std::make_unique<TestServer>();
    server->answerAll();
    server->answer("user/getInfo",
                   {{"response", "success"}, {"name", "admin"}, {"title", "A"}, {"role", ""}});
    value(
        QStringLiteral("wrapper.login_tryLogin('admin', 'x', '127.0.0.1/%1')").arg(server->port()));
    return waitForPage("index.html") &&
           waitFor("$('#top_menu #device_list, #modalShowVersion, #warning_access, "
                   "#microphone_access').length === 4 && $('#bot_menu').children().length > 0 && "
                   "!$('#loadingModal').is(':visible')");
}

bool Console::showSession(const std::function<void()>& fill)
{
    Data::tcpClient.exit();
    if (!showLogin() || !logInToScript()) {
        return false;
    }
    Data::tcpClient.close();
    Data::parser.reset();
    view().stopTimers();
    Data::clearSession();
    if (!fill) {
        return true;
    }
    fill();
    value("$('#top_menu > *').addClass('old'); loadHomePage(); wrapper_Global_loadFrame()");
    return waitFor("$('.old').length === 0 && $('#top_menu #device_list').length > 0");
}

QString Console::page() const
{
    return view().getView()->url().fileName();
}

bool Console::waitForPage(const QString& name, int milliseconds) const
{
    return QTest::qWaitFor(
        [&] {
            return page() == name && value("typeof wrapper !== 'undefined' && "
                                           "document.readyState === 'complete'")
                                         .toBool();
        },
        milliseconds);
}

QStringList Console::scriptErrors() const
{
    Log::message("Looking for script errors");
    QStringList errors;
    const QDir logs(data.path("log"));
    for (const QString& name : logs.entryList({"*.txt"})) {
        QFile log(logs.filePath(name));
        log.open(QIODevice::ReadOnly);
        const QStringList lines = QString::fromUtf8(log.readAll()).split('\n');
        errors += lines.filter(QRegularExpression("Page message: .*Error:"));
    }
    return errors;
}

void Console::logIn(const QString& name, const QString& password) const
{
    QWebView* const window = view().getView();
    window->setFocus();
    if (value("$('.modal.in').length > 0").toBool()) {
        value("$('.modal.in').modal('hide')");
        waitFor("$('.modal:visible').length === 0");
    }
    value("$('#password').val(''); $('#name').val('').focus()");
    QTest::keyClicks(window, name);
    QTest::keyClick(window, Qt::Key_Tab);
    QTest::keyClicks(window, password);
    QTest::keyClick(window, Qt::Key_Return);
}

void Console::picture(const QString& name) const
{
    const QString pictures = qEnvironmentVariable("VANTORDESK_PICTURES");
    if (pictures.isEmpty()) {
        return;
    }
    waitFor("$('.modal.in').toArray().every(function (dialog) { "
            "return $(dialog).css('opacity') === '1'; })");
    for (const QSize size : {QSize(1280, 800), QSize(1920, 1080)}) {
        view().getView()->resize(size);
        QCoreApplication::processEvents();
        const QString file = QStringLiteral("%1/%2-%3.png").arg(pictures, name).arg(size.width());
        view().getView()->grab().save(file);
    }
    view().getView()->resize(1280, 800);
}
