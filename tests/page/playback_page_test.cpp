#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Track.h"
#include "network/TcpClient.h"
#include "page/PageFixture.h"
#include "page/ScriptCall.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

/// The page of the running playbacks.
class PlaybackPageTest : public PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void listLoadsWhateverFragmentComesFirst();
    void firstPlaybackBecomesActive();
    void onlyUnitsOfTheActivePlaybackShow();
    void zoneNarrowsTheUnits();
    void barFollowsThePosition_data();
    void barFollowsThePosition();
    void transportActsOnTheActivePlayback_data();
    void transportActsOnTheActivePlayback();
    void transportIsOffWithoutPlayback();
    void endOfAPlayback();
    void presetsPlaybackIsSelected();
    void hostileTitlesAreText();
    void operatorsRoadToTheServer();

private:
    void openList();
    void addPlaybacks();
    void fillMirror();
    QJsonObject lastRequest(const QString& action) const;
};

void PlaybackPageTest::openList()
{
    openPage("$('#playlist').click()",
             "$('#playback_page .device_panel').length && $('#playbackList').length && "
             "$('#transport').length && $('#zone_select').next('.select2').length");
}

void PlaybackPageTest::addPlaybacks()
{
    Page::call("wrapperInput_playback_add", 3, 2, QStringLiteral("Утренний эфир для первого этажа"),
               QStringLiteral("Марш, часть первая и вторая"), 40, 30.0, 120);
    Page::call("wrapperInput_playback_add", 4, 0, QStringLiteral("Реклама"),
               QStringLiteral("Акция недели"), 40, 5.5, 20);
    Page::call("wrapperInput_playback_add", 8, 1, QStringLiteral("Радио"), QStringLiteral("Волна"),
               40, 0.0, -1);
    Page::call("playback_selectDevice", 3);
    takeCalls();
}

void PlaybackPageTest::listLoadsWhateverFragmentComesFirst()
{
    openList();
    // The side menu came first or last: the lists are asked for once both are there.
    const QString calls = takeCalls();
    QVERIFY2(calls.contains("deviceList_listSelectLoad() playback_loadZoneList() "
                            "playback_loadList()"),
             qPrintable(calls));
    QVERIFY(is("$('#playbackList').next().is(':visible') && $('.empty_rows').is(':visible') && "
               "$('#no_devices').is(':visible') && $('#zone_select').prop('disabled')"));
    console().picture("playback-empty");
    run("$('#playlistTable tbody').append('<tr>')");
    QVERIFY(!is("$('.empty_rows').is(':visible')"));
    run("loadSideMenu('playback')");
    QVERIFY(console().waitFor("slotCalls.join().indexOf('playback_loadList') >= 0"));
    addPlaybacks();
    // A body that is loaded again keeps the choice.
    run("selectPlayback(4); loadMainBody('playback_list')");
    QVERIFY(console().waitFor("$('#playback_page .device_panel').length && "
                              "slotCalls.join().indexOf('playback_loadList') >= 0"));
    QVERIFY(takeCalls().endsWith("playback_loadPlayback(4)"));
}

void PlaybackPageTest::firstPlaybackBecomesActive()
{
    openList();
    takeCalls();
    Page::call("wrapperInput_playback_add", 3, 2, "a", "b", 40, 30.0, 120);
    QCOMPARE(takeCalls(), QStringLiteral("playback_loadPlayback(3)"));
    QVERIFY(is("$('#playback_3').hasClass('playback_active') && "
               "!$('#zone_select').prop('disabled')"));
    Page::call("wrapperInput_playback_add", 4, 2, "c", "d", 40, 30.0, 120);
    QCOMPARE(takeCalls(), QString());
    run("$('#playback_4').click()");
    QCOMPARE(takeCalls(), QStringLiteral("playback_loadPlayback(4)"));
    QCOMPARE(text("$('.playback_active').attr('id')"), QStringLiteral("playback_4"));
}

void PlaybackPageTest::onlyUnitsOfTheActivePlaybackShow()
{
    openList();
    addUnits();
    QCOMPARE(shownUnits(), QString());
    addPlaybacks();
    Page::call("playback_selectPlaylist", 20);
    addTracks(20);
    Page::call("playlist_selectTrack", 11);
    Page::call("playback_setVolume", 60);
    QCOMPARE(shownUnits(), QStringLiteral("device_1,device_4"));
    QCOMPARE(text("$('#volume_value').val()"), QStringLiteral("60"));
    console().picture("playback-list");
    Page::call("wrapperInput_device_setPlayback", 2, 0, 3);
    Page::call("wrapperInput_device_setPlayback", 1, 3, 4);
    QCOMPARE(shownUnits(), QStringLiteral("device_2,device_4"));
    Page::call("playback_selectDevice", 4);
    QCOMPARE(shownUnits(), QStringLiteral("device_1"));
    Page::call("playback_selectDevice", 8);
    QVERIFY(is("$('#no_devices').is(':visible')"));
}

void PlaybackPageTest::zoneNarrowsTheUnits()
{
    openList();
    addUnits();
    Page::call("wrapperInput_zone_add", 1, 0, "root", "", 0);
    Page::call("wrapperInput_zone_add", 5, 0, "again", "", 0);
    QCOMPARE(text("$('#zone_select option').map(function () { return this.text; }).get().join()"),
             QStringLiteral("Все зоны,Первый этаж,Первый этаж / Коридор"));
    run("$('#zone_select').val(5).trigger('change')");
    QCOMPARE(shownUnits(), QString());
    addPlaybacks();
    QCOMPARE(text("$('#zone_select').val()"), QStringLiteral("0"));
    run("$('#zone_select').val(5).trigger('change')");
    QCOMPARE(shownUnits(), QStringLiteral("device_1"));
    Page::call("wrapperInput_zone_includeDevice", 5, 4);
    QCOMPARE(shownUnits(), QStringLiteral("device_1,device_4"));
    Page::call("wrapperInput_zone_excludeDevice", 5, 1);
    Page::call("wrapperInput_device_delete", 4);
    QVERIFY(is("$('#no_devices').is(':visible')"));
    Page::call("wrapperInput_zone_delete", 5);
    QCOMPARE(shownUnits(), QStringLiteral("device_1"));
    // The home page shows all again.
    run("loadHomePage()");
    QVERIFY(console().waitFor("$('#zone_0').length && !$('#playback_page').length"));
    Page::call("wrapperInput_device_add", 9, "x", 2, 1, 0, true);
    QCOMPARE(shownUnits(), QStringLiteral("device_9"));
}

void PlaybackPageTest::barFollowsThePosition_data()
{
    QTest::addColumn<double>("position");
    QTest::addColumn<int>("duration");
    QTest::addColumn<double>("share");
    QTest::addColumn<QString>("words");
    QTest::newRow("half") << 60.0 << 120 << 0.5 << "1:00 / 2:00";
    QTest::newRow("between two seconds") << 30.5 << 122 << 0.25 << "0:30 / 2:02";
    QTest::newRow("past the end") << 130.0 << 120 << 1.0 << "2:00 / 2:00";
    QTest::newRow("live") << 1.0 << -1 << 1.0 << "Прямой эфир";
    QTest::newRow("length not known yet") << 1.0 << 0 << 0.0 << "--";
}

void PlaybackPageTest::barFollowsThePosition()
{
    QFETCH(double, position);
    QFETCH(int, duration);
    QFETCH(double, share);
    QFETCH(QString, words);
    openList();
    Page::call("wrapperInput_playback_add", 3, 2, "a", "b", 40, position, duration);
    const QString bar = QStringLiteral("$('#playback_timeshift_3')");
    const QString width = bar + ".width() / " + bar + ".parent().width()";
    QVERIFY(qAbs(console().value(width).toDouble() - share) < 0.01);
    QCOMPARE(text("$('#playback_position_3').text()"), words);
    QCOMPARE(is(bar + ".hasClass('progress-bar-striped')"), duration < 0);
    QCOMPARE(is(bar + ".hasClass('progress-bar-success')"), duration >= 0);
    Page::call("wrapperInput_playback_setTimeshift", 3, 50.0, 100);
    QVERIFY(qAbs(console().value(width).toDouble() - 0.5) < 0.01);
    QVERIFY(!is(bar + ".hasClass('progress-bar-striped')"));
}

void PlaybackPageTest::transportActsOnTheActivePlayback_data()
{
    QTest::addColumn<int>("active");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("call");
    QTest::newRow("backward") << 3 << "$('#backward').click()"
                              << "playback_prev(3)";
    QTest::newRow("forward") << 3 << "$('#forward').click()"
                             << "playback_next(3)";
    QTest::newRow("pause") << 3 << "$('#pause').click()"
                           << "playback_pause(3,true)";
    QTest::newRow("play, when playing") << 3 << "$('#play').click()"
                                        << "";
    QTest::newRow("play") << 4 << "$('#play').click()"
                          << "playback_pause(4,false)";
    QTest::newRow("pause, when paused") << 4 << "$('#pause').click()"
                                        << "";
    QTest::newRow("stop") << 4 << "$('#stop').click()"
                          << "playback_stop(4)";
    QTest::newRow("mute") << 3 << "$('#mute').click()"
                          << "playback_setVolume(3,0,playback)";
    QTest::newRow("volume") << 3 << "$('#volume_value').val(70).trigger('mouseup')"
                            << "playback_setVolume(3,70,playback)";
    QTest::newRow("another track") << 3 << "$('#track_12').dblclick()"
                                   << "playback_nextById(3,12)";
}

void PlaybackPageTest::transportActsOnTheActivePlayback()
{
    QFETCH(int, active);
    QFETCH(QString, action);
    QFETCH(QString, call);
    openList();
    addPlaybacks();
    Page::call("playback_selectDevice", active);
    Page::call("playback_selectPlaylist", 20);
    addTracks(20);
    run(action);
    QCOMPARE(takeCalls(), call);
    // A second press does nothing before the answer has come.
    run(action);
    QCOMPARE(takeCalls(), action.endsWith(".click()") && !action.contains("mute") ? "" : call);
    for (const char* const request : {"playback/playNext", "playback/pause", "playback/stop"}) {
        Page::call("wrapperInput_global_answered", QString(request), QStringLiteral("success"));
    }
    // Nothing changes ahead of the answer, and then the buttons change places.
    const bool wasPaused = is("$('#pause').prop('disabled')");
    QCOMPARE(wasPaused, active == 4);
    Page::call("wrapperInput_playback_setPlaying", active, wasPaused, 2);
    QCOMPARE(is("$('#play').prop('disabled')"), wasPaused);
    QCOMPARE(is(QStringLiteral("$('#playback_icon_%1').hasClass('fa-pause')").arg(active)),
             !wasPaused);
}

void PlaybackPageTest::transportIsOffWithoutPlayback()
{
    openList();
    takeCalls();
    for (const char* const button : {"backward", "play", "pause", "stop", "forward", "mute"}) {
        run(QStringLiteral("$('#%1').click()").arg(QLatin1String(button)));
        QVERIFY(is(QStringLiteral("$('#%1').prop('disabled')").arg(QLatin1String(button))));
    }
    QCOMPARE(takeCalls(), QString());
    QVERIFY(!is("$('#new').prop('disabled')"));
}

void PlaybackPageTest::endOfAPlayback()
{
    openList();
    addUnits();
    addPlaybacks();
    Page::call("playback_selectPlaylist", 20);
    addTracks(20);
    // The answer to a stop empties the table, also when another playback was meant.
    Page::call("wrapperInput_playback_clearItems");
    Page::call("wrapperInput_playback_stop", 4);
    QCOMPARE(takeCalls(), QStringLiteral("playback_loadPlayback(3)"));
    QCOMPARE(text("$('.playback_active').attr('id')"), QStringLiteral("playback_3"));
    addTracks(20);
    Page::call("wrapperInput_playback_stop", 3);
    QCOMPARE(takeCalls(), QStringLiteral("playback_loadPlayback(8)"));
    QCOMPARE(text("$('.playback_active').attr('id')"), QStringLiteral("playback_8"));
    QVERIFY(is("$('#tracks_tbody').is(':empty') && !$('#stop').prop('disabled') && "
               "!$('#zone_select').prop('disabled')"));
    Page::call("wrapperInput_playback_stop", 8);
    QCOMPARE(shownUnits(), QString());
    QVERIFY(is("$('#stop').prop('disabled')"));
    QVERIFY(is("$('#zone_select').prop('disabled') && $('#playbackList').next().is(':visible')"));
    QCOMPARE(takeCalls(), QString());
}

void PlaybackPageTest::presetsPlaybackIsSelected()
{
    openList();
    addPlaybacks();
    Page::call("wrapperInput_playback_selectPlayback", 8);
    run("loadPlaybackPage()");
    QCOMPARE(text("$('.playback_active').attr('id')"), QStringLiteral("playback_8"));
    QVERIFY(takeCalls().endsWith("playback_loadPlayback(8)"));
    QCOMPARE(text("String(playbackForLoad)"), QStringLiteral("0"));
}

void PlaybackPageTest::hostileTitlesAreText()
{
    openList();
    Page::call("wrapperInput_playback_add", 3, 2, hostileText, hostileText, 1, 1.0, 2);
    Page::call("playback_selectPlaylist", 20);
    addHostileItems(20);
    console().picture("hostile-playback");
    Page::call("wrapperInput_playback_setPlaylistName", 20, hostileText + "2");
    QCOMPARE(text("$('#playback_title_3').text()"), hostileText + "2");
    Page::call("wrapperInput_playback_setCurrentTrack", 3, 11, hostileText + "3");
    QCOMPARE(text("$('#playback_name_3').text()"), hostileText + "3");
    QVERIFY(is("$('#track_11').hasClass('record_current')"));
    run("$('#zone_select').val(5).trigger('change'); $('#zone_select').select2('open')");
    Page::call("wrapperInput_zone_setName", 5, hostileText + "4", hostileText);
    QVERIFY(text("$('.select2-selection__rendered').text()").endsWith("</script>4"));
    QVERIFY(isHarmless());
}

/// The page with the real slots on a filled mirror, up to the requests.
void PlaybackPageTest::operatorsRoadToTheServer()
{
    openPage("$('#playlist').click()", "$('#track_12').length && $('#transport').length",
             Slots::Real, [this] { fillMirror(); });
    QCOMPARE(shownUnits(), QStringLiteral("device_1"));
    QVERIFY(is("$('#track_11').hasClass('record_current') && "
               "$('#playback_title_3').text() === 'Утро' && $('#volume_value').val() === '40'"));
    run("$('#forward').click()");
    QCOMPARE(lastRequest("playNext").value("trackId").toInt(), 12);
    run("$('#pause').click()");
    QCOMPARE(lastRequest("pause").value("pause").toBool(), true);
    run("$('#stop').click()");
    QCOMPARE(lastRequest("stop").value("playbackId").toInt(), 3);

    run("$('#new').click()");
    QVERIFY(console().waitFor("$('#playback_type_2').length && $('#create').length && "
                              "$('#device_2').length"));
    run("$('#playback_type_2').click(); $('#playlist_20').click(); $('#track_12').click();"
        "$('#device_button_2').click(); $('#playback_repeat_count').val('3'); "
        "$('#create').click()");
    const QJsonObject play = lastRequest("play");
    QCOMPARE(play.value("playlistId").toInt(), 20);
    QCOMPARE(play.value("trackId").toInt(), 12);
    QCOMPARE(play.value("devices").toArray(), QJsonArray{2});
    QCOMPARE(play.value("repeats").toInt(), 2);
    QCOMPARE(play.value("targetPlaying").toString(), QStringLiteral("list"));
    QCOMPARE(play.value("actionIfEnd").toString(), QStringLiteral("pause"));
    QCOMPARE(play.value("strategy").toString(), QStringLiteral("none"));
    Data::clearSession();
}

void PlaybackPageTest::fillMirror()
{
    for (int id = 1; id <= 2; ++id) {
        auto device = std::make_unique<Device>();
        device->setId(id);
        device->setStatus(DeviceOnline);
        device->setVolume(40 * id);
        Data::deviceList.append(std::move(device));
    }
    Data::playlistList.append(std::make_unique<Playlist>(2, "Плейлист", 0, 0, 165, 0, 2));
    Data::playlistList.append(std::make_unique<Playlist>(20, "Утро", 2, 0, 165, 0, 2));
    Data::trackList.append(std::make_unique<Track>(11, 20, "Марш", 0, 120));
    Data::trackList.append(std::make_unique<Track>(12, 20, "Вальс", 1, 45));
    auto playback = std::make_unique<Playback>();
    playback->setId(3);
    playback->setPlaylistId(20);
    playback->setTrackId(11);
    playback->setPlaybackType(2);
    playback->setPlaying(true);
    playback->setDeviceList({1});
    Data::playbackList.append(std::move(playback));
    Data::getDeviceById(1)->setPlayback(3);
}

QJsonObject PlaybackPageTest::lastRequest(const QString& action) const
{
    const QVector<QByteArray>& queue = Data::tcpClient.queuedMessages();
    const QJsonObject last =
        queue.isEmpty() ? QJsonObject() : QJsonDocument::fromJson(queue.last()).object();
    return last.value("action").toString() == action ? last : QJsonObject();
}

VANTORDESK_PAGE_TEST(PlaybackPageTest)
#include "playback_page_test.moc"
