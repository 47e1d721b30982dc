#include "app/Data.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "session/DemoServer.h"
#include "simulator/Client.h"
#include "view/WebView.h"

#include <QDir>
#include <QJsonDocument>
#include <QTextStream>
#include <QWebView>
#include <QtTest>

#include <utility>

/// The roads of an operator through the pages, by real clicks and keys against the demo server.
/// Each file of the folder `roads` is a shift of its own; a line is a step:
///
///     login NAME         logs in, the password is the name
///     click SELECTOR     presses the mouse on the element, once it can be hit
///     double SELECTOR    twice
///     over SELECTOR      moves the mouse there
///     type TEXT          keys into what has the focus
///     key NAME           one key, such as Down or Ctrl+A
///     wait EXPRESSION    until that is true in the page
///     run SCRIPT         in the page, for what has no other way
///     tell COMMAND       at the demo server's prompt
///     other NAME REQUEST ACTION {…}   what another console asks for, logged in by that name
///     file NAME TEXT     writes a file into the folder %files%, where `music` holds MP3 files
///     picture NAME
///
/// `%hostile%` stands for a name that would run if it weren't taken as text, as JSON has it.
class RoadsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void road_data();
    void road();

private:
    bool step(const QString& verb, const QString& rest);
    bool logIn(const QString& name) const;
    bool hit(const QString& selector, const std::function<void(QPoint)>& act) const;
    bool ask(const QString& name, const QString& request) const;
    bool write(const QString& name, const QString& text) const;
    QWidget* page() const { return console->view().getView(); }

    QTemporaryDir files;
    DemoServer* server = nullptr;
    Console* console = nullptr;
};

namespace
{

/// As it stands in JSON, cut to the length of a name.
QString escapedHostile()
{
    return QStringLiteral("\\\"><img src onerror=pwned()>");
}

} // namespace

void RoadsTest::road_data()
{
    QTest::addColumn<QString>("path");
    const QDir folder(ROADS_FOLDER);
    const QStringList names = folder.entryList({"*.txt"});
    for (const QString& name : names) {
        QTest::newRow(qPrintable(name)) << folder.filePath(name);
    }
}

void RoadsTest::road()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QTemporaryDir data;
    DemoServer demo;
    QVERIFY(demo.start(data.path(), 0, {"--samples", files.filePath("music")}));
    Console program({{"127.0.0.1", demo.port(), true}});
    server = &demo;
    console = &program;
    QTextStream lines(&file);
    for (int number = 1; !lines.atEnd(); ++number) {
        QString line = lines.readLine().trimmed();
        line.replace("%hostile%", escapedHostile()).replace("%files%", files.path());
        if (!line.isEmpty() && !line.startsWith('#')) {
            const bool done = step(line.section(' ', 0, 0), line.section(' ', 1));
            if (!done) {
                console->picture("road-failed");
                qInfo("%s", server->output().constData());
            }
            QVERIFY2(done, qPrintable(QStringLiteral("%1: %2").arg(number).arg(line)));
        }
    }
    QCOMPARE(console->scriptErrors(), QStringList());
}

bool RoadsTest::step(const QString& verb, const QString& rest)
{
    if (verb == "login") {
        return logIn(rest);
    }
    if (verb == "click" || verb == "double") {
        return hit(rest, [&](QPoint point) {
            QTest::mouseClick(page(), Qt::LeftButton, {}, point);
            if (verb == "double") {
                QTest::mouseDClick(page(), Qt::LeftButton, {}, point);
            }
        });
    }
    if (verb == "over") {
        return hit(rest, [this](QPoint point) { QTest::mouseMove(page(), point); });
    }
    if (verb == "type") {
        QTest::keyClicks(page(), rest);
    } else if (verb == "key") {
        const int key = QKeySequence(rest)[0];
        QTest::keyClick(page(), static_cast<Qt::Key>(key & ~Qt::KeyboardModifierMask),
                        Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask));
    } else if (verb == "run") {
        console->value(rest + "; null");
    } else if (verb == "tell") {
        server->tell(rest.toUtf8());
    } else if (verb == "picture") {
        console->picture(rest);
    } else if (verb == "other") {
        return ask(rest.section(' ', 0, 0), rest.section(' ', 1));
    } else if (verb == "file") {
        return write(rest.section(' ', 0, 0), rest.section(' ', 1));
    } else {
        return verb == "wait" && console->waitFor(rest);
    }
    return true;
}

bool RoadsTest::logIn(const QString& name) const
{
    if (!console->showLogin() || !console->waitFor("$('#serverSelect option').length > 0")) {
        return false;
    }
    console->logIn(name, name);
    return console->waitForPage("index.html") &&
           console->waitFor("typeof loadMainBody === 'function' && $('.tile').length > 0 && "
                            "!$('#loadingModal').is(':visible') && $('#modalShowVersion').length");
}

/// Acts at the middle of an element, once it is there, can be used, isn't covered and stands still.
bool RoadsTest::hit(const QString& selector, const std::function<void(QPoint)>& act) const
{
    const QString place =
        QStringLiteral(
            "(function () {"
            "  var all = $(\"%1\").filter(':visible'); var item = all[0];"
            "  if (!item || item.disabled || $('.modal.fade').is(':animated')) { return ''; }"
            "  function spot() {"
            "    var box = item.getBoundingClientRect();"
            "    var x = Math.round(box.left + box.width / 2),"
            "        y = Math.round(box.top + box.height / 2);"
            "    var top = document.elementFromPoint(x, y);"
            "    var isHit = top && (item.contains(top) || top.contains(item)) &&"
            "        !$(top).is('.modal, .modal-dialog');" // below a dialog's end
            "    return isHit ? x + ',' + y : '';"
            "  }"
            "  var found = spot();"
            "  if (!found) { item.scrollIntoView(); found = spot(); }"
            "  return found;"
            "})()")
            .arg(QString(selector).replace('"', '\''));
    QString found;
    const bool stands = QTest::qWaitFor([&] {
        const QString before = std::exchange(found, console->text(place));
        return !found.isEmpty() && found == before;
    });
    if (!stands) {
        return false;
    }
    const QStringList numbers = found.split(',');
    act({numbers.value(0).toInt(), numbers.value(1).toInt()});
    return true;
}

/// Whether the server has done what another console asks for.
bool RoadsTest::ask(const QString& name, const QString& request) const
{
    Client other(server->port());
    const QJsonObject fields = QJsonDocument::fromJson(request.section(' ', 2).toUtf8()).object();
    return other.logIn(name) &&
           other.ask(request.section(' ', 0, 0), request.section(' ', 1, 1), fields)
                   .value("response") == "success";
}

bool RoadsTest::write(const QString& name, const QString& text) const
{
    QFile file(files.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0;
}

QTEST_MAIN(RoadsTest)
#include "roads_test.moc"
