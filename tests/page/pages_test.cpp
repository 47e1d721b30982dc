#include "page/PageFixture.h"

#include "app/Data.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Role.h"
#include "model/Track.h"
#include "model/User.h"
#include "model/Zone.h"
#include "page/PageLooks.h"
#include "page/SourceScan.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace
{

/// What native code tells of a subject, but not every page that shows something of it shows.
struct Exception {
    /// Those that do hear it, with "|" between. Behind a "!" those that don't. "administration" are
    /// the pages of that section.
    const char* pages;
    const char* reason;
    const char* subject; ///< how the names begin, without "wrapperInput_"
    const char* names;   ///< their ends, with blanks between
};

const Exception exceptions[] = {
    {"unit settings", "only the form of a unit shows or asks for it", "device_",
     "debugInfo hideDebugInfo setAllowedCommandIp setCommandPort setDHCP setGateway setIp "
     "setLineJoined setMac setMulticastAIN0 setMulticastAIN1 setMulticastIp setMulticastListen "
     "setNetworkMask setPriorityAIN0 setPriorityAIN1 setPriorityListen setPriorityScenario "
     "setPriorityStream setTavrinAddress setTavrinErrorIndication setTavrinRelayControl "
     "setTavrinRelayEvent"},
    {"unit memory", "only the page of units' memory shows it", "device_",
     "addDeviceMemory addMessage applyFinished applyProgress clearMessage clearScenario "
     "deleteMessage setAvailableMemory setMessageId"},
    {"firmware", "only the page of firmware shows it", "device_",
     "addFirmware clearFirmware updateFinished"},
    {"unit", "only the page of one unit says what plays", "device_", "setPlaybackInfo"},
    {"unit|unit memory", "a unit's own fragments", "device_",
     "addScenario deleteScenario setScenarioId"},
    {"unit|unit settings", "the sound of one unit", "device_", "setEqualizer setEqualizerEnabled"},
    {"unit|line control|unit memory|unit settings", "the form of one unit", "device_", "setId"},
    {"unit|firmware|line control|unit settings", "what runs on a unit", "device_", "setVersion"},
    {"home", "the page of one unit says it by the level", "device_", "setBattery"},
    {"home|unit", "the cards of the other pages leave the health out", "device_",
     "setBatteryLevel setHull setLinesStatus setPower"},
    {"home|playbacks|new playback|microphone|alarm messages|alarm broadcast",
     "the list beside a unit stays as it was built", "device_", "setPlayback"},
    {"home|playbacks|new playback|microphone|alarm messages|alarm broadcast|presets",
     "the list beside a unit stays as it was built", "device_", "setPlaybackCategory"},
    {"!calendar|preset forms|task forms", "a choice of units says nothing of their state",
     "device_", "linkIncoming linkOff linkOn"},
    {"!calendar|preset forms|task forms|firmware|line control|unit memory|zones",
     "lists of the administration show a unit's link alone", "device_", "setVolume"},
    {"!calendar|preset forms|task forms|firmware|line control|unit memory|zones|unit settings",
     "lists of the administration show a unit's link alone", "device_", "setTask"},
    {"!calendar|preset forms|task forms|firmware|line control|unit memory|zones|unit "
     "settings|presets",
     "only what can be ticked is marked as unread", "device_", "setRead"},
    {"zones", "only the administration of zones asks for it", "zone_", "modalAdd select"},
    {"!presets|calendar", "the units in zones are shown, not the zones", "zone_",
     "add delete setName"},
    {"!preset forms|task forms|roles", "a choice of zones doesn't show what they hold", "zone_",
     "excludeDevice includeDevice"},
    {"playbacks", "only the page of the running playbacks shows them", "playback_",
     "add setCurrentTrack setPlaying setTimeshift stop"},
    {"microphone", "only its dialog has the slider", "playback_", "setMicrophoneVolume"},
    {"library", "only the page of the library uploads", "playback_",
     "addLoadingTrack currentAddedTrack endLoadingTrack errorLoadingTrack setLoadingTrack"},
    {"playbacks|new playback|alarm messages|library", "the length of what is to be chosen",
     "playback_", "clearItems setPlaylistDuration setTrackDuration"},
    {"playbacks|new playback|alarm messages|library|preset forms|task forms|roles",
     "pages with folders", "playback_", "setPlaylistName"},
    {"new playback|alarm messages|library|preset forms|task forms|roles",
     "the tracks of a playback's folder go one by one", "playback_", "deletePlaylist"},
    {"playbacks|new playback|alarm messages|alarm broadcast|library|preset forms|task forms|roles",
     "pages with folders or tracks", "playback_", "addItem"},
    {"playbacks|new playback|alarm messages|alarm broadcast|library|preset forms|task forms",
     "pages with tracks", "playback_", "deleteTrack setTrackName"},
    {"presets", "only a preset's card shows its units", "preset_", "addDevice"},
    {"presets|preset forms", "roles show a preset's name alone", "preset_", "clearDevices"},
    {"preset forms", "only the form of a preset shows it", "preset_",
     "clearZones select selectDevice selectZone setActionIfEnd setId setPlaylist setRepeats "
     "setTargetPlaying setTrack setType"},
    {"calendar", "only the calendar is built from a list", "task_",
     "buildScheduler clean initScheduler"},
    {"calendar|task forms", "roles show a task's name alone", "task_",
     "setEnabled setEndDate setEndTime setStartDateTime setType setWeeklyDays"},
    {"task forms", "only the form of a task shows it", "task_",
     "clearDevices clearZones select selectDevice selectZone setActionIfEnd setFrequencyRate setId "
     "setPlaylist setRepeats setTargetPlaying setTrack"},
    {"administration", "only the side menu of the administration goes by these rights",
     "roleGlobal_",
     "editDeviceManagement editPlaybackManagement editPresetManagement editRoleManagement "
     "editScheduleManagement editServerManagement editUserManagement editZoneManagement"},
    {"users", "only the page of users says whose role it is", "role_", "exclude include"},
    {"roles", "only the page of roles shows rights", "role_",
     "blockPlaylist blockZone cleanPlaylists cleanPresets cleanTasks cleanZones "
     "editDeviceManagement editMicrophone editMicrophoneAlarm editPlaybackManagement "
     "editPresetManagement editRoleManagement editScheduleManagement editServerManagement "
     "editUserManagement editZoneManagement reloadPermissions select selectPlaylist selectPreset "
     "selectTask selectZone unblockPlaylists unblockZones"},
    {"sound settings", "each page of the settings shows its own", "settings_",
     "addMediaInput addMediaOutput mediaInputSelect mediaOutputSelect"},
    {"log settings", "each page of the settings shows its own", "settings_log_",
     "access_error alarm_broadcasting client_settings connect device_control device_settings "
     "memory_play microphone_broadcasting playback playlist_settings preset_settings preset_start "
     "role_settings server_log_settings server_settings task_settings user_settings zone_settings"},
};

QString subjectOf(const QString& function)
{
    return function.section('_', 0, 1);
}

bool mustHear(const PageRow& page, const QString& function)
{
    for (const Exception& exception : exceptions) {
        const QString begin = QStringLiteral("wrapperInput_") + exception.subject;
        if (function.startsWith(begin) &&
            QString(exception.names).split(' ').contains(function.mid(begin.size()))) {
            const QString pages = QString::fromLatin1(exception.pages);
            if (pages == "administration") {
                return PageLooks::isAdministration(page);
            }
            return pages.mid(pages.startsWith('!')).split('|').contains(page.name) !=
                   pages.startsWith('!');
        }
    }
    return true;
}

} // namespace

/// The pages beside each other: whatever was on show before, a page looks and answers as if it had
/// been the first.
class PagesTest : public PageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pageIsTheSameAfterAnyOther_data();
    void pageIsTheSameAfterAnyOther();
    void pagesHearWhatConcernsThem();
    void nameIsDeclaredOnceInARegion();

private:
    void fillMirror();
    void open(const PageRow& page) { PageLooks::open(console(), page); }
    bool hasSettled() { return PageLooks::hasSettled(console()); }
    QStringList looks(const PageRow& page) { return PageLooks::looks(console(), page); }
    QJsonObject declared() const;
};

void PagesTest::initTestCase()
{
    openPage("loadHomePage()", "$('#selected_devices').length > 0", Slots::Real,
             [this] { fillMirror(); });
}

void PagesTest::fillMirror()
{
    const auto add = [](auto& list, auto entry, auto fill) {
        fill(*entry);
        list.append(std::move(entry));
    };
    for (int id = 2; id <= 3; ++id) {
        add(Data::zoneList, std::make_unique<Zone>(), [id](Zone& zone) {
            zone.setId(id);
            zone.setName(QStringLiteral("Зона %1").arg(id));
        });
    }
    for (int id = 1; id <= 4; ++id) {
        add(Data::deviceList, std::make_unique<Device>(), [id](Device& device) {
            device.setId(id);
            device.setName(QStringLiteral("Громкоговоритель %1").arg(id));
            device.setStatus(id < 4 ? DeviceOnline : DeviceOffline);
            device.includeToZone(2 + id % 2);
        });
    }
}

void PagesTest::pageIsTheSameAfterAnyOther_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    const auto add = [](int first, int second) {
        QTest::addRow("%s, then %s", pageRows[first].name, pageRows[second].name)
            << first << second;
    };
    // Where one row ends the next begins.
    constexpr int pageCount = std::size(pageRows);
    for (int page = 0; page < pageCount; ++page) {
        add(page, page);
        for (int other = page + 1; other < pageCount; ++other) {
            add(page, other);
            add(other, page);
        }
    }
}

void PagesTest::pageIsTheSameAfterAnyOther()
{
    QFETCH(int, first);
    QFETCH(int, second);
    static QMap<int, QStringList> fresh;
    static int shown = -1;
    const PageRow& page = pageRows[second];
    if (!fresh.contains(second)) {
        QVERIFY(console().showSession([this] { fillMirror(); }));
        open(page);
        QVERIFY(hasSettled());
        fresh[second] = looks(page);
        QVERIFY(fresh[second].size() > 10);
        shown = -1;
    }
    if (std::exchange(shown, second) != first) {
        open(pageRows[first]);
        QVERIFY(hasSettled());
    }
    open(page);
    QVERIFY(hasSettled());
    QCOMPARE(looks(page), fresh[second]);
    // In a hurry: the first is left while it is still on its way.
    open(pageRows[first]);
    open(page);
    QVERIFY(hasSettled());
    QCOMPARE(looks(page), fresh[second]);
}

/// The regions and numbers of arguments of what the page on show answers to.
QJsonObject PagesTest::declared() const
{
    return QJsonDocument::fromJson(text("JSON.stringify(regions.declared())").toUtf8()).object();
}

/// A page that shows something of a subject, such as units, hears all that native code tells of it,
/// but for the exceptions, and takes no more arguments than it gets.
void PagesTest::pagesHearWhatConcernsThem()
{
    const QMap<QString, int> calls = SourceScan::nativeCalls(
        SourceScan::readTree(QStringLiteral(SOURCE_FOLDER), {"*.cpp", "*.h"}));
    QStringList faults;
    for (const PageRow& page : pageRows) {
        open(page);
        QVERIFY(hasSettled());
        const QJsonObject functions = declared();
        QSet<QString> subjects;
        for (auto function = functions.begin(); function != functions.end(); ++function) {
            subjects.insert(subjectOf(function.key()));
            const QVariantMap counts = function.value().toObject().toVariantMap();
            const int given = calls.value(function.key(), -1);
            for (const QVariant& taken : counts) {
                if (given >= 0 && taken.toInt() > given) {
                    faults.append(function.key() + " takes more arguments than it gets");
                }
            }
        }
        for (auto call = calls.begin(); call != calls.end(); ++call) {
            const bool concerns =
                call.key().startsWith("wrapperInput_") && subjects.contains(subjectOf(call.key()));
            const bool isHeard = functions.contains(call.key());
            if (concerns && isHeard != mustHear(page, call.key())) {
                faults.append(QStringLiteral("%1: %2 is%3 heard")
                                  .arg(page.name, call.key(), isHeard ? "" : "n't"));
            }
        }
    }
    std::sort(faults.begin(), faults.end());
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
}

void PagesTest::nameIsDeclaredOnceInARegion()
{
    QVERIFY(!is("(function () { try { page({block: $.noop}); page({block: $.noop}); return true; } "
                "catch (error) { return false; } })()"));
}

VANTORDESK_PAGE_TEST(PagesTest)
#include "pages_test.moc"
