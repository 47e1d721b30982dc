#include "simulator/Client.h"
#include "simulator/ServerFixture.h"

#include <QJsonArray>
#include <QSet>
#include <QtTest>

using Type = QJsonValue::Type;
using Shape = QMap<QString, Type>;

namespace
{

constexpr Type number = QJsonValue::Double;
constexpr Type text = QJsonValue::String;
constexpr Type flag = QJsonValue::Bool;
constexpr Type array = QJsonValue::Array;

Shape shapeOf(const QJsonObject& object)
{
    Shape shape;
    for (auto field = object.begin(); field != object.end(); ++field) {
        shape.insert(field.key(), field.value().type());
    }
    return shape;
}

QSet<int> idsIn(const QJsonObject& reply, const QString& list, const QString& key = "id")
{
    QSet<int> ids;
    for (const QJsonValue& entry : reply.value(list).toArray()) {
        ids.insert(entry[key].toInt(-1));
    }
    return ids;
}

QSet<int> numbers(const QJsonValue& values)
{
    QSet<int> ids;
    for (const QJsonValue& value : values.toArray()) {
        ids.insert(value.toInt(-1));
    }
    return ids;
}

} // namespace

Q_DECLARE_METATYPE(Shape)

/// What a login asks for, seen from the wire.
class TestBootstrap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void replies_data();
    void replies();
    void unitReplies_data();
    void unitReplies();
    void memoryIsOnlyReadOfConnectedUnits();
    void clockIsUtc();
    void everyRoleSeesAConsistentPart_data();
    void everyRoleSeesAConsistentPart();
    void rightsAreRefused_data();
    void rightsAreRefused();
    void otherRolesAreHidden();
    void sameSeedGivesTheSameFleet();
};

void TestBootstrap::replies_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("action");
    QTest::addColumn<Shape>("fields");
    QTest::addColumn<QString>("list");
    QTest::addColumn<Shape>("element");

    const auto row = [](const char* request, const char* action, const Shape& fields,
                        const char* list = "", const Shape& element = {}) {
        QTest::addRow("%s %s", request, action)
            << QString(request) << QString(action) << fields << QString(list) << element;
    };
    row("helper", "checkInternet", {});
    row("helper", "getDateTime", {{"utcDate", text}, {"utcTime", text}, {"timezone", number}});
    row("helper", "getCurrentServerVersion", {{"version", text}});
    row("role", "getInfo", {{"name", text}, {"title", text}});
    row("role", "getRedirection",
        {{"alarm", flag}, {"broadcastingFromMicrophone", flag}, {"externalDrivers", flag}});
    row("role", "getServer",
        {{"serverManagement", flag},
         {"userManagement", flag},
         {"zoneManagement", flag},
         {"roleManagement", text},
         {"deviceManagement", text},
         {"playbackManagement", text},
         {"taskManagement", text},
         {"presetManagement", text}});
    row("role", "list", {}, "roles", {{"name", text}, {"title", text}, {"users", array}});
    row("role", "getZones", {}, "zones", {{"id", number}});
    row("role", "getPlaylist", {}, "playlists", {{"id", number}});
    row("role", "getPreset", {}, "presets", {{"id", number}});
    row("role", "getTasks", {}, "tasks", {{"id", number}});
    row("device", "getDevices", {}, "devices",
        {{"id", number}, {"title", text}, {"volume", number}, {"link", text}, {"playback", text}});
    row("device", "listFirmware", {}, "list", {{"fileName", text}, {"version", text}});
    row("zone", "list", {{"devices", array}}, "zones",
        {{"id", number}, {"title", text}, {"type", text}, {"parentId", number}});
    row("zone", "list", {{"zones", array}}, "devices", {{"id", number}, {"parentId", number}});
    row("playback", "list", {{"tracks", array}}, "playlists",
        {{"id", number},
         {"title", text},
         {"parentId", number},
         {"position", number},
         {"duration", number},
         {"volume", number},
         {"groupId", number}});
    row("playback", "list", {{"playlists", array}}, "tracks",
        {{"id", number},
         {"parentId", number},
         {"title", text},
         {"position", number},
         {"duration", number}});
    row("playback", "getPlays", {}, "list",
        {{"playbackId", number},
         {"playlistId", number},
         {"trackId", number},
         {"volume", number},
         {"playing", flag},
         {"targetPlaying", text},
         {"repeats", number},
         {"actionIfEnd", text},
         {"timeshift", number},
         {"devices", array},
         {"zones", array},
         {"activeDevices", array}});
    row("preset", "list", {}, "presets",
        {{"id", number},
         {"title", text},
         {"type", text},
         {"playlistId", number},
         {"target", number},
         {"position", number},
         {"targetPlaying", text},
         {"repeats", number},
         {"actionIfEnd", text},
         {"zones", array},
         {"devices", array}});
    row("task", "list", {}, "tasks",
        {{"id", number},
         {"title", text},
         {"enable", flag},
         {"event", text},
         {"eventId", number},
         {"trackId", number},
         {"frequency", text},
         {"step", number},
         {"days", text},
         {"startDate", text},
         {"startTime", text},
         {"endDate", text},
         {"targetPlaying", text},
         {"repeats", number},
         {"actionIfEnd", text},
         {"zones", array},
         {"devices", array}});
    row("task", "getPlays", {}, "list", {{"taskId", number}, {"playbackId", number}});
    row("user", "list", {}, "users", {{"name", text}, {"title", text}, {"role", text}});
    row("user", "getConnected", {{"users", array}});
    row("user", "getInfo", {{"name", text}, {"title", text}, {"role", text}});
    row("server", "getSettings",
        {{"networkInterface", text}, {"multicastIP", text}, {"commandPort", number}});
    row("server", "getNetworkInterfaceList", {}, "list", {{"ip", text}, {"description", text}});
    row("log", "getLevel", {{"maximumLevel", flag}});
    row("log", "list", {{"server", array}});
}

void TestBootstrap::replies()
{
    QFETCH(QString, request);
    QFETCH(QString, action);
    QFETCH(Shape, fields);
    QFETCH(QString, list);
    QFETCH(Shape, element);
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));

    const QJsonObject reply = client.ask(request, action);
    QCOMPARE(reply.value("response"), QJsonValue("success"));
    fields.insert("response", text);
    fields.insert("order", number);
    if (!list.isEmpty()) {
        fields.insert(list, array);
        QVERIFY(!reply.value(list).toArray().isEmpty());
    }
    QCOMPARE(shapeOf(reply), fields);
    for (const QJsonValue& entry : reply.value(list).toArray()) {
        QCOMPARE(shapeOf(entry.toObject()), element);
    }
}

void TestBootstrap::unitReplies_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<Shape>("fields");
    QTest::newRow("state") << "getState"
                           << Shape{{"id", number},
                                    {"versionMainText", text},
                                    {"versionPSS", text},
                                    {"versionMain", text},
                                    {"versionLC", text},
                                    {"battery", text},
                                    {"batteryLevel", number},
                                    {"case", text},
                                    {"lines", array},
                                    {"ip", text},
                                    {"mac", text}};
    QTest::newRow("title") << "getTitle" << Shape{{"title", text}};
    QTest::newRow("volume") << "getVolume" << Shape{{"volume", number}};
    QTest::newRow("equalizer") << "getEqualizer" << Shape{{"enabled", flag}, {"levels", array}};
    QTest::newRow("settings") << "getConfig"
                              << Shape{{"dhcp", flag},
                                       {"ip", text},
                                       {"mask", text},
                                       {"gateway", text},
                                       {"staticIp", text},
                                       {"staticMask", text},
                                       {"staticGateway", text},
                                       {"multicastIp", text},
                                       {"commandPort", number},
                                       {"allowedCommandIp", text},
                                       {"tavrinRelayControl", flag},
                                       {"lineJoined", flag},
                                       {"tavrinAddress", number},
                                       {"tavrinRelayEvent", flag},
                                       {"tavrinErrorIndication", flag},
                                       {"multicastListen", flag},
                                       {"multicastAIN0", flag},
                                       {"multicastAIN1", flag},
                                       {"priorityAIN0", number},
                                       {"priorityAIN1", number},
                                       {"priorityScenario", number},
                                       {"priorityListen", number},
                                       {"priorityStream", number}};
    QTest::newRow("memory stamp") << "getMemoryStamp" << Shape{{"memoryStamp", text}};
    QTest::newRow("free memory") << "getAvailableMemory" << Shape{{"size", number}};
    QTest::newRow("fragments") << "listMessages" << Shape{{"list", array}};
    QTest::newRow("announcements") << "listScenarios" << Shape{{"list", array}};
    QTest::newRow("plays from memory") << "getPlays" << Shape{{"playbackGroups", array}};
}

void TestBootstrap::unitReplies()
{
    QFETCH(QString, action);
    QFETCH(Shape, fields);
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    fields.insert("response", text);
    fields.insert("order", number);
    for (int id : {1, 6}) { // the newer and the older hardware
        QCOMPARE(shapeOf(client.ask("device", action, {{"id", id}})), fields);
    }
}

void TestBootstrap::memoryIsOnlyReadOfConnectedUnits()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    server->changeLink(1, simulator::Link::Incoming);
    for (const char* action :
         {"getMemoryStamp", "getAvailableMemory", "listMessages", "listScenarios", "getPlays"}) {
        QCOMPARE(client.ask("device", action, {{"id", 1}}).value("response"), QJsonValue("error"));
    }
    QCOMPARE(client.ask("device", "getConfig", {{"id", 1}}).value("response"),
             QJsonValue("success"));
}

void TestBootstrap::clockIsUtc()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("viewer"));
    const QJsonObject reply = client.ask("helper", "getDateTime");
    QDateTime told = QDateTime::fromString(reply.value("utcDate").toString() + ' ' +
                                               reply.value("utcTime").toString(),
                                           "yyyy-MM-dd HH:mm:ss");
    told.setTimeSpec(Qt::UTC);
    QVERIFY(told.isValid());
    QVERIFY(qAbs(told.secsTo(QDateTime::currentDateTimeUtc())) < 10);
}

void TestBootstrap::everyRoleSeesAConsistentPart_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("devices");
    for (const char* name : {"admin", "operator", "guard", "viewer"}) {
        QTest::addRow("%s, no units", name) << name << 0;
        QTest::addRow("%s, the usual units", name) << name << 24;
        QTest::addRow("%s, a large fleet", name) << name << 1000;
    }
}

/// Whatever a reply refers to is in the replies that come before it.
void TestBootstrap::everyRoleSeesAConsistentPart()
{
    QFETCH(QString, name);
    QFETCH(int, devices);
    ServerFixture server(devices);
    Client client(server->port());
    QVERIFY(client.logIn(name));

    const QSet<int> units = idsIn(client.ask("device", "getDevices"), "devices");
    const QJsonObject zoneList = client.ask("zone", "list");
    const QSet<int> zones = idsIn(zoneList, "zones");
    const QJsonObject library = client.ask("playback", "list");
    const QSet<int> playlists = idsIn(library, "playlists");
    const QSet<int> tracks = idsIn(library, "tracks");
    QCOMPARE(units.size(), name == "admin" || name == "operator" ? devices : units.size());
    QCOMPARE(idsIn(zoneList, "devices"), units);
    QVERIFY(zones.contains(idsIn(zoneList, "devices", "parentId")));
    QVERIFY((zones + QSet<int>{0}).contains(idsIn(zoneList, "zones", "parentId")));
    QVERIFY((playlists + QSet<int>{0}).contains(idsIn(library, "playlists", "parentId")));
    QVERIFY(playlists.contains(idsIn(library, "tracks", "parentId")));

    for (const QJsonValue& playback : client.ask("playback", "getPlays").value("list").toArray()) {
        QVERIFY(playlists.contains(playback["playlistId"].toInt()));
        QVERIFY(tracks.contains(playback["trackId"].toInt()));
        QVERIFY(!numbers(playback["devices"]).isEmpty());
        QVERIFY(units.contains(numbers(playback["devices"])));
        QVERIFY(numbers(playback["devices"]).contains(numbers(playback["activeDevices"])));
    }
    for (const QJsonValue& preset : client.ask("preset", "list").value("presets").toArray()) {
        QVERIFY(playlists.contains(preset["playlistId"].toInt()));
    }
    const QJsonObject tasks = client.ask("task", "list");
    for (const QJsonValue& task : tasks.value("tasks").toArray()) {
        const bool play = task["event"] == "play";
        QVERIFY((play ? playlists : idsIn(tasks, "tasks")).contains(task["eventId"].toInt()));
    }
}

void TestBootstrap::rightsAreRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("response");
    QTest::newRow("server settings, operator") << "operator"
                                               << "server"
                                               << "getSettings"
                                               << "forbidden";
    QTest::newRow("server settings, admin") << "admin"
                                            << "server"
                                            << "getSettings"
                                            << "success";
    QTest::newRow("server log, guard") << "guard"
                                       << "log"
                                       << "list"
                                       << "forbidden";
    QTest::newRow("volume, viewer") << "viewer"
                                    << "device"
                                    << "setVolume"
                                    << "forbidden";
    QTest::newRow("volume, guard") << "guard"
                                   << "device"
                                   << "setVolume"
                                   << "success";
    QTest::newRow("volume, operator") << "operator"
                                      << "device"
                                      << "setVolume"
                                      << "success";
}

void TestBootstrap::rightsAreRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, request);
    QFETCH(QString, action);
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn(name));
    QTEST(client.ask(request, action, {{"id", 1}, {"volume", 10}}).value("response").toString(),
          "response");
}

void TestBootstrap::otherRolesAreHidden()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("guard"));
    const QJsonArray roles = client.ask("role", "list").value("roles").toArray();
    QCOMPARE(roles.size(), 1);
    QCOMPARE(roles.first().toObject().value("name"), QJsonValue("guards"));
    QCOMPARE(client.ask("role", "getServer", {{"role", "guards"}}).value("response"),
             QJsonValue("success"));
    QCOMPARE(client.ask("role", "getServer", {{"role", "admin"}}).value("response"),
             QJsonValue("error"));
    QCOMPARE(client.ask("user", "list").value("users").toArray().size(), 1);
    // A unit outside the role's zones is none.
    QCOMPARE(client.ask("device", "getState", {{"id", 23}}).value("response"), QJsonValue("error"));
}

void TestBootstrap::sameSeedGivesTheSameFleet()
{
    const auto fleet = [](quint32 seed) {
        ServerFixture server(200, seed);
        Client client(server->port());
        client.logIn("admin");
        return client.ask("device", "getDevices").value("devices").toArray();
    };
    const QJsonArray first = fleet(5);
    QCOMPARE(first.size(), 200);
    QCOMPARE(fleet(5), first);
    QVERIFY(fleet(6) != first);
}

QTEST_GUILESS_MAIN(TestBootstrap)
#include "tst_bootstrap.moc"
