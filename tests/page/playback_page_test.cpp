#include "page/PageFixture.h"
#include "page/ScriptCall.h"

#include <QApplication>
#include <QtTest>

/// The pages of the running playbacks, of a new one, and of the alarm announcements.
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
    void foldersStayAboveTracks();
    void durationsOfRows_data();
    void durationsOfRows();
    void pickedTrackGoesWithItsFolder();
    void newPageOffersOnlineUnitsOnly();
    void startNeedsSourceAndUnits();
    void startCarriesTheSettings_data();
    void startCarriesTheSettings();
    void overlapAsksAgain();
    void alarmPageFallsBackWithItsPlaylist();
    void hostileTitlesAreText_data();
    void hostileTitlesAreText();

private:
    void openList();
    void openNew();
    void openAlarms();
    void addPlaybacks();
    void addTracks(int playlist);
    QString shownUnits() const
    {
        return text("$('.tile:visible').map(function () { return this.id; }).get().join()");
    }
};

void PlaybackPageTest::openList()
{
    openPage("$('#playlist').click()",
             "$('#playback_page .device_panel').length && $('#playbackList').length && "
             "$('#transport').length && $('#zone_select').next('.select2').length");
}

void PlaybackPageTest::openNew()
{
    openPage("$('#playlist').click(); openNewPlayback();",
             "$('#source_page .device_panel').length && $('#playback_type_1').length && "
             "$('#create').length && $('#modalOverlap').length");
}

void PlaybackPageTest::openAlarms()
{
    openPage("loadSideMenu('alarm_zone_list'); loadTopMenu('alarm_list'); "
             "loadMainBody('alarm_list'); loadBotMenu('alarm_messages_list'); loadModal('alarm');",
             "$('#alarm_page .device_panel').length && $('#zone_0').length && "
             "$('#create').length && $('#modalOverlap').length && !$('#top_menu .top_tab').length");
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

void PlaybackPageTest::addTracks(int playlist)
{
    Page::call("wrapperInput_playback_addItem", 11, playlist, QStringLiteral("Марш"), 0, 120);
    Page::call("wrapperInput_playback_addItem", 12, playlist,
               QStringLiteral("Вальс с очень длинным названием, которое не помещается в строке"), 0,
               45);
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
    QCOMPARE(shownUnits(), QString());
    QVERIFY(is("$('#tracks_tbody').is(':empty') && $('#stop').prop('disabled') && "
               "!$('#zone_select').prop('disabled')"));
    addTracks(20);
    QVERIFY(is("$('#tracks_tbody').is(':empty')"));
    Page::call("wrapperInput_playback_stop", 8);
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

void PlaybackPageTest::foldersStayAboveTracks()
{
    openNew();
    addUnits();
    QCOMPARE(takeCalls().section(' ', -1), QStringLiteral("playback_loadPlaybackWithPlaylist(1)"));
    run("$('#playback_type_2').click()");
    QCOMPARE(takeCalls(), QStringLiteral("playback_loadPlaybackWithPlaylist(2)"));
    Page::call("wrapperInput_playback_addItem", 30, 2, QStringLiteral("Вечер"), 1, 600);
    run("$('#playlist_30').click()");
    QCOMPARE(takeCalls(), QStringLiteral("playback_loadPlaybackWithPlaylist(30)"));
    Page::call("wrapperInput_playback_addItem", 2, 30, "..", 1, 0);
    addTracks(30);
    Page::call("wrapperInput_playback_addItem", 31, 30, QStringLiteral("Поздний вечер"), 1, 61);
    Page::call("wrapperInput_playback_addItem", 31, 30, "twice", 1, 61);
    Page::call("wrapperInput_playback_addItem", 32, 2, "elsewhere", 1, 61);
    Page::call("wrapperInput_playback_setPlaylistName", 2, "the folder above");
    QCOMPARE(text("$('#playlistTable tbody tr').map(function () { return this.id; }).get().join()"),
             QStringLiteral("playlist_2,playlist_31,track_11,track_12"));
    QCOMPARE(text("$('#playlist_2 .item_title').text()"), QStringLiteral(".."));
    QCOMPARE(text("$('#playlist_31 .item_duration').text()"), QStringLiteral("1 мин. 1 сек."));
    run("$('#track_12').click()");
    QVERIFY(is("$('#track_12').hasClass('record_active')"));
    run("$('#device_1 .kelpa_item').click()");
    console().picture("playback-new");
    Page::call("wrapperInput_playback_deletePlaylist", 30);
    QCOMPARE(takeCalls(), QStringLiteral("playback_loadPlaybackWithPlaylist(2)"));
}

void PlaybackPageTest::durationsOfRows_data()
{
    QTest::addColumn<int>("category");
    QTest::addColumn<int>("duration");
    QTest::addColumn<QString>("words");
    QTest::newRow("seconds") << 2 << 59 << "59 сек.";
    QTest::newRow("one minute") << 2 << 60 << "60 сек.";
    QTest::newRow("minutes") << 2 << 3725 << "62 мин. 5 сек.";
    QTest::newRow("live") << 2 << -1 << "";
    QTest::newRow("radio") << 1 << 75 << "";
}

void PlaybackPageTest::durationsOfRows()
{
    QFETCH(int, category);
    QFETCH(int, duration);
    QFETCH(QString, words);
    openNew();
    run(QStringLiteral("selectPlaylist(%1)").arg(category));
    Page::call("wrapperInput_playback_addItem", 11, category, "a", 0, duration);
    Page::call("wrapperInput_playback_addItem", 12, category, "b", 0, 1);
    Page::call("wrapperInput_playback_setTrackDuration", 12, duration);
    QCOMPARE(text("$('#track_11 .item_duration').text()"), words);
    QCOMPARE(text("$('#track_12 .item_duration').text()"), words);
    QCOMPARE(is("$('th.item_duration').is(':visible')"), category != 1);
}

void PlaybackPageTest::pickedTrackGoesWithItsFolder()
{
    openNew();
    addUnits();
    run("selectPlaylist(2)");
    addTracks(2);
    run("$('#track_11').click(); $('#device_button_1').click(); selectPlaylist(3);"
        "$('#create').click()");
    QVERIFY(console().waitFor("$('#modalSelectingAudioSource').hasClass('in')"));
    addTracks(3);
    run("$('#track_11').click()");
    Page::call("wrapperInput_playback_deleteTrack", 11);
    QCOMPARE(text("String(currentTrack)"), QStringLiteral("0"));
    // Somebody else's playback ends: the picked track stays picked only if its row is there again.
    run("$('#track_12').click(); slotCalls = [];");
    Page::call("wrapperInput_playback_clearItems");
    QCOMPARE(takeCalls(), QStringLiteral("playback_loadPlaybackWithPlaylist(3)"));
    QCOMPARE(text("String(currentTrack)"), QStringLiteral("0"));
}

void PlaybackPageTest::newPageOffersOnlineUnitsOnly()
{
    openNew();
    addUnits();
    QCOMPARE(shownUnits(), QStringLiteral("device_1,device_2"));
    run("$('#zone_select').val(5).trigger('change'); $('#zone_select_current').click()");
    QCOMPARE(shownUnits(), QStringLiteral("device_1"));
    QCOMPARE(text("selectedDevices().join()"), QStringLiteral("1"));
    Page::call("wrapperInput_device_linkOn", 3);
    QCOMPARE(shownUnits(), QStringLiteral("device_1,device_3"));
    Page::call("wrapperInput_device_linkOff", 1);
    QCOMPARE(text("selectedDevices().join()"), QString());
    run("$('#zone_select_all').click()");
    QCOMPARE(text("selectedDevices().join()"), QStringLiteral("2,3"));
    QVERIFY(text("$('#selected_devices').text()").endsWith(" 2"));
    run("$('#zone_deselect_all').click()");
    QCOMPARE(text("selectedDevices().join()"), QString());
}

void PlaybackPageTest::startNeedsSourceAndUnits()
{
    openNew();
    addUnits();
    run("slotCalls = []; $('#create').click()");
    QVERIFY(console().waitFor("$('#modalSelectingAudioSource').hasClass('in')"));
    run("$('#modalSelectingAudioSource .accept').click()");
    addTracks(1);
    run("$('#track_11').click(); $('#create').click()");
    QVERIFY(console().waitFor("$('#modalSelectingKelpas').hasClass('in')"));
    QCOMPARE(takeCalls(), QString());
}

void PlaybackPageTest::startCarriesTheSettings_data()
{
    QTest::addColumn<bool>("isAlarm");
    QTest::addColumn<QString>("settings");
    QTest::addColumn<QString>("arguments");
    QTest::newRow("defaults") << false << ""
                              << "list,1,pause";
    QTest::newRow("defaults of alarms") << true << ""
                                        << "track,1,stop";
    QTest::newRow("other") << false
                           << "$('label[for=type_track], label[for=action_stop]').click(); "
                              "$('#playback_repeat_count').val('12').trigger('keyup')"
                           << "track,12,stop";
    QTest::newRow("too many") << true << "$('#playback_repeat_count').val('9x99').trigger('input')"
                              << "track,255,stop";
    QTest::newRow("none") << false << "$('#playback_repeat_count').val('').trigger('keyup')"
                          << "list,1,pause";
}

void PlaybackPageTest::startCarriesTheSettings()
{
    QFETCH(bool, isAlarm);
    QFETCH(QString, settings);
    QFETCH(QString, arguments);
    if (isAlarm) {
        openAlarms();
    } else {
        openNew();
    }
    addUnits();
    const int playlist = isAlarm ? 6 : 1;
    addTracks(playlist);
    run("$('#track_12').click(); $('#zone_select_all').click(); slotCalls = [];" + settings);
    if (isAlarm) {
        console().picture("alarm-list");
    }
    run("$('#create').click()");
    QCOMPARE(takeCalls(),
             QStringLiteral("playback_play(%1,12,1,2,none,%2)").arg(playlist).arg(arguments));
}

void PlaybackPageTest::overlapAsksAgain()
{
    openNew();
    addUnits();
    addTracks(1);
    run("$('#track_11').click(); $('#zone_select_all').click(); slotCalls = [];");
    for (const auto& [button, strategy] :
         {std::pair{".accept", "overlap"}, {".other", "partial"}}) {
        Page::call("modalOverlapShow");
        QVERIFY(console().waitFor("$('#modalOverlap').hasClass('in')"));
        console().picture("overlap");
        run(QStringLiteral("$('#modalOverlap %1').click()").arg(button));
        QCOMPARE(takeCalls(),
                 QStringLiteral("playback_play(1,11,1,2,%1,list,1,pause)").arg(strategy));
        QVERIFY(console().waitFor("!$('#modalOverlap').is(':visible')"));
    }
    Page::call("modalOverlapShow");
    QVERIFY(console().waitFor("$('#modalOverlap').hasClass('in')"));
    pressEscape();
    QVERIFY(console().waitFor("!$('#modalOverlap').is(':visible')"));
    QCOMPARE(takeCalls(), QString());
}

void PlaybackPageTest::alarmPageFallsBackWithItsPlaylist()
{
    openAlarms();
    addUnits();
    QCOMPARE(shownUnits(), QStringLiteral("device_1,device_2,device_3,device_4"));
    run("modalSelectingKelpasShow(); block()");
    QVERIFY(console().waitFor("$('#blockModal').hasClass('in')"));
    Page::call("wrapperInput_playback_deletePlaylist", 40);
    QVERIFY(is("$('#alarm_page').length"));
    Page::call("wrapperInput_playback_deletePlaylist", 6);
    Page::call("wrapperInput_playback_deletePlaylist", 6);
    QVERIFY(console().waitFor("$('#top_menu #device_list').length === 1 && "
                              "$('#adminRolePermissionLost').hasClass('in')"));
    QVERIFY(is("$('#blockModal').hasClass('in')"));
    QVERIFY(console().waitFor("!$('#modalSelectingKelpas').is(':visible')"));
}

void PlaybackPageTest::hostileTitlesAreText_data()
{
    QTest::addColumn<int>("page");
    QTest::newRow("list") << 0;
    QTest::newRow("new") << 1;
    QTest::newRow("alarms") << 2;
}

void PlaybackPageTest::hostileTitlesAreText()
{
    QFETCH(int, page);
    const int playlist = page == 1 ? 1 : 6;
    page == 0 ? openList() : page == 1 ? openNew() : openAlarms();
    if (page == 0) {
        Page::call("wrapperInput_playback_add", 3, 2, hostileText, hostileText, 1, 1.0, 2);
        Page::call("playback_selectPlaylist", playlist);
    }
    Page::call("wrapperInput_device_add", 1, hostileText, 2, 1, 2, true, "playback_3");
    Page::call("wrapperInput_device_setTask", 1, 1, hostileText);
    Page::call("wrapperInput_zone_add", 5, 0, hostileText, hostileText, 0);
    Page::call("wrapperInput_playback_addItem", 11, playlist, hostileText, 0, 1);
    Page::call("wrapperInput_playback_addItem", 12, playlist, hostileText, 1, 1);
    const QString row = text("$('#track_11 .item_title').text()");
    QCOMPARE(row, hostileText);
    QCOMPARE(text("$('#device_name_1').text()"), hostileText);
    console().picture("hostile-" + QString::number(page));
    const QString renamed = hostileText + "2";
    Page::call("wrapperInput_playback_setTrackName", 11, renamed);
    Page::call("wrapperInput_playback_setPlaylistName", playlist, renamed);
    Page::call("wrapperInput_playback_setPlaylistName", 12, renamed);
    Page::call("wrapperInput_zone_setName", 5, renamed, renamed);
    QCOMPARE(text("$('#track_11 .item_title').text()"), renamed);
    if (page == 0) {
        QCOMPARE(text("$('#playback_title_3').text()"), renamed);
        Page::call("wrapperInput_playback_setCurrentTrack", 3, 11, hostileText + "3");
        QCOMPARE(text("$('#playback_name_3').text()"), hostileText + "3");
        QVERIFY(is("$('#track_11').hasClass('record_current')"));
    } else {
        QCOMPARE(text("$('#playlist_12 .item_title').text()"), renamed);
    }
    if (page != 2) {
        run("$('#zone_select').val(5).trigger('change').select2('open')");
        QVERIFY(text("$('.select2-selection__rendered').text()").contains("<img"));
    }
    QVERIFY(isHarmless());
}

int main(int argc, char* argv[])
{
    Q_INIT_RESOURCE(web);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    PlaybackPageTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "playback_page_test.moc"
