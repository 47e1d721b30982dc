#include "simulator/Life.h"

#include "simulator/Client.h"
#include "simulator/Prompt.h"
#include "simulator/ServerFixture.h"

#include <QJsonArray>
#include <QtTest>

/// What the consoles are told without having asked.
class TestLife : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pushesReachEveryConsoleThatSeesTheUnit();
    void consolesHearOfEachOther();
    void lostUnitsComeBackAndJoinTheirPlayback();
    void tracksFollowEachOther();
    void somebodyElsePlaysMusicAndStopsIt();
    void sameSeedGivesTheSameEvents();
    void typedCommands_data();
    void typedCommands();
    void typedChangesOfTheInstallation_data();
    void typedChangesOfTheInstallation();
    void typedUnitAppears();
    void typedMistakesAreToldAndChangeNothing_data();
    void typedMistakesAreToldAndChangeNothing();
    void typedDropEndsEveryConnection();
};

void TestLife::pushesReachEveryConsoleThatSeesTheUnit()
{
    ServerFixture server;
    Client admin(server->port());
    Client guard(server->port());
    Client stranger(server->port());
    QVERIFY(admin.logIn("admin"));
    QVERIFY(guard.logIn("guard"));
    QVERIFY(!admin.takePush("reloadChanges").isEmpty());

    server->tellUnit(23); // in a zone that guards don't see
    server->tellUnit(1);
    const QJsonObject first = admin.takePush();
    const QJsonObject second = admin.takePush();
    QCOMPARE(first.value("deviceId"), QJsonValue(23));
    QCOMPARE(second.value("deviceId"), QJsonValue(1));
    QCOMPARE(second.value("order").toInt(), first.value("order").toInt() + 1);
    QVERIFY(first.value("order").toInt() >= 1000000);

    const QJsonObject push = guard.takePush();
    QCOMPARE(push.value("deviceId"), QJsonValue(1));
    QStringList keys = push.keys();
    QCOMPARE(keys, (QStringList{"action", "battery", "batteryLevel", "case", "deviceId", "lines",
                                "link", "order", "playback", "request", "versionLC", "versionMain",
                                "versionMainText", "versionPSS", "volume"}));
    QVERIFY(stranger.logIn("viewer"));
    QVERIFY(stranger.pushes.isEmpty());
}

void TestLife::consolesHearOfEachOther()
{
    ServerFixture server;
    Client first(server->port());
    QVERIFY(first.logIn("admin"));
    const auto connected = [&first] {
        return first.ask("user", "getConnected").value("users").toArray();
    };
    {
        Client second(server->port());
        QVERIFY(second.logIn("operator"));
        QCOMPARE(first.takePush().value("request"), QJsonValue("user"));
        QCOMPARE(connected(), (QJsonArray{"admin", "operator"}));
        QVERIFY(second.pushes.isEmpty());
        QCOMPARE(second.ask("device", "setVolume", {{"id", 3}, {"volume", 77}}).value("response"),
                 QJsonValue("success"));
        QCOMPARE(first.takePush("setState").value("volume"), QJsonValue(77));
        QVERIFY(second.pushes.isEmpty());
    }
    QVERIFY(!first.takePush("reloadChanges").isEmpty());
    QCOMPARE(connected(), QJsonArray{"admin"});
}

void TestLife::lostUnitsComeBackAndJoinTheirPlayback()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    const auto activeUnits = [&client] {
        const QJsonArray list = client.ask("playback", "getPlays").value("list").toArray();
        return list.first().toObject().value("activeDevices").toArray();
    };
    QCOMPARE(activeUnits(), (QJsonArray{21, 23}));

    server->changeLink(21, simulator::Link::No);
    QJsonObject push = client.takePush();
    QCOMPARE(push.value("link"), QJsonValue("no"));
    QCOMPARE(push.value("playback"), QJsonValue("none"));
    QCOMPARE(activeUnits(), QJsonArray{23});

    simulator::Life life(*server, 1);
    QStringList links;
    for (int steps = 0;
         steps < 1000 && server->installation().unit(21)->link != simulator::Link::Bidirectional;
         ++steps) {
        life.step();
    }
    do {
        push = client.takePush();
        if (push.value("deviceId") == 21) {
            links.append(push.value("link").toString());
        }
    } while (!push.isEmpty() && push.value("action") != "play");
    QCOMPARE(links, (QStringList{"incoming", "bidirectional"}));
    QVERIFY(activeUnits().contains(21));
}

void TestLife::tracksFollowEachOther()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    simulator::Life life(*server, 1);
    simulator::Playback& music = *server->installation().playback(2);
    QVector<int> tracks;
    for (int count = 0; count < 4; ++count) {
        music.since = music.since.addSecs(-1000);
        life.step();
        const QJsonObject push = client.takePush("playNext");
        QCOMPARE(push.value("playbackId"), QJsonValue(2));
        QCOMPARE(push.value("timeshift"), QJsonValue(0));
        tracks.append(push.value("trackId").toInt());
    }
    QCOMPARE(tracks, (QVector<int>{113, 114, 111, 112}));
    life.step();
    QCOMPARE(server->installation().playback(1)->track, 101); // a live stream has no end
}

void TestLife::somebodyElsePlaysMusicAndStopsIt()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    simulator::Life life(*server, 1);
    int most = 2;
    const auto& playbacks = server->installation().playbacks;
    for (int steps = 0; steps < 2000 && !(most > 2 && playbacks.size() == 2); ++steps) {
        life.step();
        most = std::max(most, int(playbacks.size()));
    }
    QCOMPARE(most, 3);
    QCOMPARE(int(playbacks.size()), 2);
    QVERIFY(client.takePush("stop").value("id").toInt() > 2);
}

void TestLife::sameSeedGivesTheSameEvents()
{
    const auto pushes = [](quint32 seed) {
        ServerFixture server;
        Client client(server->port());
        client.logIn("admin");
        simulator::Life life(*server, seed);
        for (int steps = 0; steps < 200; ++steps) {
            life.step();
        }
        client.ask("user", "getInfo");
        return client.pushes;
    };
    const QVector<QJsonObject> first = pushes(3);
    QVERIFY(first.size() > 10);
    QCOMPARE(pushes(3), first);
    QVERIFY(pushes(4) != first);
}

void TestLife::typedCommands_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value");
    QTest::newRow("link") << "link 3 incoming"
                          << "link" << QJsonValue("incoming");
    QTest::newRow("mains off") << "mains 3 off"
                               << "battery" << QJsonValue("acPowerMissing");
    QTest::newRow("battery") << "  battery  3  17 "
                             << "batteryLevel" << QJsonValue(17);
    QTest::newRow("case") << "case 3 open"
                          << "case" << QJsonValue("open");
}

void TestLife::typedChangesOfTheInstallation_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QVector<QJsonObject>>("pushes");
    const auto moved = [](const char* action, int zone, int unit) {
        return QJsonObject{
            {"request", "zone"}, {"action", action}, {"zoneId", zone}, {"deviceId", unit}};
    };
    QTest::newRow("right") << "right operators deviceManagement read"
                           << QVector<QJsonObject>{{{"request", "role"},
                                                    {"action", "reloadChanges"},
                                                    {"name", "operators"}}};
    QTest::newRow("switch") << "right admin alarm off"
                            << QVector<QJsonObject>{{{"request", "role"},
                                                     {"action", "reloadChanges"},
                                                     {"name", "admin"}}};
    QTest::newRow("role") << "role guard viewers"
                          << QVector<QJsonObject>{
                                 {{"request", "user"}, {"action", "reloadChanges"}}};
    QTest::newRow("other physical zone")
        << "zone 3 4"
        << QVector<QJsonObject>{moved("includeDevice", 4, 3), moved("excludeDevice", 3, 3)};
    QTest::newRow("logical zone") << "zone 3 6"
                                  << QVector<QJsonObject>{moved("includeDevice", 6, 3)};
    QTest::newRow("remove") << "remove 3" << QVector<QJsonObject>{moved("excludeDevice", 0, 3)};
    QTest::newRow("remove the last that plays")
        << "remove 21" << QVector<QJsonObject>{moved("excludeDevice", 0, 21)};
}

void TestLife::typedChangesOfTheInstallation()
{
    QFETCH(QString, line);
    QFETCH(QVector<QJsonObject>, pushes);
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    QCOMPARE(simulator::Prompt(*server).execute(line), QString("ok"));
    client.ask("user", "getInfo");
    for (QJsonObject& push : client.pushes) {
        push.remove("order");
    }
    QCOMPARE(client.pushes, pushes);
}

void TestLife::typedUnitAppears()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    QCOMPARE(simulator::Prompt(*server).execute("unit  Новый зал"), QString("ok"));
    const int id = client.takePush("setState").value("deviceId").toInt();
    QCOMPARE(id, 25);
    QCOMPARE(client.ask("device", "getTitle", {{"id", id}}).value("title"),
             QJsonValue("Новый зал"));
    QVERIFY(client.ask("zone", "list")
                .value("devices")
                .toArray()
                .contains(QJsonObject{{"id", id}, {"parentId", 1}}));
    QCOMPARE(simulator::Prompt(*server).execute("line 25 17 break"), QString("ok"));
    QCOMPARE(client.takePush("setState").value("lines").toArray().last()["state"],
             QJsonValue("break"));
}

void TestLife::typedCommands()
{
    QFETCH(QString, line);
    QFETCH(QString, key);
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    QCOMPARE(simulator::Prompt(*server).execute(line), QString("ok"));
    const QJsonObject push = client.takePush();
    QCOMPARE(push.value("deviceId"), QJsonValue(3));
    QTEST(push.value(key), "value");
}

void TestLife::typedMistakesAreToldAndChangeNothing_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("said");
    QTest::newRow("nothing") << " "
                             << "";
    QTest::newRow("unknown word") << "dance"
                                  << "help";
    QTest::newRow("unknown unit") << "link 99 no"
                                  << "Usage: link";
    QTest::newRow("unknown state") << "link 3 maybe"
                                   << "Usage: link";
    QTest::newRow("too few") << "mains 3"
                             << "Usage: mains";
    QTest::newRow("too many") << "drop now"
                              << "Usage: drop";
    QTest::newRow("out of range") << "battery 3 101"
                                  << "Usage: battery";
    QTest::newRow("no number") << "slow down"
                               << "Usage: slow";
    QTest::newRow("level for a switch") << "right admin alarm read"
                                        << "Usage: right";
    QTest::newRow("unknown level") << "right admin roleManagement much"
                                   << "Usage: right";
    QTest::newRow("unknown role") << "role admin kings"
                                  << "Usage: role";
    QTest::newRow("no title") << "unit"
                              << "Usage: unit";
    QTest::newRow("unknown line") << "line 3 99 ok"
                                  << "Usage: line";
    QTest::newRow("already there") << "zone 3 3"
                                   << "Usage: zone";
    QTest::newRow("help") << "help"
                          << "link <unit> no|incoming|bidirectional";
}

void TestLife::typedMistakesAreToldAndChangeNothing()
{
    QFETCH(QString, line);
    QFETCH(QString, said);
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    const QString answer = simulator::Prompt(*server).execute(line);
    QVERIFY2(answer.contains(said) && answer.isEmpty() == said.isEmpty(), qPrintable(answer));
    QVERIFY(client.ask("user", "getInfo").contains("name"));
    QVERIFY(client.pushes.isEmpty());
}

void TestLife::typedDropEndsEveryConnection()
{
    ServerFixture server;
    Client first(server->port());
    Client second(server->port());
    QVERIFY(first.logIn("admin"));
    QCOMPARE(simulator::Prompt(*server).execute("drop"), QString("ok"));
    QVERIFY(first.waitForEnd());
    QVERIFY(second.waitForEnd());
    QCOMPARE(server->sessionCount(), 0);
    QVERIFY(Client(server->port()).logIn("admin"));
}

QTEST_GUILESS_MAIN(TestLife)
#include "tst_life.moc"
