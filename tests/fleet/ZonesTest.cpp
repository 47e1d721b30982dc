#include "fleet/Fleet.h"

#include "model/Role.h"
#include "protocol/ZoneList.h"

#include <QTest>

/// The tree of zones and who is in which.
class ZonesTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void unknownParentIsEverything();
    void renamingTellsThePage();
    void firstListBuildsTree();
    void childBeforeItsParentIsPlaced();
    void equalListEdits();
    void shorterListRemoves();
    void emptyListOfNoZones();
    void cycleEnds();
    void deepTreeEnds();
    void membershipIsRebuilt();
    void missingUnitsGoAndUnknownOnesCome();
    void refusedListChangesNothing();
    void addedZoneIsShown();
    void editedZone();
    void deletedZoneLeavesTheRoles();
    void zoneWithUnitsIsEmptied();
    void zoneOfAUnitElsewhereIsEmptied();
    void refusedDeletionSaysWhy_data();
    void refusedDeletionSaysWhy();
    void inclusionReplies_data();
    void inclusionReplies();
    void exclusionReplies_data();
    void exclusionReplies();
    void deletedUnitLeavesEverything();
    void includePush();
    void includePushMakesAUnit();
    void excludePush_data();
    void excludePush();
};

namespace
{

QString tree()
{
    QStringList result;
    for (const Zone& zone : Data::zoneList) {
        result.append(QStringLiteral("%1:%2/%3/%4")
                          .arg(zone.getId())
                          .arg(zone.getName())
                          .arg(zone.getParentZone())
                          .arg(zone.getType()));
    }
    return result.join(QLatin1Char(' '));
}

void list(const char* reply)
{
    Fleet::answer(ZoneCommand::List, "{}", reply);
}

void buildTwoZones()
{
    list(R"({"zones": [{"id": 1, "title": "root", "type": "physical", "parentId": 0},
        {"id": 7, "title": "hall", "type": "logic", "parentId": 1}], "devices": []})");
}

} // namespace

void ZonesTest::unknownParentIsEverything()
{
    const SessionFixture session;
    Zone& zone = Fleet::addZone(7, "hall", 3);
    QCOMPARE(zone.getParentZone(), 0);
    QCOMPARE(zone.getParentName(), QStringLiteral("Все зоны"));
    Fleet::addZone(3, "wing");
    QCOMPARE(zone.getParentZone(), 3);
    QCOMPARE(zone.getParentName(), QStringLiteral("wing"));
}

void ZonesTest::renamingTellsThePage()
{
    SessionFixture session;
    Fleet::addZone(3, "wing");
    Zone& zone = Fleet::addZone(7, "hall", 3);
    session.page.take();
    zone.setName("hall");
    zone.setName("yard");
    QCOMPARE(session.page.calls(), Fleet::lines(R"(wrapperInput_zone_setName(7,"yard","wing");)"));
}

void ZonesTest::firstListBuildsTree()
{
    SessionFixture session;
    Fleet::addEverything();
    Fleet::beZoneManager();
    session.page.take();
    buildTwoZones();
    QCOMPARE(tree(), QStringLiteral("0:Все зоны/0/0 1:root/0/0 7:hall/1/1"));
    QCOMPARE(Data::getZoneById(1)->getSubZoneList(), QVector<int>{7});
    QCOMPARE(session.page.calls().filter(QRegularExpression("zone_add|role")), Fleet::lines(R"(
        wrapperInput_zone_add(1,0,"root","Все зоны",0);
        wrapperInput_zone_add(7,1,"hall","root",1);
        wrapperInput_roleGlobal_editZoneManagement(0,"keeper",1);)"));
    QVERIFY(session.log.contains(QStringLiteral("Founded new zone")));
}

/// The page drops a zone whose parent it hasn't, so the order on the page is what counts.
void ZonesTest::childBeforeItsParentIsPlaced()
{
    SessionFixture session;
    Fleet::addEverything();
    session.page.take();
    list(R"({"zones": [{"id": 7, "title": "hall", "type": "logic", "parentId": 3},
        {"id": 8, "title": "lost", "type": "logic", "parentId": 44},
        {"id": 3, "title": "wing", "type": "physical", "parentId": 0}], "devices": []})");
    QCOMPARE(session.page.calls().filter("zone_add"), Fleet::lines(R"(
        wrapperInput_zone_add(7,3,"hall","Все зоны",1);
        wrapperInput_zone_add(8,44,"lost","Все зоны",1);
        wrapperInput_zone_add(3,0,"wing","Все зоны",0);
        wrapperInput_zone_add(7,3,"hall","wing",1);
        wrapperInput_zone_add(8,0,"lost","Все зоны",1);)"));
}

void ZonesTest::equalListEdits()
{
    SessionFixture session;
    Fleet::addEverything();
    buildTwoZones();
    list(R"({"zones": [{"id": 1, "title": "root", "type": "physical", "parentId": 0},
        {"id": 7, "title": "yard", "type": "cloud", "parentId": "1"}], "devices": []})");
    QCOMPARE(tree(), QStringLiteral("0:Все зоны/0/0 1:root/0/0 7:yard/1/1"));
    buildTwoZones();
    QCOMPARE(Data::getZoneById(1)->getSubZoneList(), QVector<int>{7});
    QVERIFY(session.log.contains(QStringLiteral("Founded zone edit")));
}

void ZonesTest::shorterListRemoves()
{
    SessionFixture session;
    Fleet::addEverything();
    buildTwoZones();
    session.page.take();
    list(R"({"zones": [{"id": 1, "title": "new name", "type": "physical", "parentId": 0}],
        "devices": []})");
    QCOMPARE(tree(), QStringLiteral("0:Все зоны/0/0 1:root/0/0"));
    QCOMPARE(session.page.calls(), Fleet::lines("wrapperInput_zone_delete(7);"));
    QVERIFY(session.log.contains(QStringLiteral("Deleted zone: 7")));
}

void ZonesTest::emptyListOfNoZones()
{
    const SessionFixture session;
    Fleet::addEverything();
    Fleet::addDevice(5);
    list(R"({"zones": [], "devices": [{"id": 5, "parentId": 0}]})");
    QCOMPARE(tree(), QStringLiteral("0:Все зоны/0/0"));
    QCOMPARE(Data::getDeviceById(5)->getZoneList(), QVector<int>{0});
}

void ZonesTest::cycleEnds()
{
    const SessionFixture session;
    Fleet::addEverything();
    list(R"({"zones": [{"id": 2, "title": "a", "type": "logic", "parentId": 3},
        {"id": 3, "title": "b", "type": "logic", "parentId": 4},
        {"id": 4, "title": "c", "type": "logic", "parentId": 2},
        {"id": 5, "title": "d", "type": "logic", "parentId": 5}], "devices": []})");
    QCOMPARE(Data::zoneList.size(), 5);
    QCOMPARE(Data::getZoneById(2)->getSubZoneList(), QVector<int>{4});
    QCOMPARE(Data::getZoneById(5)->getSubZoneList(), QVector<int>{});
}

void ZonesTest::deepTreeEnds()
{
    const SessionFixture session;
    constexpr int depth = 20000;
    QJsonArray zones;
    for (int id = 1; id <= depth; ++id) {
        zones.append(
            QJsonObject{{"id", id}, {"title", "z"}, {"type", "logic"}, {"parentId", id - 1}});
    }
    Zone& top = Fleet::addZone(1, "z");
    zoneParseChilds(&top, {{"zones", zones}});
    QCOMPARE(Data::zoneList.size(), depth);
    QCOMPARE(Data::getZoneById(depth)->getParentZone(), depth - 1);
}

void ZonesTest::membershipIsRebuilt()
{
    SessionFixture session;
    Fleet::addEverything();
    buildTwoZones();
    Fleet::addDevice(5).includeToZone(33);
    Fleet::addDevice(6);
    Data::getZoneById(7)->includeDevice(5);
    session.page.take();
    list(R"({"zones": [{"id": 1}, {"id": 7}], "devices": [{"id": 5, "parentId": 1},
        {"id": 6, "parentId": 7}, {"id": 6, "parentId": 44}, {"id": "6", "parentId": 1}, 3]})");
    QCOMPARE(Data::getDeviceById(5)->getZoneList(), QVector<int>{1});
    QCOMPARE(Data::getDeviceById(6)->getZoneList(), QVector<int>{7});
    QCOMPARE(Data::getZoneById(7)->getDeviceList(), QVector<int>{6});
    QCOMPARE(session.page.calls().filter("include"),
             Fleet::lines("wrapperInput_zone_includeDevice(1,5);\n"
                          "wrapperInput_zone_includeDevice(7,6);"));
    QCOMPARE(Fleet::takeRequests(), QStringList());
}

void ZonesTest::missingUnitsGoAndUnknownOnesCome()
{
    SessionFixture session;
    Fleet::addEverything();
    buildTwoZones();
    Fleet::addDevice(5);
    Fleet::addDevice(6);
    session.page.take();
    list(R"({"zones": [{"id": 1}, {"id": 7}], "devices": [{"id": 6, "parentId": 1}]})");
    QVERIFY(!Data::getDeviceById(5));
    QVERIFY(session.page.take().contains("wrapperInput_device_delete(5);"));
    QVERIFY(session.log.contains(QStringLiteral("Deleted device: 5")));
    list(R"({"zones": [{"id": 1}, {"id": 7}], "devices": [{"id": 6, "parentId": 1},
        {"id": 8, "parentId": 7}, {"id": 9, "parentId": 7}]})");
    QVERIFY(session.page.calls().contains("wrapperInput_device_add(8,\"\",0,0,0,0);"));
    QCOMPARE(Data::getZoneById(7)->getDeviceList(), (QVector<int>{8, 9}));
    QCOMPARE(Fleet::takeRequests(), QStringList{"device/getDevices"});
}

void ZonesTest::refusedListChangesNothing()
{
    const SessionFixture session;
    Fleet::addEverything();
    buildTwoZones();
    Fleet::addDevice(5);
    list(R"({"response": "forbidden", "zones": [], "devices": []})");
    list(R"({"zones": 5, "devices": {}})");
    QCOMPARE(Data::zoneList.size(), 3);
    QCOMPARE(Data::deviceList.size(), 1);
}

void ZonesTest::addedZoneIsShown()
{
    SessionFixture session;
    Fleet::addEverything();
    Fleet::addZone(1, "root");
    session.page.take();
    for (int times = 0; times < 2; ++times) {
        Fleet::answer(ZoneCommand::Add, R"({"title": "hall", "parentId": 1, "type": "logic"})",
                      R"({"newId": 9})");
    }
    Fleet::answer(ZoneCommand::Add, R"({"title": "yard", "parentId": 1, "type": "logic"})",
                  R"({"newId": 10, "response": "error"})");
    QCOMPARE(tree(), QStringLiteral("0:Все зоны/0/0 1:root/0/0 9:hall/1/1"));
    QCOMPARE(session.page.calls().mid(1),
             Fleet::lines("wrapperInput_zone_add(9,1,\"hall\",\"root\",1);\n"
                          "modalAdminAddZoneHide();"));
}

void ZonesTest::editedZone()
{
    SessionFixture session;
    Fleet::addZone(9, "hall", 0, 1);
    session.page.take();
    Fleet::answer(ZoneCommand::Edit, R"({"id": 9, "title": "yard"})", "{}");
    QCOMPARE(session.page.take(), Fleet::lines(R"(wrapperInput_zone_setName(9,"yard","Все зоны");
        modalAdminZoneSavedShow();)"));
    Fleet::answer(ZoneCommand::Edit, R"({"id": 9, "title": "x"})", R"({"response": "error"})");
    Fleet::answer(ZoneCommand::Edit, R"({"id": 8, "title": "x"})", "{}");
    QCOMPARE(session.page.take(), Fleet::lines("modalAdminZoneErrorShow();"));
    Fleet::answer(ZoneCommand::Edit, R"({"id": 9, "title": "yard", "type": "physical"})", "{}");
    QCOMPARE(tree(), QStringLiteral("9:yard/0/0"));
}

void ZonesTest::deletedZoneLeavesTheRoles()
{
    SessionFixture session;
    Fleet::beZoneManager();
    Data::getCurrentRole()->zones = {8, 9};
    Fleet::addZone(9, "hall");
    session.page.take();
    Fleet::answer(ZoneCommand::Delete, R"({"id": 9})", "{}");
    QCOMPARE(session.page.calls(), Fleet::lines("wrapperInput_zone_delete(9);"));
    QCOMPARE(Data::getCurrentRole()->zones, QVector<int>{8});
    QVERIFY(!Data::getZoneById(9));
}

void ZonesTest::zoneWithUnitsIsEmptied()
{
    const SessionFixture session;
    Fleet::addZone(1, "root");
    Fleet::addZone(9, "hall").getDeviceList() = {5, 6};
    Fleet::answer(ZoneCommand::Delete, R"({"id": 9})", R"({"response": "nestedDevices"})");
    QCOMPARE(Fleet::takeRequests(), Fleet::lines(R"(
        zone/includeDevice {"deviceId":5,"zoneId":1}
        zone/excludeDevice {"deviceId":5,"zoneId":9}
        zone/delete {"id":9}
        zone/includeDevice {"deviceId":6,"zoneId":1}
        zone/excludeDevice {"deviceId":6,"zoneId":9}
        zone/delete {"id":9})"));
    QVERIFY(Data::getZoneById(9));
}

void ZonesTest::zoneOfAUnitElsewhereIsEmptied()
{
    const SessionFixture session;
    Fleet::addZone(4, "wing").includeDevice(5);
    Fleet::addZone(9, "hall").includeDevice(5);
    Fleet::answer(ZoneCommand::Delete, R"({"id": 9})", R"({"response": "nestedDevices"})");
    QCOMPARE(Fleet::takeRequests(), Fleet::lines(R"(
        zone/excludeDevice {"deviceId":5,"zoneId":9}
        zone/delete {"id":9})"));
}

void ZonesTest::refusedDeletionSaysWhy_data()
{
    QTest::addColumn<QStringList>("calls");
    QTest::newRow("nestedZones") << QStringList{"modalAdminZoneDeleteErrorSubZoneShow();"};
    QTest::newRow("includedInPresets") << QStringList{"modalAdminZoneDeleteErrorPresetUsedShow();"};
    QTest::newRow("includedInTasks") << QStringList{"modalAdminZoneDeleteErrorTaskUsedShow();"};
    QTest::newRow("busyPlaying") << QStringList{"modalAdminZoneDeleteErrorPlaybackUsedShow();"};
    QTest::newRow("error") << QStringList();
}

void ZonesTest::refusedDeletionSaysWhy()
{
    SessionFixture session;
    Fleet::addZone(9, "hall");
    session.page.take();
    Fleet::answer(ZoneCommand::Delete, {{"id", 9}}, {{"response", QTest::currentDataTag()}});
    QTEST(session.page.calls(), "calls");
    QVERIFY(Data::getZoneById(9));
}

void ZonesTest::inclusionReplies_data()
{
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<QVector<int>>("zones");
    QTest::newRow("success") << QStringList{"wrapperInput_zone_includeDevice(9,5);"}
                             << QVector<int>{9};
    QTest::newRow("alreadyIncluded") << QStringList() << QVector<int>();
    QTest::newRow("onePhysical") << QStringList{"wrapperInput_zone_excludeDevice(9,5);",
                                                "modalDeviceZoneIncludeError();"}
                                 << QVector<int>();
}

void ZonesTest::inclusionReplies()
{
    SessionFixture session;
    const Device& device = Fleet::addDevice(5);
    const Zone& zone = Fleet::addZone(9, "hall");
    session.page.take();
    Fleet::answer(ZoneCommand::IncludeDevice, {{"zoneId", 9}, {"deviceId", 5}},
                  {{"response", QTest::currentDataTag()}});
    QTEST(session.page.calls(), "calls");
    QTEST(device.getZoneList(), "zones");
    QCOMPARE(zone.getDeviceList().size(), device.getZoneList().size());
}

void ZonesTest::exclusionReplies_data()
{
    QTest::addColumn<QString>("response");
    QTest::addColumn<bool>("recursively");
    QTest::addColumn<QVector<int>>("before");
    QTest::addColumn<QStringList>("calls");
    QTest::addColumn<QVector<int>>("after");
    const QVector<int> both{9, 0};
    const QVector<int> one{9};
    const QString excluded = "wrapperInput_zone_excludeDevice(9,5);";
    const QString excludedFromAll = "wrapperInput_zone_excludeDevice(0,5);";
    const QString included = "wrapperInput_zone_includeDevice(9,5);";
    QTest::newRow("done") << "success" << false << both << QStringList{excluded} << QVector<int>{0};
    QTest::newRow("not in it") << "notIncluded" << false << one << QStringList() << one;
    QTest::newRow("playing") << "hasPlayback" << false << one
                             << QStringList{included, "modalDeviceZoneExcludePlaybackError();"}
                             << one;
    QTest::newRow("in a preset") << "forbiddenDeviceInPreset" << false << one
                                 << QStringList{included, "modalAdminDeviceUsedInPreset();"} << one;
    QTest::newRow("in a task, shown under all")
        << "forbiddenDeviceInTask" << false << both
        << QStringList{excludedFromAll, included, "modalAdminDeviceUsedInTask();"} << both;
    QTest::newRow("deletion, in a preset")
        << "forbiddenDeviceInPreset" << true << one
        << QStringList{"modalAdminDeviceDeleteErrorPreset();"} << one;
    QTest::newRow("deletion, in a task")
        << "forbiddenDeviceInTask" << true << one
        << QStringList{"modalAdminDeviceDeleteErrorTask();"} << one;
}

void ZonesTest::exclusionReplies()
{
    QFETCH(QString, response);
    QFETCH(bool, recursively);
    QFETCH(QVector<int>, before);
    SessionFixture session;
    Device& device = Fleet::addDevice(5);
    device.getZoneList() = before;
    Zone& zone = Fleet::addZone(9, "hall");
    zone.includeDevice(5);
    session.page.take();
    Fleet::answer(ZoneCommand::ExcludeDevice,
                  {{"zoneId", 9}, {"deviceId", 5}, {"recursively", recursively}},
                  {{"response", response}});
    QTEST(session.page.calls(), "calls");
    QTEST(device.getZoneList(), "after");
    QCOMPARE(zone.getDeviceList().isEmpty(), response == "success");
}

void ZonesTest::deletedUnitLeavesEverything()
{
    SessionFixture session;
    Fleet::addDevice(5);
    const Zone& zone = Fleet::addZone(9, "hall");
    Data::getZoneById(9)->includeDevice(5);
    session.page.take();
    Fleet::answer(ZoneCommand::ExcludeDevice,
                  R"({"zoneId": 0, "deviceId": 5, "recursively": true, "force": false})", "{}");
    QVERIFY(!Data::getDeviceById(5));
    QCOMPARE(zone.getDeviceList(), QVector<int>());
    QCOMPARE(session.page.calls(), Fleet::lines("wrapperInput_zone_excludeDevice(0,5);\n"
                                                "wrapperInput_device_delete(5);"));
}

void ZonesTest::includePush()
{
    SessionFixture session;
    const Device& device = Fleet::addDevice(5);
    const Zone& zone = Fleet::addZone(9, "hall");
    session.page.take();
    for (const char* ids : {R"("zoneId": 9, "deviceId": 5)", R"("zoneId": 8, "deviceId": 5)",
                            R"("zoneId": 9, "deviceId": "5")", R"("zoneId": 9)"}) {
        Fleet::push(R"({"request": "zone", "action": "includeDevice", "order": 1, )" +
                    QByteArray(ids) + "}");
    }
    QCOMPARE(device.getZoneList(), QVector<int>{9});
    QCOMPARE(zone.getDeviceList(), QVector<int>{5});
    QCOMPARE(session.page.calls(), Fleet::lines("wrapperInput_zone_includeDevice(9,5);"));
    QCOMPARE(Fleet::takeRequests(), QStringList());
}

void ZonesTest::includePushMakesAUnit()
{
    SessionFixture session;
    Fleet::addZone(9, "hall");
    session.page.take();
    Fleet::push(
        R"({"request": "zone", "action": "includeDevice", "order": 1, "zoneId": 9, "deviceId": 5})");
    QCOMPARE(Data::getDeviceById(5)->getZoneList(), QVector<int>{9});
    QCOMPARE(session.page.calls(), Fleet::lines("wrapperInput_device_add(5,\"\",0,0,0,0);\n"
                                                "wrapperInput_zone_includeDevice(9,5);"));
    QCOMPARE(Fleet::takeActions(), (QStringList{"getTitle", "getVolume", "getEqualizer",
                                                "getConfig", "getState", "getDevices"}));
}

void ZonesTest::excludePush_data()
{
    QTest::addColumn<int>("zone");
    QTest::addColumn<QVector<int>>("before");
    QTest::addColumn<bool>("stays");
    QTest::addColumn<QString>("call");
    const QString excluded = "wrapperInput_zone_excludeDevice(9,5);";
    const QString gone = "wrapperInput_device_delete(5);";
    QTest::newRow("one of two zones") << 9 << QVector<int>{1, 9} << true << excluded;
    QTest::newRow("its only zone") << 9 << QVector<int>{9} << false << gone;
    QTest::newRow("the whole installation") << 0 << QVector<int>{1, 9} << false << gone;
}

void ZonesTest::excludePush()
{
    QFETCH(int, zone);
    QFETCH(QVector<int>, before);
    QFETCH(bool, stays);
    SessionFixture session;
    Fleet::addEverything();
    Fleet::addDevice(5).getZoneList() = before;
    Fleet::addZone(9, "hall").includeDevice(5);
    session.page.take();
    for (int times = 0; times < 2 - (stays ? 1 : 0); ++times) { // the second names nobody
        Fleet::push(QJsonObject{{"request", "zone"},
                                {"action", "excludeDevice"},
                                {"order", 1},
                                {"zoneId", zone},
                                {"deviceId", 5}});
    }
    QCOMPARE(Data::getDeviceById(5) != nullptr, stays);
    QCOMPARE(Data::getZoneById(9)->getDeviceList(), QVector<int>());
    QTEST(session.page.calls().join(QLatin1Char(' ')), "call");
}

QTEST_GUILESS_MAIN(ZonesTest)
#include "ZonesTest.moc"
