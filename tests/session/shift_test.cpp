#include "model/ServerList.h"
#include "session/ConsoleProcess.h"
#include "session/DemoServer.h"
#include "session/VirtualDisplay.h"
#include "support/DataFolder.h"

#include <QDir>
#include <QTimer>
#include <QtTest>

/// The program as it is shipped, against the demo server, by keyboard and mouse: what a new user
/// does first, and what is seen of it.
class ShiftTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void fromTheFirstStartToTheSecondLogin();

private:
    void logIn(int session);
    bool waitForUnits();
    void openUnit();
    void playByKeyboard();
    void playByMouse();
    bool waitForMainButton(const char* slot);
    bool hasPlaybacks(int count);
    void chooseFromUserMenu(const QPoint& entry);

    DataFolder data;
    VirtualDisplay display;
    DemoServer server;
    ConsoleProcess console;
    QTimer storm; ///< pushes under all that the operator does
    QPoint firstUnit;
};

namespace
{

// Where things stand in a window of 1280 by 800.
const QRect wall(250, 60, 1000, 670);
const QPoint userName(1190, 30);
const QPoint changeUser(1130, 254);
const QPoint leave(1070, 295);
const QRect userMenu(1000, 65, 270, 250);
const QPoint back(60, 770);
const QPoint playbacksTab(230, 30);
const QRect mainButton(1165, 755, 90, 28);
const QPoint firstFolder(331, 227);
const QPoint firstTrack(380, 271);
const QPoint firstTickBox(976, 306);

/// The colour of a unit that is online.
bool isOnline(QRgb pixel)
{
    return qGreen(pixel) > qRed(pixel) + 80 && qGreen(pixel) > qBlue(pixel) + 50;
}

QVector<QPoint> onlinePixels(const QImage& picture)
{
    QVector<QPoint> found;
    for (int y = wall.top(); y <= wall.bottom(); ++y) {
        for (int x = wall.left(); x <= wall.right(); ++x) {
            if (isOnline(picture.pixel(x, y))) {
                found.append(QPoint(x, y));
            }
        }
    }
    return found;
}

/// How much of the wall's place looks another way.
int differentPixels(const QImage& one, const QImage& other)
{
    int count = 0;
    for (int y = wall.top(); y <= wall.bottom(); ++y) {
        for (int x = wall.left(); x <= wall.right(); ++x) {
            count += one.pixel(x, y) == other.pixel(x, y) ? 0 : 1;
        }
    }
    return count;
}

} // namespace

void ShiftTest::initTestCase()
{
    const QString missing = display.start();
    if (!missing.isEmpty()) {
        QSKIP(qPrintable(missing));
    }
    QVERIFY(server.start(data.root()));
    QDir().mkpath(data.path({}));
    ServerList(data.path("servers.json")).addServer({"127.0.0.1", server.port(), true});
    connect(&storm, &QTimer::timeout, this, [this] { server.tell("storm 300"); });
}

void ShiftTest::logIn(int session)
{
    QVERIFY(console.waitForLine("Load server: 127.0.0.1/\\d+"));
    QVERIFY(console.waitForLine("Page loaded"));
    QVERIFY(display.focusWindow("Пульт управления вещанием"));
    display.type("admin");
    display.press("Tab");
    display.type("admin");
    display.press("Return");
    const QByteArray loggedIn =
        "Session " + QByteArray::number(session) + " logged in as \"admin\"";
    QTRY_VERIFY2(server.output().contains(loggedIn), server.output());
    QVERIFY(waitForUnits());
}

bool ShiftTest::waitForUnits()
{
    return QTest::qWaitFor(
        [&] {
            const QVector<QPoint> online = onlinePixels(display.picture());
            firstUnit = online.value(0);
            return online.size() > 2000;
        },
        20000);
}

void ShiftTest::openUnit()
{
    const QImage before = display.picture();
    display.click(firstUnit + QPoint(60, 20));
    QVERIFY(console.waitForLine("deviceList_loadDeviceInfo: \\d+"));
    QTRY_VERIFY(differentPixels(display.picture(), before) > 100000);
}

/// A page is complete: one of its slots has ended, and its button at the right of the bar is there.
bool ShiftTest::waitForMainButton(const char* slot)
{
    return console.waitForLine(QString(slot) + ".*End") && QTest::qWaitFor([&] {
               const QImage picture = display.picture().copy(mainButton);
               int blue = 0;
               for (int x = 0; x < picture.width(); ++x) {
                   const QRgb pixel = picture.pixel(x, 2);
                   blue += qBlue(pixel) > 150 && qRed(pixel) < 80 ? 1 : 0;
               }
               return blue > picture.width() / 2;
           });
}

bool ShiftTest::hasPlaybacks(int count)
{
    return QTest::qWaitFor([&] { return server.output().count(" started with track ") == count; });
}

/// The keyboard begins at the top left corner; backwards from there it comes to the bottom bar.
void ShiftTest::playByKeyboard()
{
    display.press("Tab Tab Return");
    QVERIFY(waitForMainButton("playback_loadList"));
    display.press("shift+Tab shift+Tab Return");
    QVERIFY(waitForMainButton("deviceList_listSelectLoad"));
    display.press("shift+Tab shift+Tab shift+Tab space"); // the tick box of the last unit
    display.press("Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab Tab Return");
    QVERIFY(console.waitForLine("playback_loadPlaybackWithPlaylist: \\d+"));
    display.press("Tab Return"); // behind ".." the first track
    display.press("shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab "
                  "shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab shift+Tab Return");
    QVERIFY(hasPlaybacks(3));
}

void ShiftTest::playByMouse()
{
    display.click(back);
    QVERIFY(console.waitForLine("deviceList_listLoadEnd"));
    QVERIFY(waitForUnits());
    display.click(playbacksTab);
    QVERIFY(waitForMainButton("playback_loadList"));
    display.click(mainButton.center());
    QVERIFY(waitForMainButton("deviceList_listSelectLoad"));
    display.click(firstFolder);
    QVERIFY(console.waitForLine("playback_loadPlaybackWithPlaylist: \\d+"));
    display.click(firstTrack);
    display.click(firstTickBox);
    display.click(mainButton.center());
    QVERIFY(hasPlaybacks(4));
}

void ShiftTest::chooseFromUserMenu(const QPoint& entry)
{
    const QImage before = display.picture().copy(userMenu);
    display.click(userName);
    QTRY_VERIFY(display.picture().copy(userMenu) != before);
    display.click(entry);
}

void ShiftTest::fromTheFirstStartToTheSecondLogin()
{
    console.start(data.root(), {}, display.name());
    logIn(1);
    storm.start(100);
    playByKeyboard();
    chooseFromUserMenu(changeUser);
    QTRY_VERIFY2(server.output().contains("Session 1 ended"), server.output());
    logIn(2);
    openUnit();
    playByMouse();
    chooseFromUserMenu(leave);
    QVERIFY(console.waitForEnd());
}

QTEST_GUILESS_MAIN(ShiftTest)
#include "shift_test.moc"
