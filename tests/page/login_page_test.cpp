#include "app/Data.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "page/ScriptCall.h"
#include "view/WebView.h"

#include <QLoggingCategory>
#include <QNetworkInterface>
#include <QTcpServer>
#include <QThread>
#include <QUdpSocket>
#include <QWebFrame>
#include <QWebView>
#include <QtTest>

/// The login page in a real view, and what no page can do.
class LoginPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void reachesNothingOutside_data();
    void reachesNothingOutside();
    void staysOnItsPages_data();
    void staysOnItsPages();
    void addsAndDeletesServers();
    void refusesBadServerAddresses_data();
    void refusesBadServerAddresses();
    void findsAServerByItsAnnouncement();
    void hostileAddressIsText();
    void versionMismatchIsTold_data();
    void versionMismatchIsTold();
    void changedRoleIsToldAfterTheNextLoad();
    void windowGeometryIsSavedAtClose();
    void storedWindowIsFittedIntoTheScreen();
    void messagesOfQtAreLogged();

private:
    std::unique_ptr<Console> console;
};

void LoginPageTest::init()
{
    console.reset();
    console = std::make_unique<Console>();
    QVERIFY(console->showLogin());
}

void LoginPageTest::reachesNothingOutside_data()
{
    QTest::addColumn<QString>("script");
    QTest::newRow("image") << "new Image().src = '%1';";
    QTest::newRow("request") << "var r = new XMLHttpRequest(); r.open('GET', '%1'); r.send();";
    QTest::newRow("post") << "var r = new XMLHttpRequest(); r.open('POST', '%1'); r.send('x');";
    QTest::newRow("frame") << "$('<iframe>').attr('src', '%1').appendTo('body');";
    QTest::newRow("script") << "$('<script>').attr('src', '%1')[0]; var s = "
                               "document.createElement('script'); s.src = '%1'; "
                               "document.body.appendChild(s);";
    QTest::newRow("style") << "$('<link rel=stylesheet>').attr('href', '%1').appendTo('head');";
    QTest::newRow("socket") << "new WebSocket('%1'.replace('http', 'ws'));";
    QTest::newRow("socket of a frame") << "var f = $('<iframe>').appendTo('body')[0]; new "
                                          "f.contentWindow.WebSocket('%1'.replace('http', 'ws'));";
    QTest::newRow("socket of a worker")
        << "new Worker(URL.createObjectURL(new Blob([\"new WebSocket('%1'.replace('http', "
           "'ws'))\"])));";
    QTest::newRow("events") << "new EventSource('%1');";
    QTest::newRow("form") << "$('<form method=post>').attr('action', "
                             "'%1').appendTo('body')[0].submit();";
    QTest::newRow("window") << "window.open('%1');";
    QTest::newRow("navigation") << "location.href = '%1';";
    QTest::newRow("ping") << "var a = $('<a>').attr({href: '#', ping: '%1'}).appendTo('body'); "
                             "a[0].click();";
}

void LoginPageTest::reachesNothingOutside()
{
    QFETCH(QString, script);
    QTcpServer outside;
    QVERIFY(outside.listen(QHostAddress::LocalHost));
    const QString address = QStringLiteral("http://127.0.0.1:%1/x").arg(outside.serverPort());
    console->value(script.arg(address));
    QVERIFY(!outside.waitForNewConnection(0));
    QVERIFY(!QTest::qWaitFor([&] { return outside.hasPendingConnections(); }, 300));
    QCOMPARE(console->page(), QStringLiteral("login.html"));
}

void LoginPageTest::staysOnItsPages_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("file") << "file:///etc/passwd";
    QTest::newRow("fragment") << "qrc:/Web/modal/login.html";
    QTest::newRow("data") << "data:text/html,<p>x</p>";
    QTest::newRow("nothing") << "about:blank";
}

void LoginPageTest::staysOnItsPages()
{
    QFETCH(QString, address);
    console->value(QStringLiteral("location.href = '%1'").arg(address));
    QVERIFY(!QTest::qWaitFor([&] { return console->page() != "login.html"; }, 200));
    QVERIFY(console->value("$('#name').length === 1").toBool());
    const QString read = console->text(
        QStringLiteral("(function () { var r = new XMLHttpRequest(); try { r.open('GET', "
                       "'file:///etc/passwd', false); r.send(); } catch (e) { return ''; } "
                       "return r.responseText; })()"));
    QCOMPARE(read, QString());
}

void LoginPageTest::addsAndDeletesServers()
{
    console->value("$('#modalAddServer').modal('show'); $('#server').val('10.0.0.7'); "
                   "$('#port').val('2050'); modalAddServerHide();");
    QVERIFY(console->waitFor("$('#serverSelect').val() === '10.0.0.7/2050'"));
    QCOMPARE(console->servers().size(), 1);
    QVERIFY(console->servers().at(0).isDefault);

    console->value("$('#server').val('10.0.0.7'); $('#port').val('2051'); modalAddServerHide();");
    QTRY_COMPARE(console->servers().size(), 2);
    QVERIFY(!console->servers().at(1).isDefault);
    console->value("$('#server').val('10.0.0.7'); $('#port').val('2051'); modalAddServerHide();");
    QVERIFY(console->waitFor("$('#serverSelect').val() === '10.0.0.7/2051'"));
    QCOMPARE(console->servers().size(), 2);
    console->picture("login-servers");

    console->value("$('#serverSelect').val('10.0.0.7/2050').trigger('change'); deleteServer();");
    QTRY_COMPARE(console->servers().size(), 1);
    QCOMPARE(console->servers().at(0).port, 2051);
    QVERIFY(console->waitFor("$('#serverSelect option').length === 1"));
}

void LoginPageTest::refusesBadServerAddresses_data()
{
    QTest::addColumn<QString>("ip");
    QTest::addColumn<QString>("port");
    QTest::newRow("host name") << "server.local"
                               << "2049";
    QTest::newRow("too short") << "10.0.0"
                               << "2049";
    QTest::newRow("empty") << ""
                           << "2049";
    QTest::newRow("script") << "1.1.1.1');x('"
                            << "2049";
    QTest::newRow("no port") << "10.0.0.1"
                             << "";
    QTest::newRow("port is text") << "10.0.0.1"
                                  << "abc";
    QTest::newRow("port is no whole number") << "10.0.0.1"
                                             << "2049.7";
    QTest::newRow("port too large") << "10.0.0.1"
                                    << "70000";
}

void LoginPageTest::refusesBadServerAddresses()
{
    QFETCH(QString, ip);
    QFETCH(QString, port);
    const QString fill = QString(QStringLiteral("$('#server').val(%1); $('#port').val(%2);"))
                             .arg(Page::literal(ip), Page::literal(port));
    console->value(fill + "modalAddServerHide();");
    QVERIFY(console->waitFor(
        "$('#modalAddServer').hasClass('in') && $('#server').val() === '' && "
        "$('#port').val() === '2049' && $('#modalAddServer .has-error').length > 0"));
    QCOMPARE(console->servers().size(), 0);
    console->picture("login-bad-address");
}

void LoginPageTest::findsAServerByItsAnnouncement()
{
    console->value("$('#modalAddServer').modal('show'); checkServer(); checkServer();");
    QUdpSocket announcer;
    QVERIFY(announcer.bind(QHostAddress(QHostAddress::LocalHost), 0));
    announcer.setMulticastInterface(QNetworkInterface::interfaceFromName("lo"));
    QVERIFY(QTest::qWaitFor([&] {
        announcer.writeDatagram("here", QHostAddress("224.0.224.1"), 11991);
        return console->text("$('#server').val()") == "127.0.0.1";
    }));
    console->value("$('#server').val('')");
    announcer.writeDatagram("again", QHostAddress("224.0.224.1"), 11991);
    QVERIFY(!QTest::qWaitFor([&] { return console->text("$('#server').val()") != ""; }, 200));
}

void LoginPageTest::hostileAddressIsText()
{
    Page::call("addServerOption", hostileText, QStringLiteral("1"), true);
    Page::call("modalErrorShow", hostileText);
    QVERIFY(console->waitFor("$('#modalError').hasClass('in')"));
    QCOMPARE(console->text("$('#errorLabel').text()"), hostileText);
    QVERIFY(console->text("$('#serverSelect').val()").contains("<img"));
    QVERIFY(
        console->value("$('img').length === 0 && typeof window.pwned === 'undefined'").toBool());
}

void LoginPageTest::versionMismatchIsTold_data()
{
    QTest::addColumn<int>("serverVersion");
    QTest::addColumn<QString>("dialog");
    QTest::newRow("older server") << 8 << "modalServerOld";
    QTest::newRow("newer server") << 10 << "modalClientOld";
}

void LoginPageTest::versionMismatchIsTold()
{
    QFETCH(int, serverVersion);
    QFETCH(QString, dialog);
    Page::call("modalLoginVersionError", Data::apiVersion, serverVersion);
    QVERIFY(console->waitFor(QStringLiteral("$('#%1').hasClass('in')").arg(dialog)));
    console->picture(dialog);
}

void LoginPageTest::changedRoleIsToldAfterTheNextLoad()
{
    for (const bool isChanged : {true, false}) {
        QVERIFY(console->showSession());
        Data::userRoleChanged = isChanged;
        Data::tcpClient.exit();
        QVERIFY(console->showLogin());
        QCOMPARE(console->waitFor("$('#modalRoleChanged').hasClass('in')", isChanged ? 10000 : 300),
                 isChanged);
        QVERIFY(!Data::userRoleChanged);
    }
}

void LoginPageTest::windowGeometryIsSavedAtClose()
{
    QWebView* const view = console->view().getView();
    view->resize(1400, 900);
    view->move(20, 30);
    view->close();
    QCOMPARE(Data::settings->value("screen/width").toInt(), 1400);
    QCOMPARE(Data::settings->value("screen/height").toInt(), 900);
    QCOMPARE(Data::settings->value("screen/x").toInt(), view->x());
    QCOMPARE(Data::settings->value("screen/isMaximized").toBool(), false);
}

void LoginPageTest::storedWindowIsFittedIntoTheScreen()
{
    Data::settings->setValue("screen/width", 5000);
    Data::settings->setValue("screen/height", 4000);
    Data::settings->setValue("screen/x", 300);
    Data::settings->setValue("screen/y", 200);
    console->restart();
    QVERIFY(console->showLogin());
    const QWebView* const view = console->view().getView();
    QCOMPARE(view->size(), QSize(1280, 800)); // the screen here is smaller still
    QCOMPARE(view->pos(), QPoint(0, 0));
    QCOMPARE(view->windowTitle(), QStringLiteral("Пульт управления вещанием"));
}

void LoginPageTest::messagesOfQtAreLogged()
{
    const auto logged = [this](const QString& text) {
        QFile log(console->folder() + "log/" + QDate::currentDate().toString("dd-MM-yyyy.'txt'"));
        return log.open(QIODevice::ReadOnly) && QString::fromUtf8(log.readAll()).contains(text);
    };
    qWarning("a warning on purpose");
    QVERIFY(logged("] Qt warning (default): a warning on purpose\n"));
    std::unique_ptr<QThread> thread(QThread::create([] {
        QLoggingCategory elsewhere("tls");
        qCCritical(elsewhere, "afar");
    }));
    thread->start();
    QTRY_VERIFY(logged("] Qt critical (tls): afar\n"));
    thread->wait();
    console->value("setTimeout(function () { nobodyHasThis(); }, 0)");
    QTRY_VERIFY(logged("Page message: ReferenceError: Can't find variable: nobodyHasThis"));
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    LoginPageTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "login_page_test.moc"
