#include "page/PageFixture.h"

#include "page/ScriptCall.h"
#include "view/WebView.h"

#include <QWebView>

/// What the wall and the page of one unit tell the operator of units, zones and the selection.
class UnitPageTest : public PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void unreadUnitsAreToldAsSuch();
    void statesAreToldByWords_data();
    void statesAreToldByWords();
    void zonesCountTheUnitsBelowThem();
    void barFollowsTheSelection();
    void wallIsWorkedByKeys();
    void devicePageTellsTheHealth();
    void equalizerFillsFromBelow();
    void pathsFollowTheNamesOfZones();
    void rowsOfTheMemoryMoveUp();

private:
    void openHome();
    void openUnit();
};

void UnitPageTest::openHome()
{
    openPage("null", "$('#sub_zone_0').length && $('#no_devices:visible').length");
    for (int id = 1; id <= 24; ++id) {
        Page::call("wrapperInput_device_add", id, QStringLiteral("Громкоговоритель %1").arg(id), 2,
                   4 * id, id % 5 ? 0 : 2, true);
        Page::call("wrapperInput_device_setBatteryLevel", id, 90);
        Page::call("wrapperInput_device_setBattery", id, 2);
        Page::call("wrapperInput_device_setPower", id, id != 9);
        Page::call("wrapperInput_device_setHull", id, true);
        if (id > 2) {
            Page::call("wrapperInput_device_setRead", id);
        }
    }
    Page::call("wrapperInput_device_linkOff", 11);
    Page::call("wrapperInput_device_linkIncoming", 6);
    Page::call("wrapperInput_device_setPlaybackCategory", 13, -4);
    takeCalls();
}

void UnitPageTest::openUnit()
{
    openPage("wrapperLoadDeviceInfo(7)",
             "$('#deviceList').length === 1 && $('#device_panel .panel_row').length > 9");
    Page::call("wrapperInput_device_add", 7, QStringLiteral("Холл"), 2, 30, 0, true);
    Page::call("wrapperInput_device_add", 8, QStringLiteral("Двор"), 0, 30, 0, true);
    Page::call("wrapperInput_device_setId", 7);
    Page::call("wrapperInput_device_linkOn", 7);
    takeCalls();
}

void UnitPageTest::unreadUnitsAreToldAsSuch()
{
    openHome();
    console().picture("wall");
    const QString look =
        QStringLiteral("$('#device_1').hasClass('unread') + "
                       "$('#device_power_1')[0].title + $('#devices_read').text()");
    QTRY_COMPARE(
        text(look),
        QStringLiteral("trueСеть 220 В: состояние неизвестноЗагрузка состояния: 22 из 24"));
    QVERIFY(is("$('#device_power_1').hasClass('btn-success')"));
    const QString colour = QStringLiteral("$('#device_power_%1').css('color')");
    QVERIFY(text(colour.arg(1)) != text(colour.arg(3)));
    QCOMPARE(text(colour.arg(1)), text(colour.arg(11))); // offline: the last values, greyed
    Page::call("wrapperInput_device_setRead", 1);
    QTRY_COMPARE(text(look),
                 QStringLiteral("falseСеть 220 В: нормальноЗагрузка состояния: 23 из 24"));
    QCOMPARE(text(colour.arg(1)), text(colour.arg(3)));
    Page::call("wrapperInput_device_delete", 2);
    QTRY_COMPARE(text("$('#devices_read').text()"), QString());
}

void UnitPageTest::statesAreToldByWords_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("told");
    const auto row = [](const char* call, const char* part, const char* told) {
        QTest::newRow(call) << call << part << QString::fromUtf8(told);
    };
    row("setHull(3, 1)", "hull", "Крышка корпуса: закрыта fa-lock");
    row("setHull(3, 0)", "hull", "Крышка корпуса: открыта fa-unlock-alt");
    row("setLinesStatus(3, 0)", "lines", "Линии: ошибка fa-volume-up");
    row("setBattery(3, 0)", "battery", "АКБ: 90%, отсутствует или неисправна fa-battery-3");
    row("setPower(3, 0)", "power", "Сеть 220 В: отсутствует fa-bolt");
    row("setPlaybackCategory(3, 1)", "playing", "Воспроизведение: Радио fa-podcast");
    row("setPlaybackCategory(3, -4)", "playing", "Тревога: Тревожное вещание fa-microphone");
    row("setPlaybackCategory(3, 6)", "playing",
        "Тревога: Тревожное сообщение fa-exclamation-triangle");
}

void UnitPageTest::statesAreToldByWords()
{
    QFETCH(QString, call);
    QFETCH(QString, part);
    QFETCH(QString, told);
    openHome();
    const QString look =
        QStringLiteral("(function () { var icon = $('#device_%1_3');"
                       "return icon[0].title + ' ' + icon.find('i').addBack().toArray()"
                       ".map((one) => (one.className.match(/fa-\\S+/) || [''])[0]).join('');"
                       "})()")
            .arg(part);
    run("wrapperInput_device_" + call);
    QCOMPARE(text(look), told);
    QCOMPARE(is("$('#device_3').hasClass('alarm_on_air')"),
             told.startsWith(QStringLiteral("Тревога")));
}

void UnitPageTest::zonesCountTheUnitsBelowThem()
{
    openHome();
    Page::call("wrapperInput_zone_add", 5, 0, QStringLiteral("Первый этаж"), QString(), 0);
    Page::call("wrapperInput_zone_add", 6, 5, QStringLiteral("Холл"), QString(), 0);
    Page::call("wrapperInput_zone_add", 7, 5, QStringLiteral("Коридор"), QString(), 1);
    Page::call("wrapperInput_zone_add", 8, 0, QStringLiteral("Двор"), QString(), 1);
    const int members[][2] = {{6, 1}, {6, 2}, {7, 2}, {7, 3}};
    for (const auto& member : members) {
        Page::call("wrapperInput_zone_includeDevice", member[0], member[1]);
    }
    const QString counts =
        QStringLiteral("$('.zone_count').map(function () { return $(this).text(); }).get().join()");
    QVERIFY2(console().waitFor(counts + " === '24,3,2,2,0'"), qPrintable(text(counts)));
    run("$('#zone_5').click()");
    console().picture("wall-zone");
    QCOMPARE(text("$('#no_devices:visible').text()"),
             QStringLiteral("Все устройства этой зоны находятся во вложенных зонах"));
    run("$('#zone_8').click()");
    QCOMPARE(text("$('#no_devices:visible').text()"), QStringLiteral("В этой зоне нет устройств"));
    Page::call("wrapperInput_zone_add", 7, 8, QStringLiteral("Коридор"), QString(), 1);
    Page::call("wrapperInput_device_delete", 1);
    QVERIFY2(console().waitFor(counts + " === '23,1,1,2,2'"), qPrintable(text(counts)));
}

void UnitPageTest::barFollowsTheSelection()
{
    openHome();
    Page::call("wrapperInput_zone_add", 5, 0, QStringLiteral("Холл"), QString(), 0);
    Page::call("wrapperInput_zone_includeDevice", 5, 3);
    run("$('#device_button_3, #device_button_5, #device_button_11').each(function () { "
        "$(this).click(); })");
    QCOMPARE(text("selectedDevices().join() + ' ' + $('#volume_value').val()"),
             QStringLiteral("3,5 16"));
    run("$('#volume_value').val(70).trigger('input')");
    QCOMPARE(text("$('#slider_number:visible').text()"), QStringLiteral("70%"));
    // What the operator has set stays while the units take it over.
    run("$('#volume_value').trigger('mouseup')");
    QCOMPARE(takeCalls(),
             QStringLiteral("deviceList_setDeviceVolume(3,70) deviceList_setDeviceVolume(5,70)"));
    Page::call("wrapperInput_device_setVolume", 3, 70);
    QCOMPARE(text("$('#volume_value').val() + $('#slider_number:visible').length"),
             QStringLiteral("700"));
    run("$('#zone_5').click()");
    QCOMPARE(text("$('#selected_devices').text()"),
             QStringLiteral("Выбрано устройств: 2, из них скрыто фильтром: 1"));
    Page::call("wrapperInput_device_linkOff", 5);
    QCOMPARE(text("$('#selected_devices').text()"), QStringLiteral("Выбрано устройств: 1"));
}

void UnitPageTest::wallIsWorkedByKeys()
{
    openHome();
    run("$('#device_1').focus()");
    for (const int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Space}) {
        QTest::keyClick(console().view().getView(), static_cast<Qt::Key>(key));
    }
    QCOMPARE(text("document.activeElement.id + ' ' + selectedDevices().join()"),
             QStringLiteral("device_5 5"));
    QTest::keyClick(console().view().getView(), Qt::Key_Return);
    QVERIFY(console().waitFor("$('#device_panel').length === 1 && deviceForLoad === 5"));
}

void UnitPageTest::devicePageTellsTheHealth()
{
    openUnit();
    Page::call("wrapperInput_device_setPower", 7, false);
    const QString shown = QStringLiteral("$('#device_220').css('font-size')");
    QCOMPARE(text(shown), QStringLiteral("0px")); // "Неизвестно" stands in its place
    Page::call("wrapperInput_device_setRead", 7);
    QVERIFY(text(shown) != "0px");
    QVERIFY(is("$('#device_220').hasClass('state_offline')"));
    QCOMPARE(text("$('#device_link').text()"), QStringLiteral("Подключен"));
    Page::call("wrapperInput_device_linkOff", 7);
    QCOMPARE(text("$('#device_link').text() + $('#device_menu_7').attr('title')"),
             QStringLiteral("ОтключенХолл: Отключен"));
}

void UnitPageTest::equalizerFillsFromBelow()
{
    openUnit();
    Page::call("wrapperInput_device_setVersion", 7, 3, "", "", "");
    Page::call("wrapperInput_device_setEqualizerEnabled", 7, 1);
    for (int band = 0; band < 10; ++band) {
        Page::call("wrapperInput_device_setEqualizer", 7, band, band - 3.0);
    }
    Page::call("wrapperInput_device_setRead", 7);
    console().picture("unit");
    QCOMPARE(text("$('.band_gain').map(function () { return $(this).text(); }).get().join()"),
             QStringLiteral("-3,-2,-1,0,+1,+2,+3,+4,+5,+6"));
    // The field counts downwards: its accent lies between its button and its lower end.
    QVERIFY(
        text("$('#device_equalizer_9')[0].style.backgroundImage").contains("0%, var(--accent)"));
    run("$('#device_equalizer_9').trigger('mouseup')");
    QCOMPARE(takeCalls(),
             QStringLiteral("deviceInfo_setDeviceEqualizer(7,-3,-2,-1,0,1,2,3,4,5,6)"));
}

void UnitPageTest::pathsFollowTheNamesOfZones()
{
    openUnit();
    Page::call("wrapperInput_zone_add", 5, 0, QStringLiteral("Этаж"), QStringLiteral("Все зоны"),
               0);
    Page::call("wrapperInput_zone_add", 6, 5, QStringLiteral("Холл"), QStringLiteral("Этаж"), 0);
    Page::call("wrapperInput_zone_setName", 5, QStringLiteral("Ярус"), QStringLiteral("Все зоны"));
    QCOMPARE(text("$('#device_zone').text()"), QStringLiteral("Все зоны/ЯрусЯрус/Холл"));
    Page::call("wrapperInput_zone_add", 6, 0, QStringLiteral("Холл"), QStringLiteral("Все зоны"),
               1);
    Page::call("wrapperInput_zone_setName", 5, QStringLiteral("Этаж"), QStringLiteral("Все зоны"));
    QCOMPARE(text("$('#device_zone').text() + $('#device_zone .state_incoming').text()"),
             QStringLiteral("Все зоны/ЭтажВсе зоны/ХоллВсе зоны/Холл"));
}

void UnitPageTest::rowsOfTheMemoryMoveUp()
{
    openUnit();
    for (int position = 0; position < 3; ++position) {
        Page::call("wrapperInput_device_addScenario", 7, position, QString(QChar('a' + position)),
                   1, 1, 1, 0, 0);
    }
    // The mirror empties its list from the front, and a new one follows.
    Page::call("wrapperInput_device_deleteScenario", 7, 0);
    Page::call("wrapperInput_device_setScenarioId", 7, 1, 0);
    Page::call("wrapperInput_device_setScenarioId", 7, 2, 1);
    QCOMPARE(text("$('#scenario_tbody').text()"), QStringLiteral("1b2c"));
    run("$('#scenario_0 button').click()");
    QCOMPARE(takeCalls(), QStringLiteral("deviceList_playAudio(7,0,1)"));
}

VANTORDESK_PAGE_TEST(UnitPageTest)
#include "unit_page_test.moc"
