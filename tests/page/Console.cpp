#include "page/Console.h"

#include "app/Configuration.h"
#include "app/Data.h"
#include "app/Wiring.h"
#include "log/Log.h"
#include "network/TcpClient.h"
#include "page/ScriptCall.h"
#include "view/LocalPage.h"
#include "view/WebView.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QWebFrame>
#include <QWebView>
#include <QtTest>

const QString hostileText =
    QStringLiteral("\"><img src=x onerror=\"window.pwned=1\">'\\\n</script>");

Console::Console()
{
    settings = std::make_unique<QSettings>(files.filePath("config.ini"), QSettings::IniFormat);
    Configuration::writeFirstStartValues(*settings);
    settings->setValue("path/log", files.path());
    Data::settings = settings.get();
    Data::logSettings = &logSettings;
    Data::debugMode = true;
    Log::logger().setConfig(settings.get());
    Log::logger().setDebug(&Data::debugMode);
    Log::logger().setSettings(&logSettings);
    Log::logger().setPort(&Data::localPort);
    serverList = std::make_unique<ServerList>(files.filePath("servers.json"));
    Data::serverList = serverList.get();
    Wiring::joinNetwork();
    webView = std::make_unique<WebView>();
    Data::webView = webView.get();
    Wiring::joinView();
}

Console::~Console()
{
    Data::tcpClient.close();
    Page::setSink({});
    Data::clearSession();
}

QVariant Console::value(const QString& script) const
{
    // An element or a list of them would be turned into a map of all that hangs on it.
    const QByteArray quoted = QJsonDocument(QJsonArray{script}).toJson(QJsonDocument::Compact);
    return webView->getView()->page()->mainFrame()->evaluateJavaScript(
        QStringLiteral("(function (value) { return value instanceof Object ? undefined : value; })"
                       "((0, eval)(%1[0]))")
            .arg(QString::fromUtf8(quoted)));
}

bool Console::waitFor(const QString& script, int milliseconds) const
{
    return QTest::qWaitFor([&] { return value(script).toBool(); }, milliseconds);
}

void Console::load(const QUrl& page) const
{
    value("window.isOldPage = true");
    webView->getView()->load(page);
    waitFor("typeof window.isOldPage === 'undefined'");
}

bool Console::showSession() const
{
    load(LocalPage::sessionUrl);
    return waitForPage("index.html") &&
           waitFor("$('#top_menu #device_list, #modalShowVersion, #warning_access, "
                   "#microphone_access').length === 4");
}

QString Console::page() const
{
    return webView->getView()->url().fileName();
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
    const QStringList logs = QDir(files.path()).entryList({"*.txt"});
    for (const QString& name : logs) {
        QFile log(files.filePath(name));
        log.open(QIODevice::ReadOnly);
        const QStringList lines = QString::fromUtf8(log.readAll()).split('\n');
        errors += lines.filter(QRegularExpression("Page message: .*Error:"));
    }
    return errors;
}

void Console::logIn(const QString& name, const QString& password) const
{
    value(QStringLiteral("$('#name').val('%1'); $('#password').val('%2'); tryLogin();")
              .arg(name, password));
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
        webView->getView()->resize(size);
        QCoreApplication::processEvents();
        const QString file = QStringLiteral("%1/%2-%3.png").arg(pictures, name).arg(size.width());
        webView->getView()->grab().save(file);
    }
    webView->getView()->resize(1280, 800);
}
