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
#include "page/SourceScan.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{

/// A page of the session: how it is opened, and which regions that loads.
struct PageRow {
    const char* name;
    const char* open;
    const char* regions;
};

constexpr PageRow pageRows[] = {
    {"home", "loadHomePage()", "#top_menu #side_menu #main #bot_menu"},
    {"unit", "wrapperLoadDeviceInfo(1)", "#top_menu #side_menu #main #bot_menu #modal"},
    {"playbacks",
     "loadSideMenu('playback'); loadMainBody('playback_list'); loadBotMenu('playback_list'); "
     "loadModal('playlist')",
     "#side_menu #main #bot_menu #modal"},
    {"new playback", "openNewPlayback()", "#side_menu #main #bot_menu #modal"},
    {"microphone",
     "loadSideMenu('alarm_zone_list'); loadMainBody('microphone'); loadBotMenu('microphone'); "
     "loadModal('microphone')",
     "#side_menu #main #bot_menu #modal"},
    {"alarm messages",
     "loadSideMenu('alarm_zone_list'); loadTopMenu('alarm_list'); loadMainBody('alarm_list'); "
     "loadBotMenu('alarm_messages_list'); loadModal('alarm')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"alarm broadcast",
     "loadSideMenu('alarm_zone_list'); loadTopMenu('translation'); loadMainBody('translation'); "
     "loadBotMenu('translation'); loadModal('translation')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"users",
     "loadSideMenu('admin'); loadTopMenu('admin/index'); loadModal('admin/users'); "
     "loadBotMenu('admin/users'); loadMainBody('admin/users')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"lock settings",
     "loadSideMenu('settings'); loadTopMenu('settings'); loadMainBody('settings/block'); "
     "loadBotMenu('settings/block'); loadModal('settings')",
     "#top_menu #side_menu #main #bot_menu #modal"},
    {"sound settings",
     "loadSideMenu('settings'); loadTopMenu('settings'); loadMainBody('settings/media'); "
     "loadBotMenu('settings/media'); loadModal('settings')",
     "#top_menu #side_menu #main #bot_menu #modal"},
};

/// What native code tells of a subject, but not every page that shows something of it shows.
const QMap<QString, QString> notOnEveryPage = {};

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
    void pageHearsWhatConcernsIt_data();
    void pageHearsWhatConcernsIt();
    void nameIsDeclaredOnceInARegion();

private:
    void fillMirror();
    void open(const PageRow& page);
    bool hasSettled() const;
    QStringList looks(const PageRow& page) const;
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

void PagesTest::open(const PageRow& page)
{
    run(QStringLiteral("$('%1').append('<i class=\"was_before\">'); %2")
            .arg(QString::fromLatin1(page.regions).replace(' ', ','), QLatin1String(page.open)));
}

bool PagesTest::hasSettled() const
{
    return console().waitFor("$.active === 0 && $('.was_before').length === 0");
}

/// What the regions of a page show and answer to, without the numbers that libraries make up.
QStringList PagesTest::looks(const PageRow& page) const
{
    const QString script = QStringLiteral(
        "(function (names) {"
        "  var lines = [];"
        "  names.forEach(function (name) {"
        "    $(name).find('*').not('script').each(function () {"
        "      lines.push([name, this.tagName, this.id, this.className, this.title, this.value,"
        "                  this.checked, this.disabled, this.style.cssText, $(this).is(':visible'),"
        "                  this.children.length ? '' : this.textContent.trim()].join());"
        "    });"
        "  });"
        "  var declared = regions.declared();"
        "  Object.keys(declared).sort().forEach(function (name) {"
        "    names.forEach(function (region) {"
        "      if (region in declared[name]) {"
        "        lines.push(region + ' ' + name + '/' + declared[name][region]);"
        "      }"
        "    });"
        "  });"
        "  lines.push($('head style').text());"
        "  return lines.join('\\n').replace(/select2-\\w+-(\\w{2}|\\w{4})\\b/g, 'select2');"
        "})('%1'.split(' '))");
    return text(script.arg(QLatin1String(page.regions))).split('\n');
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

void PagesTest::pageHearsWhatConcernsIt_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t row = 0; row < std::size(pageRows); ++row) {
        QTest::newRow(pageRows[row].name) << static_cast<int>(row);
    }
}

/// A page that shows something of a subject, such as units, hears all that native code tells of it,
/// and takes no more arguments than it gets.
void PagesTest::pageHearsWhatConcernsIt()
{
    QFETCH(int, row);
    const PageRow& page = pageRows[row];
    open(page);
    QVERIFY(hasSettled());
    const QByteArray json = text("JSON.stringify(regions.declared())").toUtf8();
    const QJsonObject declared = QJsonDocument::fromJson(json).object();
    const QMap<QString, int> calls = SourceScan::nativeCalls(
        SourceScan::readTree(QStringLiteral(SOURCE_FOLDER), {"*.cpp", "*.h"}));
    QSet<QString> subjects;
    QStringList faults;
    for (auto name = declared.begin(); name != declared.end(); ++name) {
        subjects.insert(name.key().section('_', 0, 1));
        const QJsonObject regions = name.value().toObject();
        for (auto region = regions.begin(); region != regions.end(); ++region) {
            const int given = calls.value(name.key(), -1);
            if (given >= 0 && region.value().toInt() > given) {
                faults.append(name.key() + " takes more arguments than it gets");
            }
        }
    }
    for (auto call = calls.begin(); call != calls.end(); ++call) {
        if (call.key().startsWith("wrapperInput_") &&
            subjects.contains(call.key().section('_', 0, 1)) && !declared.contains(call.key()) &&
            !notOnEveryPage.contains(call.key())) {
            faults.append(call.key() + " isn't heard");
        }
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
}

void PagesTest::nameIsDeclaredOnceInARegion()
{
    QVERIFY(!is("(function () { try { page({block: $.noop}); page({block: $.noop}); return true; } "
                "catch (error) { return false; } })()"));
}

VANTORDESK_PAGE_TEST(PagesTest)
#include "pages_test.moc"
