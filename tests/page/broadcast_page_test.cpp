#include "page/PageFixture.h"
#include "page/ScriptCall.h"

#include <QtTest>

/// The pages of live broadcasts, voice and alarm, and the gong.
class BroadcastPageTest : public PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void selectionFollowsZones();
    void startNeedsUnits_data() { pages(); }
    void startNeedsUnits();
    void dialogFollowsTheStream_data() { pages(); }
    void dialogFollowsTheStream();
    void endsOfAStream_data();
    void endsOfAStream();
    void microphoneNeverRunsWithoutItsDialog();
    void microphoneVolume();
    void gongNeedsASourceFirst();
    void gongRunsAndStops();
    void hostileNamesAreText();

private:
    static void pages();
    void openMicrophone();
    void openAlarm();
    void open(const QString& type) { type == "alarm" ? openAlarm() : openMicrophone(); }
    void addGongs();
};

void BroadcastPageTest::pages()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("voice") << "microphone";
    QTest::newRow("alarm") << "alarm";
}

void BroadcastPageTest::openMicrophone()
{
    openPage("$('#microphone').show().click()",
             "$('#broadcast_page .device_panel').length && $('#translation_start').length && "
             "$('#zone_0').length && $('#modalAudioTranslation').length");
}

void BroadcastPageTest::openAlarm()
{
    openPage("loadSideMenu('alarm_zone_list'); loadTopMenu('translation'); "
             "loadMainBody('translation'); loadBotMenu('translation'); loadModal('translation');",
             "$('#broadcast_page .device_panel').length && $('#translation_start').length && "
             "$('#gongRow').children().length && $('#modalAudioTranslation').length && "
             "$('#zone_0').length && !$('#top_menu .top_tab').length");
}

void BroadcastPageTest::addGongs()
{
    Page::call("wrapperInput_playback_addItem", 71, 7, QStringLiteral("Три тона"), 0, 4);
    Page::call("wrapperInput_playback_addItem", 72, 7, QStringLiteral("Вокзал"), 0, 6);
    Page::call("wrapperInput_playback_addItem", 73, 7, QStringLiteral("Папка"), 1, 6);
    Page::call("wrapperInput_playback_addItem", 11, 2, QStringLiteral("Марш"), 0, 6);
}

void BroadcastPageTest::selectionFollowsZones()
{
    openMicrophone();
    QVERIFY(is("$('#no_devices').is(':visible')"));
    addUnits();
    run("$('#zone_5').click(); $('#zone_select_current').click()");
    QCOMPARE(text("selectedDevices().join()"), QStringLiteral("1"));
    QCOMPARE(text("$('.tile:visible').length + ''"), QStringLiteral("2"));
    run("$('#zone_select_all').click()");
    QCOMPARE(text("selectedDevices().join()"), QStringLiteral("1,2"));
    run("$('#device_button_3, #device_border_4').click()"); // not online
    QCOMPARE(text("selectedDevices().join()"), QStringLiteral("1,2"));
    run("$('#zone_0').click(); $('#device_border_2').click()");
    QCOMPARE(text("selectedDevices().join()"), QStringLiteral("1"));
    Page::call("wrapperInput_device_setPlaybackCategory", 1, 5);
    Page::call("wrapperInput_device_setPlaybackCategory", 2, -4);
    QVERIFY(is("$('#device_playing_1').is('.fa-microphone.btn-default:not(.fa-play-circle-o)') && "
               "$('#device_playing_2').is('.fa-microphone.btn-danger:not(.fa-stop)')"));
    console().picture("microphone");
    run("$('#zone_deselect_all').click()");
    QCOMPARE(text("selectedDevices().join()"), QString());
}

void BroadcastPageTest::startNeedsUnits()
{
    QFETCH(QString, type);
    open(type);
    addUnits();
    run("slotCalls = []; $('#translation_start').click()");
    QVERIFY(console().waitFor("$('#modalSelectingKelpas').hasClass('in')"));
    QVERIFY(!is("$('#modalAudioTranslation').hasClass('in')"));
    run("$('#modalSelectingKelpas .accept').click(); $('#zone_select_all').click(); "
        "$('#translation_start').click()");
    QVERIFY(console().waitFor("$('#modalAudioTranslation').hasClass('in')"));
    QCOMPARE(takeCalls(), QString());
    pressEscape();
    run("$('#translation_button_start').click()");
    QCOMPARE(takeCalls(), QStringLiteral("playback_startRedirection(1,2,%1,overlap)").arg(type));
    QVERIFY(is("$('#modalAudioTranslation').hasClass('in')"));
    QCOMPARE(is("$('#modalAudioTranslation #volume_value').length"), type == "microphone");
    console().picture("broadcast-" + type);
}

void BroadcastPageTest::dialogFollowsTheStream()
{
    QFETCH(QString, type);
    open(type);
    addUnits();
    run("$('#zone_select_all').click(); $('#translation_start').click();"
        "slotCalls = [];");
    QVERIFY(console().waitFor("$('#modalAudioTranslation').hasClass('in')"));
    const QString stopIsOff = "$('#translation_button_stop').is(':visible:disabled') && "
                              "!$('#translation_button_start').is(':visible')";
    const QString startIsOff = "$('#translation_button_start').is(':visible:disabled') && "
                               "$('#translation_button_close').is(':visible:disabled') && "
                               "!$('#translation_button_stop').is(':visible')";
    QElapsedTimer time;
    time.start();
    Page::call("modalAudioTranslationStarted");
    QVERIFY(is(stopIsOff));
    QVERIFY(text("$('#translation_text').text()").contains(QStringLiteral("\"Остановить\"")));
    console().picture("broadcast-starting-" + type);
    QVERIFY(console().waitFor("$('#translation_button_stop').is(':enabled')"));
    QVERIFY(time.elapsed() >= 450);
    console().picture("broadcast-running-" + type);
    run("$('#translation_button_stop').click()");
    QCOMPARE(takeCalls(), QStringLiteral("playback_stopRedirection()"));
    Page::call("modalAudioTranslationStoped");
    QVERIFY(is(startIsOff));
    QVERIFY(text("$('#translation_text').text()").contains(QStringLiteral("\"Старт\"")));
    time.restart();
    Page::call("modalAudioTranslationStarted");
    QVERIFY(console().waitFor("$('#translation_button_stop').is(':enabled')"));
    QVERIFY(time.elapsed() >= 450);
    Page::call("modalAudioTranslationStoped");
    QVERIFY(console().waitFor("$('#translation_button_close').is(':enabled')"));
    run("$('#translation_button_close').click()");
    QVERIFY(console().waitFor("!$('#modalAudioTranslation').is(':visible')"));
}

void BroadcastPageTest::endsOfAStream_data()
{
    QTest::addColumn<QString>("call");
    QTest::addColumn<QString>("notice");
    QTest::newRow("no capture") << "modalAudioTranslationStartError()"
                                << "#modalAudioTranslationError";
    QTest::newRow("another operator")
        << "modalAudioTranslationHide(); modalAudioTranslationEndedByAnotherUser()"
        << "#modalAudioTranslationEndedByAnotherUser";
    QTest::newRow("refused") << "modalAudioTranslationHide(); modalLowPriorityShow()"
                             << "#modalLowPriority";
}

void BroadcastPageTest::endsOfAStream()
{
    QFETCH(QString, call);
    QFETCH(QString, notice);
    openMicrophone();
    addUnits();
    run("$('#zone_select_all').click(); $('#translation_start').click()");
    QVERIFY(console().waitFor("$('#modalAudioTranslation').hasClass('in')"));
    Page::call("modalAudioTranslationStarted");
    run(call);
    QVERIFY(console().waitFor(QStringLiteral("$('%1').hasClass('in') && "
                                             "!$('#modalAudioTranslation').is(':visible')")
                                  .arg(notice)));
    // A later start begins anew.
    run(QStringLiteral("$('%1 .accept').click(); $('#translation_start').click()").arg(notice));
    QVERIFY(console().waitFor("$('#translation_button_start').is(':visible:enabled') && "
                              "!$('#translation_button_stop').is(':visible')"));
}

void BroadcastPageTest::microphoneNeverRunsWithoutItsDialog()
{
    const auto openDialog = [this] {
        openMicrophone();
        addUnits();
        run("var slow = setTimeout; setTimeout = function (action, time) { "
            "return slow(action, time === 10000 ? 20 : time); };"
            "$('#zone_select_all').click(); $('#translation_start').click()");
    };
    openDialog();
    run("slotCalls = []; $('#translation_button_start').click()");
    QVERIFY(is("$('#translation_button_close').prop('disabled')"));
    // Nobody answers: the way out stops what may still come about.
    QVERIFY(console().waitFor("!$('#translation_button_close').prop('disabled')"));
    run("$('#translation_button_close').click()");
    QVERIFY(takeCalls().endsWith("playback_stopRedirection()"));
    // It has come about all the same.
    Page::call("modalAudioTranslationStarted");
    QVERIFY(console().waitFor("$('#translation_button_stop').is(':visible:enabled')"));
    QCOMPARE(text("$('#modalAudioTranslation .modal-title').text()"),
             QStringLiteral("Идет трансляция"));
    QVERIFY(text("$('#translation_air').text()").startsWith(QStringLiteral("Устройств: 2")));
    run("slotCalls = []; loadModal('settings')");
    QVERIFY(console().waitFor("$('#modalAudioTranslation').length === 0"));
    QCOMPARE(takeCalls(), QStringLiteral("playback_stopRedirection()"));

    openDialog();
    QVERIFY(console().waitFor("$('#modalAudioTranslation').hasClass('in')"));
    Page::call("wrapperInput_device_linkOff", 1);
    Page::call("wrapperInput_device_linkOff", 2);
    run("slotCalls = []; $('#translation_button_start').click()");
    QVERIFY(console().waitFor("$('#modalSelectingKelpas').hasClass('in')"));
    QCOMPARE(takeCalls(), QString());
}

void BroadcastPageTest::microphoneVolume()
{
    openMicrophone();
    Page::call("wrapperInput_playback_setMicrophoneVolume", 35);
    QCOMPARE(text("$('#volume_value').val()"), QStringLiteral("35"));
    run("slotCalls = []; $('#volume_value').val(80).trigger('mouseup')");
    QCOMPARE(takeCalls(), QStringLiteral("playback_setVolume(0,80,redirection)"));
}

void BroadcastPageTest::gongNeedsASourceFirst()
{
    openAlarm();
    addUnits();
    QVERIFY(takeCalls().contains("playback_loadPlaybackType(7)"));
    console().picture("alarm-without-gongs");
    run("$('#gongRow .btn').click()");
    QVERIFY(console().waitFor("$('#modalSelectingAudioSource').hasClass('in')"));
    QVERIFY(text("$('#modalSelectingAudioSource').text()").contains(QStringLiteral("\"Гонг\"")));
    run("$('#modalSelectingAudioSource .accept').click()");
    addGongs();
    QCOMPARE(text("$('#gongs option').map(function () { return this.value; }).get().join()"),
             QStringLiteral("71,72"));
    run("$('#gongRow .btn').click()");
    QVERIFY(console().waitFor("$('#modalSelectingKelpas').hasClass('in')"));
    QCOMPARE(takeCalls(), QString());
}

void BroadcastPageTest::gongRunsAndStops()
{
    openAlarm();
    addUnits();
    addGongs();
    run("$('#gongs').val(72).trigger('change'); $('#device_button_2').click(); "
        "slotCalls = []; $('#gongRow .btn').click()");
    QCOMPARE(takeCalls(), QStringLiteral("playback_play(7,72,2,overlap,track,1,stop)"));
    console().picture("alarm");
    Page::call("gongStart", 9);
    QCOMPARE(text("$('#gongRow').text().trim()"), QStringLiteral("Стоп"));
    run("$('#gongRow .btn').click()");
    QCOMPARE(takeCalls(), QStringLiteral("playback_stop(9)"));
    // The page was away and is back: it asks, and keeps nothing of its own.
    run("$('#gongs').addClass('old'); loadMainBody('translation')");
    QVERIFY(console().waitFor("$('#gongs').length === 1 && $('.old').length === 0"));
    QVERIFY(takeCalls().contains("playback_loadPlaybackType(7)"));
    QCOMPARE(text("$('#gongRow').text().trim()"), QStringLiteral("Гонг"));
}

void BroadcastPageTest::hostileNamesAreText()
{
    openAlarm();
    Page::call("wrapperInput_device_add", 1, hostileText, 2, 1, 0, true, "playback_0");
    Page::call("wrapperInput_zone_add", 5, 0, hostileText, QString(), 0);
    Page::call("wrapperInput_playback_addItem", 71, 7, hostileText, 0, 4);
    QCOMPARE(text("$('#device_name_1').text()"), hostileText);
    QCOMPARE(text("$('#zone_name_5').text()"), hostileText);
    Page::call("wrapperInput_playback_setTrackName", 71, hostileText + "2");
    QVERIFY(text("$('.select2-selection__rendered').text()").endsWith("</script>2"));
    run("$('#gongs').select2('open')");
    console().picture("hostile-gong");
    QVERIFY(isHarmless());
    run("$('#gongs').select2('close')");
    Page::call("wrapperInput_playback_deleteTrack", 71);
    QVERIFY(is("$('#gongs option').length === 0"));
}

VANTORDESK_PAGE_TEST(BroadcastPageTest)
#include "broadcast_page_test.moc"
