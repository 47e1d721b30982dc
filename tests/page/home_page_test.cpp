#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Zone.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "page/Console.h"
#include "page/ScriptCall.h"
#include "protocol/ZoneMembership.h"

#include <QJsonDocument>
#include <QtTest>

/// The wall of units and the page of one, with the mirror behind them.
class HomePageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void hostileNamesOfUnitsAndZonesAreText();
    void hostileNamesOnTheDevicePageAreText();
    void emptyZoneSaysSo();
    void largeFleetFillsWithoutBlocking();
    void unitsGoWhileThePageOfOneIsOpen_data();
    void unitsGoWhileThePageOfOneIsOpen();
    void comingBackShowsTheSameAsStaying();
    void stormOfPushesLeavesThePageAsTheMirror();

private:
    void makeFleet(int units) const;
    void receive(const QJsonObject& message) const;

    std::unique_ptr<Console> console;
};

namespace
{

/// A state that is another at each call.
QJsonObject statePush(int order, int id)
{
    return {{"request", "device"},
            {"action", "setState"},
            {"order", order},
            {"deviceId", id},
            {"link", order % 3 ? "bidirectional" : "no"},
            {"battery", order % 5 ? "ok" : "missing"},
            {"batteryLevel", order % 101},
            {"case", order % 2 ? "open" : "close"},
            {"volume", order % 97},
            {"playback", order % 4 ? "none" : "microphone"}};
}

/// A script that tells all that can be seen of some elements and those within.
QString looksOf(const char* selector)
{
    return QStringLiteral("$('%1').find('*').addBack().toArray().map(function (element) {"
                          "  return [element.id, element.className.split(/\\s+/).sort().join(' '),"
                          "          element.title, element.style.cssText,"
                          "          element.children.length ? '' : element.textContent].join();"
                          "}).join('\\n')")
        .arg(QLatin1String(selector));
}

} // namespace

void HomePageTest::initTestCase()
{
    console = std::make_unique<Console>();
    QVERIFY(console->waitForPage("login.html"));
}

void HomePageTest::cleanup()
{
    Data::tcpClient.close();
    Data::deviceList.clear();
    Data::zoneList.clear();
}

void HomePageTest::makeFleet(int units) const
{
    Data::deviceList.clear();
    for (int id = 1; id <= units; ++id) {
        auto device = std::make_unique<Device>();
        device->setId(id);
        device->setName(QStringLiteral("Громкоговоритель %1").arg(id));
        device->setStatus(DeviceOnline);
        Data::deviceList.append(std::move(device));
    }
}

void HomePageTest::receive(const QJsonObject& message) const
{
    Data::parser.parse(QJsonDocument(message).toJson());
}

void HomePageTest::hostileNamesOfUnitsAndZonesAreText()
{
    QVERIFY(console->showSession());
    QVERIFY(
        console->waitFor("$('#sub_zone_0').length === 1 && $('#main_kelpa_list').length === 1"));
    Page::call("wrapperInput_zone_add", 5, 0, hostileText, QString(), 0);
    Page::call("wrapperInput_device_add", 7, hostileText, 2, 30, 0, true);
    Page::call("wrapperInput_device_setTask", 7, 1, hostileText);
    QCOMPARE(console->text("$('#device_name_7').text()"), hostileText);
    QCOMPARE(console->text("$('#zone_name_5').text()"), hostileText);
    Page::call("wrapperInput_device_setName", 7, hostileText + "2");
    Page::call("wrapperInput_zone_setName", 5, hostileText + "2", QString());
    QCOMPARE(console->text("$('#device_name_7').text()"), hostileText + "2");
    QVERIFY(
        console->value("$('img').length === 0 && typeof window.pwned === 'undefined'").toBool());
}

void HomePageTest::hostileNamesOnTheDevicePageAreText()
{
    QVERIFY(console->showSession());
    console->value("deviceForLoad = 7; wrapperLoadDeviceInfo(7)");
    QVERIFY(console->waitFor(
        "$('#deviceList').length === 1 && $('#device_panel .panel_row').length > 9"));
    Page::call("wrapperInput_device_add", 7, hostileText, 2, 30, 0, true);
    Page::call("wrapperInput_device_setId", 7);
    Page::call("wrapperInput_device_setName", 7, hostileText);
    Page::call("wrapperInput_device_setPlaybackInfo", 7, hostileText, hostileText);
    Page::call("wrapperInput_device_setTask", 7, 1, hostileText);
    Page::call("wrapperInput_device_addScenario", 7, 0, hostileText, 1, 1, 1, 0, 0);
    Page::call("wrapperInput_deviceLine_add", 7, 1, hostileText, 0, false, true);
    Page::call("wrapperInput_zone_add", 5, 0, hostileText, hostileText, 0);
    for (const char* const label : {"#device_name", "#device_playlist", "#device_schedule",
                                    "#line_control_name_1", "#scenario_0 td:eq(1)"}) {
        QCOMPARE(console->text(QStringLiteral("$('%1').text()").arg(QLatin1String(label))),
                 hostileText);
    }
    QVERIFY(console->text("$('#zone_5').text()").contains("<img"));
    QVERIFY(
        console->value("$('img').length === 0 && typeof window.pwned === 'undefined'").toBool());
}

void HomePageTest::emptyZoneSaysSo()
{
    QVERIFY(console->showSession());
    QVERIFY(console->waitFor("$('#sub_zone_0').length === 1 && $('#no_devices').is(':visible')"));
    Page::call("wrapperInput_zone_add", 5, 0, QStringLiteral("Двор"), QString(), 1);
    Page::call("wrapperInput_device_add", 7, QStringLiteral("Мачта"), 2, 30, 0, true);
    QVERIFY(!console->value("$('#no_devices').is(':visible')").toBool());
    console->value("$('#zone_5').click()");
    QVERIFY(
        console->value("$('#no_devices').is(':visible') && !$('.tile').is(':visible')").toBool());
    Page::call("wrapperInput_zone_includeDevice", 5, 7);
    QVERIFY(
        console->value("!$('#no_devices').is(':visible') && $('.tile').is(':visible')").toBool());
    // Losing its link takes a unit out of the selection.
    console->value("$('#device_button_7').click()");
    QVERIFY(console->text("$('#selected_devices').text()").endsWith(" 1"));
    Page::call("wrapperInput_device_linkOff", 7);
    console->value("$('#device_button_7').click()");
    QCOMPARE(console->text("$('#selected_devices').text()"),
             QStringLiteral("Устройства не выбраны"));
    Page::call("wrapperInput_device_delete", 7);
    QVERIFY(console->value("$('#no_devices').is(':visible')").toBool());
    Page::call("wrapperInput_zone_delete", 5);
    QVERIFY(console->value("$('#zone_0').hasClass('zone_active')").toBool());
}

void HomePageTest::largeFleetFillsWithoutBlocking()
{
    makeFleet(300);
    QVERIFY(console->showSession());
    // A click comes through while units are still missing, and what changes meanwhile is right.
    const QString count = QStringLiteral("(cards && cards.list ? cards.list.counts.all : 0)");
    QVERIFY(console->waitFor(count + " >= 40"));
    QVERIFY2(console->value(count).toInt() < 300, "all units came in one go");
    Data::getDeviceById(300)->setVolume(77);
    ZoneMembership::forget(299);
    QVERIFY(console->waitFor(count + " === 299"));
    // Tiles far from the window aren't there until they come near.
    QVERIFY(console->waitFor("$('.tile').length < 150"));
    console->value("$('#main').scrollTop(100000)");
    QVERIFY(console->waitFor("$('#device_border_300').is(':visible') && !$('#device_1').length"));
    QCOMPARE(console->text("$('#device_volume_300').parent().attr('title')"),
             QStringLiteral("Громкость: 77"));
    // The list of another page doesn't get the rest of this one.
    console->value("loadHomePage()");
    QVERIFY(console->waitFor(count + " >= 40 && " + count + " < 299"));
    console->value("wrapperLoadDeviceInfo(150)");
    QVERIFY(console->waitFor("$('#device_name').text() === 'Громкоговоритель 150'"));
    QCOMPARE(console->value("$('.tile').length").toInt(), 0);
    QVERIFY(console->waitFor("cards === null && $('#device_menu_150').is('.online_active') && "
                             "$('#device_menu_150').offset().top > 60 && "
                             "$('#device_menu_150').offset().top < 700"));
}

void HomePageTest::unitsGoWhileThePageOfOneIsOpen_data()
{
    QTest::addColumn<QVector<int>>("gone");
    QTest::addColumn<int>("shown");
    QTest::newRow("the shown one") << QVector<int>{2} << 1;
    QTest::newRow("it and the next") << QVector<int>{2, 1} << 3;
    QTest::newRow("the next and it") << QVector<int>{1, 2} << 3;
    QTest::newRow("three") << QVector<int>{2, 1, 3} << 4;
    QTest::newRow("all") << QVector<int>{2, 1, 3, 4} << 0;
}

/// All of them go in one read: the mirror has lost them before the page hears of the first.
void HomePageTest::unitsGoWhileThePageOfOneIsOpen()
{
    QFETCH(QVector<int>, gone);
    QFETCH(int, shown);
    makeFleet(4);
    QVERIFY(console->showSession());
    console->value("wrapperLoadDeviceInfo(2)");
    QVERIFY(console->waitFor("$('#device_name').text() === 'Громкоговоритель 2'"));
    for (const int id : gone) {
        Data::deviceList.remove(Data::getDeviceById(id));
    }
    for (const int id : gone) {
        Page::call("wrapperInput_device_delete", id);
    }
    QCOMPARE(console->value("$('.device_menu').length").toInt(), 4 - gone.size());
    QCOMPARE(console->text("$('#device_id').val()"), QString::number(shown));
    QCOMPARE(console->text("$('#device_name').text()"),
             shown ? QStringLiteral("Громкоговоритель %1").arg(shown) : QStringLiteral("--"));
    QCOMPARE(console->value("$('#main #device_volume').prop('disabled')").toBool(), shown == 0);
    QCOMPARE(console->value("$('.online_active').length").toInt(), shown ? 1 : 0);
    QCOMPARE(console->scriptErrors(), QStringList());
}

void HomePageTest::comingBackShowsTheSameAsStaying()
{
    makeFleet(30);
    QVERIFY(console->showSession());
    QVERIFY(console->waitFor("$('.tile').length === 30"));
    for (int order = 1; order <= 30; ++order) {
        receive(statePush(order, 1 + order % 30));
    }
    receive(statePush(31, 99)); // a unit that nobody has told of
    // One whose state hasn't come yet.
    auto root = std::make_unique<Zone>();
    root->setId(Zone::serverRoot);
    Data::zoneList.append(std::move(root));
    receive({{"request", "zone"},
             {"action", "includeDevice"},
             {"order", 32},
             {"zoneId", 1},
             {"deviceId", 98}});
    QCOMPARE(console->value("$('.tile').length").toInt(), 32);
    const QString wall = looksOf("#main_kelpa_list");
    const QString stayed = console->text(wall);
    console->value("$('#main_kelpa_list').addClass('old'); loadHomePage()");
    QVERIFY(console->waitFor("$('.old').length === 0 && $('.tile').length === 32"));
    QCOMPARE(console->text(wall).split('\n'), stayed.split('\n'));

    const QString list =
        looksOf("#deviceList, #device_panel") + QStringLiteral(" + $('#device_volume').val()");
    console->value("wrapperLoadDeviceInfo(7)");
    QVERIFY(console->waitFor("$('.device_menu').length === 32 && $('#device_id').val() === '7'"));
    receive(statePush(32, 7));
    receive(statePush(33, 8));
    // The icons at the side stay as the list was built.
    console->value("$('#deviceList .tile_icon').remove()");
    const QString stayedOnDevice = console->text(list);
    console->value("$('#deviceList').addClass('old'); wrapperLoadDeviceInfo(7)");
    QVERIFY(console->waitFor("$('.old').length === 0 && $('.device_menu').length === 32 && "
                             "$('#device_id').val() === '7'"));
    console->value("$('#deviceList .tile_icon').remove()");
    QCOMPARE(console->text(list).split('\n'), stayedOnDevice.split('\n'));
}

void HomePageTest::stormOfPushesLeavesThePageAsTheMirror()
{
    makeFleet(24);
    QVERIFY(console->showSession());
    QVERIFY(console->waitFor("$('.tile').length === 24"));
    for (int order = 1; order <= 10000; ++order) {
        receive(statePush(order, 1 + order % 24));
    }
    for (const Device& device : Data::deviceList) {
        const QString tile = QStringLiteral("$('#device_volume_%1').parent().attr('title') + "
                                            "$('#device_state_%1').text()")
                                 .arg(device.getId());
        QCOMPARE(console->text(tile),
                 QStringLiteral("Громкость: %1%2")
                     .arg(device.getVolume())
                     .arg(device.getStatus() == DeviceOnline ? "Подключен" : "Отключен"));
    }
}

int main(int argc, char* argv[])
{
    Q_INIT_RESOURCE(web);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    HomePageTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "home_page_test.moc"
