#include "page/PageFixture.h"

#include "page/ScriptCall.h"
#include "view/WebView.h"

#include <QWebView>
#include <QtTest>

namespace
{

/// A stand-in for the object that native code publishes, with the same slots, that notes the calls.
QString slotRecorder()
{
    QStringList names;
    const QMetaObject& meta = WebView::staticMetaObject;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        names.append(QString::fromLatin1(meta.method(index).name()));
    }
    names.removeAll("frame_takeCalls"); // the road of the calls into the page stays
    return QStringLiteral("window.slotCalls = []; window.realWrapper = window.wrapper;"
                          "window.wrapper = {frame_takeCalls: function () { "
                          "return realWrapper.frame_takeCalls(); }}; '%1'.split(' ')"
                          ".forEach(function (name) { wrapper[name] = function () { "
                          "slotCalls.push(name + '(' + [].slice.call(arguments).join() + ')'); "
                          "}; });")
        .arg(names.join(' '));
}

} // namespace

Console& PageFixture::console() const
{
    if (!theConsole) {
        theConsole = std::make_unique<Console>();
    }
    return *theConsole;
}

void PageFixture::openPage(const QString& open, const QString& isThere, Slots calls,
                           const std::function<void()>& fill)
{
    QVERIFY(console().showSession(fill));
    QVERIFY(console().waitFor("$('#selected_devices').length > 0"));
    if (calls == Slots::Recorded) {
        run(slotRecorder());
    }
    run(open);
    QVERIFY2(console().waitFor(isThere), qPrintable(console().scriptErrors().join('\n')));
    QVERIFY(console().waitFor("!$('#loadingModal').is(':visible')"));
}

QString PageFixture::takeCalls()
{
    return text("slotCalls.splice(0).join(' ')");
}

void PageFixture::pressEscape() const
{
    QTest::keyClick(console().view().getView(), Qt::Key_Escape);
}

bool PageFixture::isHarmless() const
{
    return is("$('img').length === 0 && typeof window.pwned === 'undefined'");
}

void PageFixture::addUnits()
{
    struct Unit {
        const char* name;
        int status;
        int playback;
        int category;
    };
    const Unit units[] = {{"Холл, центральный вход у ресепшн", 2, 3, 2},
                          {"Столовая", 2, 0, 0},
                          {"Кухня", 1, 0, 0},
                          {"Двор, северная мачта", 0, 3, 2}};
    int id = 0;
    for (const Unit& unit : units) {
        ++id;
        Page::call("wrapperInput_device_add", id, QString::fromUtf8(unit.name), unit.status,
                   25 * id, unit.category, true, QStringLiteral("playback_%1").arg(unit.playback));
    }
    Page::call("wrapperInput_zone_add", 5, 0, QStringLiteral("Первый этаж"),
               QStringLiteral("Все зоны"), 0);
    Page::call("wrapperInput_zone_add", 6, 5, QStringLiteral("Коридор"),
               QStringLiteral("Первый этаж"), 1);
    Page::call("wrapperInput_zone_includeDevice", 5, 1);
    Page::call("wrapperInput_zone_includeDevice", 5, 3);
}

void PageFixture::addTracks(int playlist)
{
    Page::call("wrapperInput_playback_addItem", 11, playlist, QStringLiteral("Марш"), 0, 120);
    Page::call("wrapperInput_playback_addItem", 12, playlist,
               QStringLiteral("Вальс с очень длинным названием, которое не помещается в строке"), 0,
               45);
}

void PageFixture::addHostileItems(int playlist)
{
    Page::call("wrapperInput_device_add", 1, hostileText, 2, 1, 2, true, "playback_3");
    Page::call("wrapperInput_device_setTask", 1, 1, hostileText);
    Page::call("wrapperInput_zone_add", 5, 0, hostileText, hostileText, 0);
    Page::call("wrapperInput_zone_setName", 5, hostileText + "2", hostileText);
    Page::call("wrapperInput_playback_addItem", 11, playlist, hostileText, 0, 1);
    Page::call("wrapperInput_playback_addItem", 12, playlist, hostileText, 1, 1);
    QCOMPARE(text("$('#track_11 .item_title').text()"), hostileText);
    QCOMPARE(text("$('#device_name_1').text()"), hostileText);
    Page::call("wrapperInput_playback_setTrackName", 11, hostileText + "2");
    QCOMPARE(text("$('#track_11 .item_title').text()"), hostileText + "2");
}

QString PageFixture::shownUnits() const
{
    return text("$('.tile:visible').map(function () { return this.id; }).get().join()");
}
