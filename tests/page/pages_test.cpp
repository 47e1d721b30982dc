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

namespace
{

/// What native code tells of a subject, but not every page that shows something of it shows.
struct Exception {
    /// Those that do hear it, with "|" between; none where the page is to come. Behind a "!" those
    /// that don't. "administration" are the pages of that section.
    const char* pages;
    const char* reason;
    QStringList names;
};

const QVector<Exception> exceptions = {
    {"",
     "the pages of administration that show a unit's settings and memory are to come",
     {"wrapperInput_device_addMessage",
      "wrapperInput_device_deleteMessage",
      "wrapperInput_device_setAllowedCommandIp",
      "wrapperInput_device_setAvailableMemory",
      "wrapperInput_device_setCommandPort",
      "wrapperInput_device_setDHCP",
      "wrapperInput_device_setGateway",
      "wrapperInput_device_setIp",
      "wrapperInput_device_setLineJoined",
      "wrapperInput_device_setMac",
      "wrapperInput_device_setMessageId",
      "wrapperInput_device_setMulticastAIN0",
      "wrapperInput_device_setMulticastAIN1",
      "wrapperInput_device_setMulticastIp",
      "wrapperInput_device_setMulticastListen",
      "wrapperInput_device_setNetworkMask",
      "wrapperInput_device_setPriorityAIN0",
      "wrapperInput_device_setPriorityAIN1",
      "wrapperInput_device_setPriorityListen",
      "wrapperInput_device_setPriorityScenario",
      "wrapperInput_device_setPriorityStream",
      "wrapperInput_device_setTavrinAddress",
      "wrapperInput_device_setTavrinErrorIndication",
      "wrapperInput_device_setTavrinRelayControl",
      "wrapperInput_device_setTavrinRelayEvent"}},
    {"unit",
     "only the page of one unit shows it",
     {"wrapperInput_device_addScenario", "wrapperInput_device_deleteScenario",
      "wrapperInput_device_setEqualizer", "wrapperInput_device_setEqualizerEnabled",
      "wrapperInput_device_setId", "wrapperInput_device_setPlaybackInfo",
      "wrapperInput_device_setScenarioId", "wrapperInput_device_setVersion"}},
    {"home", "the page of one unit says it by the level", {"wrapperInput_device_setBattery"}},
    {"home|unit",
     "the cards of the other pages leave the health out",
     {"wrapperInput_device_setBatteryLevel", "wrapperInput_device_setHull",
      "wrapperInput_device_setLinesStatus", "wrapperInput_device_setPower"}},
    {"home|playbacks|new playback|microphone|alarm messages|alarm broadcast",
     "the list beside a unit stays as it was built",
     {"wrapperInput_device_setPlayback", "wrapperInput_device_setPlaybackCategory"}},
    {"playbacks",
     "only the page of the running playbacks shows them",
     {"wrapperInput_playback_add", "wrapperInput_playback_setCurrentTrack",
      "wrapperInput_playback_setPlaying", "wrapperInput_playback_setTimeshift",
      "wrapperInput_playback_stop"}},
    {"microphone", "only its dialog has the slider", {"wrapperInput_playback_setMicrophoneVolume"}},
    {"playbacks|new playback|alarm messages|alarm broadcast|library",
     "pages without tracks",
     {"wrapperInput_playback_addItem", "wrapperInput_playback_deleteTrack",
      "wrapperInput_playback_setTrackName"}},
    {"playbacks|new playback|alarm messages|library",
     "pages without folders",
     {"wrapperInput_playback_clearItems", "wrapperInput_playback_setPlaylistDuration",
      "wrapperInput_playback_setPlaylistName", "wrapperInput_playback_setTrackDuration"}},
    {"new playback|alarm messages|library",
     "the tracks of a playback's folder go one by one",
     {"wrapperInput_playback_deletePlaylist"}},
    {"administration",
     "only the side menu of the administration goes by these rights",
     {"wrapperInput_roleGlobal_editDeviceManagement",
      "wrapperInput_roleGlobal_editPlaybackManagement",
      "wrapperInput_roleGlobal_editPresetManagement", "wrapperInput_roleGlobal_editRoleManagement",
      "wrapperInput_roleGlobal_editScheduleManagement",
      "wrapperInput_roleGlobal_editServerManagement", "wrapperInput_roleGlobal_editUserManagement",
      "wrapperInput_roleGlobal_editZoneManagement"}},
    {"library",
     "only the page of the library uploads",
     {"wrapperInput_playback_addLoadingTrack", "wrapperInput_playback_currentAddedTrack",
      "wrapperInput_playback_endLoadingTrack", "wrapperInput_playback_errorLoadingTrack",
      "wrapperInput_playback_setLoadingTrack"}},
    {"unit settings",
     "only the form of a unit asks for it",
     {"wrapperInput_device_debugInfo", "wrapperInput_device_hideDebugInfo"}},
    {"zones",
     "only the administration of zones asks for it",
     {"wrapperInput_zone_modalAdd", "wrapperInput_zone_select"}},
    {"",
     "the page of roles is to come",
     {"wrapperInput_role_cleanPlaylists",
      "wrapperInput_role_cleanPresets",
      "wrapperInput_role_cleanTasks",
      "wrapperInput_role_cleanZones",
      "wrapperInput_role_editDeviceManagement",
      "wrapperInput_role_editMicrophone",
      "wrapperInput_role_editMicrophoneAlarm",
      "wrapperInput_role_editPlaybackManagement",
      "wrapperInput_role_editPresetManagement",
      "wrapperInput_role_editRoleManagement",
      "wrapperInput_role_editScheduleManagement",
      "wrapperInput_role_editServerManagement",
      "wrapperInput_role_editUserManagement",
      "wrapperInput_role_editZoneManagement",
      "wrapperInput_role_reloadPermissions",
      "wrapperInput_role_select",
      "wrapperInput_role_selectPlaylist",
      "wrapperInput_role_selectPreset",
      "wrapperInput_role_selectTask",
      "wrapperInput_role_selectZone"}},
};

QString subjectOf(const QString& function)
{
    return function.section('_', 0, 1);
}

bool mustHear(const PageRow& page, const QString& function)
{
    for (const Exception& exception : exceptions) {
        if (exception.names.contains(function)) {
            const QString pages = QString::fromLatin1(exception.pages);
            if (pages == "administration") {
                return QByteArray(page.open).contains("loadSideMenu('admin')");
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
    for (std::size_t second = 0; second < std::size(pageRows); ++second) {
        for (std::size_t first = 0; first < std::size(pageRows); ++first) {
            QTest::addRow("%s, then %s", pageRows[first].name, pageRows[second].name)
                << static_cast<int>(first) << static_cast<int>(second);
        }
    }
}

void PagesTest::pageIsTheSameAfterAnyOther()
{
    QFETCH(int, first);
    QFETCH(int, second);
    static QMap<int, QStringList> fresh;
    const PageRow& page = pageRows[second];
    if (!fresh.contains(second)) {
        QVERIFY(console().showSession([this] { fillMirror(); }));
        open(page);
        QVERIFY(hasSettled());
        fresh[second] = looks(page);
        QVERIFY(fresh[second].size() > 10);
    }
    open(pageRows[first]);
    QVERIFY(hasSettled());
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
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n').left(800)));
}

void PagesTest::nameIsDeclaredOnceInARegion()
{
    QVERIFY(!is("(function () { try { page({block: $.noop}); page({block: $.noop}); return true; } "
                "catch (error) { return false; } })()"));
}

VANTORDESK_PAGE_TEST(PagesTest)
#include "pages_test.moc"
