#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "page/PageLooks.h"
#include "session/DemoServer.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QtTest>

/// Whatever happens while a page is open, it shows what it would show if it were opened then.
class AfreshTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void staysAsIfOpenedAfresh_data();
    void staysAsIfOpenedAfresh();

private:
    bool waitUntilAllIsTold();

    QTemporaryDir files;
    DemoServer server;
    std::unique_ptr<Console> console;
    int landmarks = 0;
};

namespace
{

/// One of each kind of change, several at once among them, and all of it back again or not.
const char* const changes[] = {"link 3,7-9 no",
                               "mains 4 off",
                               "battery 5 17",
                               "case 6 open",
                               "line 2 1 break",
                               "zone 10-12 4",
                               "remove 13-15",
                               "role guard viewers",
                               "unit \"><b>Новый</b>",
                               "storm 300",
                               "restore",
                               "right admin scheduleManagement off",
                               "link 3,8 bidirectional",
                               "remove 1,2,16",
                               "right admin scheduleManagement on",
                               "storm 50"};

/// The clock moves these, and the list beside a unit keeps its icons as it was built.
const char* const moving = ".progress-bar, .playback_position, .device_menu .tile_icon";

bool knowsUnit(const QString& name)
{
    return Data::deviceList.findIf([&](const Device& device) { return device.getName() == name; });
}

} // namespace

void AfreshTest::initTestCase()
{
    QVERIFY(server.start(files.path()));
    console = std::make_unique<Console>(std::vector<Server>{{"127.0.0.1", server.port(), true}});
    QVERIFY(console->showLogin());
    console->logIn("admin", "admin");
    QVERIFY(console->waitForPage("index.html"));
    QVERIFY(waitUntilAllIsTold());
}

void AfreshTest::cleanupTestCase()
{
    console.reset();
}

/// A unit that is made behind everything else has come, and nothing is under way any more.
bool AfreshTest::waitUntilAllIsTold()
{
    const QString landmark = QStringLiteral("Веха %1").arg(++landmarks);
    server.tell("unit " + landmark.toUtf8());
    return QTest::qWaitFor(
               [&] {
                   return knowsUnit(landmark) && Data::parser.getPacketCount() == 0 &&
                          Data::tcpClient.waitingRequestCount() == 0;
               },
               20000) &&
           console->waitFor("$('#loadingModal').is(':hidden')");
}

void AfreshTest::staysAsIfOpenedAfresh_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t row = 0; row < std::size(pageRows); ++row) {
        QTest::newRow(pageRows[row].name) << static_cast<int>(row);
    }
}

void AfreshTest::staysAsIfOpenedAfresh()
{
    QFETCH(int, row);
    const PageRow& page = pageRows[row];
    PageLooks::open(*console, page);
    QVERIFY(PageLooks::hasSettled(*console));
    for (const char* const change : changes) {
        server.tell(change);
    }
    QVERIFY(waitUntilAllIsTold());
    console->value("$('.modal.in').modal('hide'); null");
    console->program().scripts().flush();
    QVERIFY(PageLooks::hasSettled(*console));
    const QStringList stayed = PageLooks::looks(*console, page, moving);
    PageLooks::open(*console, page);
    QVERIFY(PageLooks::hasSettled(*console));
    // A long list comes in portions.
    QTRY_COMPARE(PageLooks::looks(*console, page, moving), stayed);
    server.tell("restore");
    QVERIFY(waitUntilAllIsTold());
}

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    AfreshTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "afresh_test.moc"
