#include "page/PageFixture.h"
#include "page/ScriptCall.h"

#include <QtTest>

/// The pages that start a playback: a new one, and the alarm announcements.
class PlaybackStartTest : public PageFixture
{
    Q_OBJECT

private Q_SLOTS:
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
    void openNew();
    void openAlarms();
};

void PlaybackStartTest::openNew()
{
    openPage("$('#playlist').click(); openNewPlayback();",
             "$('#source_page .device_panel').length && $('#playback_type_1').length && "
             "$('#create').length && $('#modalOverlap').length");
}

void PlaybackStartTest::openAlarms()
{
    openPage("loadSideMenu('alarm_zone_list'); loadTopMenu('alarm_list'); "
             "loadMainBody('alarm_list'); loadBotMenu('alarm_messages_list'); loadModal('alarm');",
             "$('#alarm_page .device_panel').length && $('#zone_0').length && "
             "$('#create').length && $('#modalOverlap').length && !$('#top_menu .top_tab').length");
}

void PlaybackStartTest::foldersStayAboveTracks()
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

void PlaybackStartTest::durationsOfRows_data()
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

void PlaybackStartTest::durationsOfRows()
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

void PlaybackStartTest::pickedTrackGoesWithItsFolder()
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
    run("$('#modalSelectingAudioSource .accept').click(); $('#create').click()");
    QVERIFY(console().waitFor("$('#modalSelectingAudioSource').hasClass('in')"));
    // Somebody else's playback ends: the picked track stays picked only if its row is there again.
    run("$('#track_12').click(); slotCalls = [];");
    Page::call("wrapperInput_playback_clearItems");
    QCOMPARE(takeCalls(), QStringLiteral("playback_loadPlaybackWithPlaylist(3)"));
    run("$('#modalSelectingAudioSource .accept').click(); $('#create').click()");
    QVERIFY(console().waitFor("$('#modalSelectingAudioSource').hasClass('in')"));
    QCOMPARE(takeCalls(), QString());
}

void PlaybackStartTest::newPageOffersOnlineUnitsOnly()
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
    QCOMPARE(text("$('#selected_devices').text()"),
             QStringLiteral("Выбрано устройств: 2, из них скрыто фильтром: 1"));
    run("$('#zone_deselect_all').click()");
    QCOMPARE(text("selectedDevices().join()"), QString());
}

void PlaybackStartTest::startNeedsSourceAndUnits()
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

void PlaybackStartTest::startCarriesTheSettings_data()
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

void PlaybackStartTest::startCarriesTheSettings()
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

void PlaybackStartTest::overlapAsksAgain()
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
    QVERIFY(console().waitFor("$('#modalOverlap').find(document.activeElement).length === 1"));
    pressEscape();
    QVERIFY(console().waitFor("!$('#modalOverlap').is(':visible')"));
    QCOMPARE(takeCalls(), QString());
}

void PlaybackStartTest::alarmPageFallsBackWithItsPlaylist()
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

void PlaybackStartTest::hostileTitlesAreText_data()
{
    QTest::addColumn<int>("playlist");
    QTest::newRow("new") << 1;
    QTest::newRow("alarms") << 6;
}

void PlaybackStartTest::hostileTitlesAreText()
{
    QFETCH(int, playlist);
    playlist == 1 ? openNew() : openAlarms();
    addHostileItems(playlist);
    console().picture("hostile-start-" + QString::number(playlist));
    Page::call("wrapperInput_playback_setPlaylistName", 12, hostileText + "2");
    QCOMPARE(text("$('#playlist_12 .item_title').text()"), hostileText + "2");
    QVERIFY(isHarmless());
}

VANTORDESK_PAGE_TEST(PlaybackStartTest)
#include "playback_start_test.moc"
