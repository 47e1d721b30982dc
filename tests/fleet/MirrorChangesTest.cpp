#include "fleet/Fleet.h"

#include <QTest>

#include <functional>

/// What changes behind the back of an open page: it has to show what it would if it were opened
/// afresh.
class MirrorChangesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void vanishedMembershipLeavesThePage();
    void bareUnitIsReadLikeANewOne();
    void unitsThatComeTogetherNeedOneList();
    void unitThatTheListDoesNotTellEndsTheAsking();
    void reloadLeavesTheRowsOfAnotherUnit_data();
    void reloadLeavesTheRowsOfAnotherUnit();
    void emptyingEndsWithoutProgress();
    void refusedControlGoesBack_data();
    void refusedControlGoesBack();
    void operatorHearsOfRefusals_data();
    void operatorHearsOfRefusals();
};

namespace
{

void listZones(const char* devices)
{
    Fleet::answer(ZoneCommand::List, "{}",
                  QByteArray(R"({"zones": [{"id": 1}, {"id": 7}], "devices": )")
                      .append(devices)
                      .append("}")
                      .constData());
}

void includePush(int deviceId)
{
    Fleet::push(QJsonObject{{"request", "zone"},
                            {"action", "includeDevice"},
                            {"order", 1},
                            {"zoneId", 7},
                            {"deviceId", deviceId}});
}

void listUnits(const QVector<int>& ids)
{
    QJsonArray units;
    for (const int id : ids) {
        units.append(QJsonObject{{"id", id},
                                 {"title", "hall"},
                                 {"volume", 40},
                                 {"link", "bidirectional"},
                                 {"playback", "none"}});
    }
    Fleet::answer(DeviceCommand::GetDevices, QJsonObject(), QJsonObject{{"devices", units}});
}

const QStringList memory{"getMemoryStamp", "getAvailableMemory", "listMessages", "listScenarios"};

using Answer = std::function<void(const QString& word)>;

template <class Command> Answer answered(Command command, const char* asked)
{
    return [=](const QString& word) {
        Fleet::answer(command, Fleet::json(asked), QJsonObject{{"response", word}});
    };
}

} // namespace

Q_DECLARE_METATYPE(Answer)

void MirrorChangesTest::vanishedMembershipLeavesThePage()
{
    SessionFixture session;
    Fleet::addEverything();
    Fleet::addZone(1, "root");
    Fleet::addZone(7, "hall");
    Fleet::addDevice(5);
    Fleet::addDevice(6);
    listZones(R"([{"id": 5, "parentId": 7}, {"id": 6, "parentId": 7}])");
    session.page.take();
    listZones(R"([{"id": 5, "parentId": 1}, {"id": 6, "parentId": 7}])");
    QCOMPARE(session.page.calls().filter("cludeDevice"), Fleet::lines(R"(
        wrapperInput_zone_excludeDevice(7,5);
        wrapperInput_zone_includeDevice(1,5);
        wrapperInput_zone_includeDevice(7,6);)"));
}

void MirrorChangesTest::bareUnitIsReadLikeANewOne()
{
    const SessionFixture session;
    Fleet::addZone(7, "hall");
    listZones(R"([{"id": 5, "parentId": 7}])");
    QCOMPARE(Fleet::takeActions(), QStringList{"getDevices"});
    listUnits({5});
    const QStringList asked =
        QStringList{"getState"} + memory + QStringList{"getEqualizer", "getConfig"};
    QCOMPARE(Fleet::takeActions(), asked);
    listUnits({5});
    QCOMPARE(Fleet::takeActions(), QStringList());
    QCOMPARE(Data::getDeviceById(5)->getStatus(), DeviceOnline);
}

void MirrorChangesTest::unitsThatComeTogetherNeedOneList()
{
    const SessionFixture session;
    Fleet::addZone(7, "hall");
    includePush(5);
    QCOMPARE(Fleet::takeActions().last(), "getDevices");
    includePush(6);
    QCOMPARE(Fleet::takeActions().last(), "getState");
    listUnits({5}); // of the moment before 6 came
    QCOMPARE(Fleet::takeActions(), memory + QStringList{"getDevices"});
    listUnits({5, 6});
    QCOMPARE(Fleet::takeActions(), memory);
}

void MirrorChangesTest::unitThatTheListDoesNotTellEndsTheAsking()
{
    const SessionFixture session;
    Fleet::addZone(7, "hall");
    includePush(5);
    Fleet::takeActions();
    listUnits({});
    QCOMPARE(Fleet::takeActions(), QStringList());
    includePush(6);
    QCOMPARE(Fleet::takeActions().last(), "getDevices");
}

void MirrorChangesTest::reloadLeavesTheRowsOfAnotherUnit_data()
{
    QTest::addColumn<int>("shown");
    QTest::addColumn<bool>("cleans");
    QTest::newRow("no page of a unit") << 0 << true;
    QTest::newRow("its own page") << 5 << true;
    QTest::newRow("the page of another") << 6 << false;
}

void MirrorChangesTest::reloadLeavesTheRowsOfAnotherUnit()
{
    QFETCH(int, shown);
    SessionFixture session;
    Fleet::addDevice(5);
    Data::shownDeviceId = shown;
    Fleet::push(R"({"request": "device", "action": "reloadChanges", "order": 1, "id": 5})");
    QVERIFY(session.page.calls().contains("deviceInfo_cleanScenarioListByDevice(5);"));
    QTEST(session.page.calls().contains("deviceInfo_cleanScenarioList();"), "cleans");
}

void MirrorChangesTest::emptyingEndsWithoutProgress()
{
    const SessionFixture session;
    Fleet::addZone(1, "root").getDeviceList() = {5, 6};
    Zone& zone = Fleet::addZone(9, "hall");
    zone.getDeviceList() = {5, 6};
    // How many units are asked to leave after each answer that there are units: two rounds, of
    // which the second moves nobody, and one that the operator begins.
    const auto ask = [](const char* word = "nestedDevices") {
        Fleet::answer(ZoneCommand::Delete, QJsonObject{{"id", 9}}, QJsonObject{{"response", word}});
        return Fleet::takeActions().count("excludeDevice");
    };
    QCOMPARE(ask(), 2);
    zone.excludeDevice(5);
    QCOMPARE(ask(), 0);
    QCOMPARE(ask(), 1);
    QCOMPARE(ask(), 0);
    QCOMPARE(ask(), 1);
    QCOMPARE(ask("busyPlaying"), 0);
    QCOMPARE(ask(), 1);
}

void MirrorChangesTest::refusedControlGoesBack_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QString>("shown");
    QTest::newRow("volume") << answered(DeviceCommand::SetVolume, R"({"id": 5, "volume": 90})")
                            << "wrapperInput_device_setVolume(5,30);";
    QTest::newRow("equaliser") << answered(DeviceCommand::SetEqualizer,
                                           R"({"id": 5, "enabled": true, "levels": [1]})")
                               << "wrapperInput_device_setEqualizer(5,0,4);";
    QTest::newRow("zone ticked") << answered(ZoneCommand::IncludeDevice,
                                             R"({"zoneId": 9, "deviceId": 5})")
                                 << "wrapperInput_zone_excludeDevice(9,5);";
    QTest::newRow("zone unticked")
        << answered(ZoneCommand::ExcludeDevice, R"({"zoneId": 7, "deviceId": 5})")
        << "wrapperInput_zone_includeDevice(7,5);";
}

void MirrorChangesTest::refusedControlGoesBack()
{
    QFETCH(Answer, answer);
    QFETCH(QString, shown);
    SessionFixture session;
    Device& device = Fleet::addDevice(5);
    device.setVolume(30);
    device.setEqualizer(0, 4);
    device.includeToZone(7);
    Fleet::addZone(7, "hall").includeDevice(5);
    Fleet::addZone(9, "yard");
    session.page.take();
    answer("forbidden");
    QVERIFY2(session.page.calls().contains(shown), qPrintable(session.page.calls().join('\n')));
    QCOMPARE(session.page.calls().last(), "modalForbiddenShow();");
    QCOMPARE(device.getVolume(), 30);
    QCOMPARE(device.getZoneList(), QVector<int>{7});
}

void MirrorChangesTest::operatorHearsOfRefusals_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("told");
    const auto row = [](const char* name, const Answer& answer, const char* word, bool told) {
        QTest::newRow(name) << answer << QString(word) << told;
    };
    row("an operator's click", answered(PlaybackCommand::Pause, "{}"), "forbidden", true);
    row("another word", answered(PlaybackCommand::Pause, "{}"), "error", false);
    row("what the console reads", answered(ZoneCommand::List, "{}"), "forbidden", false);
    row("a check", answered(HelperCommand::CheckServerUpdate, "{}"), "forbidden", false);
    row("a password", answered(UserCommand::CheckAccess, R"({"target": "login"})"), "forbidden",
        false);
    row("a dialog of its own", answered(RoleCommand::SetServer, R"({"role": "x"})"), "forbidden",
        false);
}

void MirrorChangesTest::operatorHearsOfRefusals()
{
    QFETCH(Answer, answer);
    QFETCH(QString, word);
    SessionFixture session;
    answer(word);
    QTEST(session.page.calls().contains("modalForbiddenShow();"), "told");
}

QTEST_GUILESS_MAIN(MirrorChangesTest)
#include "MirrorChangesTest.moc"
