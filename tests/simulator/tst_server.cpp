#include "simulator/Client.h"
#include "simulator/Life.h"
#include "simulator/Playout.h"
#include "simulator/Prompt.h"
#include "simulator/ServerFixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTcpSocket>
#include <QUdpSocket>
#include <QtTest>

#include <csignal>

/// The demo server as a peer: streams, slow and deaf consoles, what each role sees, what happens of
/// itself.
class TestServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRequestIsAnsweredInOrder();
    void brokenStreamsEndTheConnection();
    void slowAndSilent();
    void deafConsoleHoldsUpOnlyItself();
    void everyRoleSeesAConsistentPart_data();
    void everyRoleSeesAConsistentPart();
    void clockIsUtc();
    void saysWhatArrives();
    void lifeLeavesWhatIsSetByHand();
    void lifeGoesOnAndRepeatsItself();
    void playbacksAreLogged();
};

namespace
{

QStringList logged;

void keepLog(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& line)
{
    logged.append(line);
}

/// Keeps what the server logs while it lives.
class LogWatch
{
public:
    LogWatch() : before(qInstallMessageHandler(keepLog)) { logged.clear(); }
    ~LogWatch() { qInstallMessageHandler(before); }
    bool saw(const QString& words) const { return !logged.filter(words).isEmpty(); }

private:
    QtMessageHandler before;
};

QSet<int> idsIn(const QJsonValue& list, const QString& key = {})
{
    QSet<int> ids;
    const QJsonArray entries = list.toArray();
    for (const QJsonValue& entry : entries) {
        ids.insert((key.isEmpty() ? entry : entry[key]).toInt(-1));
    }
    return ids;
}

QByteArray login(const QString& name)
{
    return QJsonDocument(QJsonObject{{"request", "user"},
                                     {"action", "login"},
                                     {"order", 0},
                                     {"version", 9},
                                     {"user", name},
                                     {"password", digestOf(name)}})
        .toJson();
}

} // namespace

/// However the stream is cut, and with acknowledgements between, which are not answered.
void TestServer::everyRequestIsAnsweredInOrder()
{
    ServerFixture server;
    Client client(server->port());
    for (char byte : login("admin")) {
        client.sendRaw(QByteArray(1, byte));
    }
    QCOMPARE(client.takeReply().value("response"), QJsonValue("success"));
    QVector<int> orders;
    for (int count = 0; count < 50; ++count) {
        client.sendRaw(R"({"order":1000000,"response":"success"})");
        orders.append(client.send("device", count % 2 ? "getTitle" : "nonsense", {{"id", count}}));
    }
    for (int order : orders) {
        QCOMPARE(client.takeReply().value("order").toInt(-1), order);
    }
    server->tellUnits({1, 2});
    const int first = client.takePush().value("order").toInt();
    QVERIFY(first >= 1000000);
    QCOMPARE(client.takePush().value("order").toInt(), first + 1);
    QVERIFY(client.ask("user", "getInfo").contains("name"));
    QVERIFY(client.replies.isEmpty());
}

void TestServer::brokenStreamsEndTheConnection()
{
    ServerFixture server;
    for (const QByteArray& bytes : {QByteArray("[]"), QByteArray("{hello}")}) {
        Client client(server->port());
        QVERIFY(client.logIn("admin"));
        client.sendRaw(bytes);
        QVERIFY(client.waitForEnd());
    }
    QTcpSocket plain;
    plain.connectToHost("127.0.0.1", server->port());
    plain.write("{\"request\":\"user\"}");
    QTRY_COMPARE(plain.state(), QAbstractSocket::UnconnectedState);
    QVERIFY(Client(server->port()).logIn("admin"));
    QTRY_COMPARE(server->sessionCount(), 0);
}

void TestServer::slowAndSilent()
{
    const LogWatch log;
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    server->setReplyDelay(600000);
    const int first = client.send("user", "getInfo");
    const int second = client.send("role", "getInfo");
    client.sendRaw("{\"order\":1}"); // what tells that the server has read all of it
    QTRY_VERIFY(log.saw("neither a request nor a response"));
    server->tellUnits({1});
    QVERIFY(!client.takePush().isEmpty());
    QVERIFY(client.replies.isEmpty());
    server->setReplyDelay(0);
    QCOMPARE(client.takeReply().value("order").toInt(-1), first);
    QCOMPARE(client.takeReply().value("order").toInt(-1), second);

    logged.clear();
    server->setSilent(true);
    client.send("user", "getInfo");
    client.sendRaw("{\"order\":1}");
    QTRY_VERIFY(log.saw("neither a request nor a response"));
    server->setSilent(false);
    QVERIFY(client.ask("role", "getInfo").contains("name"));
}

/// A console that reads nothing is dropped when too much waits for it; the others hear everything.
void TestServer::deafConsoleHoldsUpOnlyItself()
{
    const LogWatch log;
    ServerFixture server;
    server->setMostUnread(8LL * 1024 * 1024);
    QProcess deaf;
    deaf.start("openssl",
               {"s_client", "-quiet", "-connect", "127.0.0.1:" + QString::number(server->port())});
    QVERIFY(deaf.waitForStarted());
    deaf.write(login("guard"));
    QTRY_VERIFY(server->connectedAccounts().contains("guard"));
    ::kill(pid_t(deaf.processId()), SIGSTOP);

    Client client(server->port());
    QVERIFY(client.logIn("admin"));
    simulator::Prompt prompt(*server);
    int storms = 0;
    for (; storms < 100 && !log.saw("doesn't read"); ++storms) {
        QCOMPARE(prompt.execute("storm 2000"), QString("ok"));
        QVERIFY(client.ask("user", "getInfo").contains("name"));
    }
    ::kill(pid_t(deaf.processId()), SIGCONT);
    QVERIFY(log.saw("doesn't read"));
    QVERIFY(storms > 1); // a backlog below the bound is no fault
    QVERIFY(!server->connectedAccounts().contains("guard"));
    const auto isState = [](const QJsonObject& push) { return push["action"] == "setState"; };
    QCOMPARE(int(std::count_if(client.pushes.begin(), client.pushes.end(), isState)),
             storms * 2000);
    QVERIFY(deaf.waitForFinished());
}

void TestServer::everyRoleSeesAConsistentPart_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("devices");
    for (const QString name : {"admin", "operator", "guard", "viewer"}) {
        for (int devices : {0, 24, 1000}) {
            QTest::newRow(qPrintable(name + ' ' + QString::number(devices))) << name << devices;
        }
    }
}

/// Whatever a reply refers to is in the replies that come before it.
void TestServer::everyRoleSeesAConsistentPart()
{
    QFETCH(QString, name);
    QFETCH(int, devices);
    ServerFixture server(devices);
    Client client(server->port());
    QVERIFY(client.logIn(name));
    const QSet<int> units = idsIn(client.ask("device", "getDevices")["devices"], "id");
    const QJsonObject tree = client.ask("zone", "list");
    const QSet<int> zones = idsIn(tree["zones"], "id");
    const QJsonObject library = client.ask("playback", "list");
    const QSet<int> playlists = idsIn(library["playlists"], "id");
    if (name == "admin" || name == "operator") {
        QCOMPARE(units.size(), devices);
    }
    QCOMPARE(idsIn(tree["devices"], "id"), units);
    QVERIFY(zones.contains(idsIn(tree["devices"], "parentId")));
    QVERIFY((zones + QSet<int>{0}).contains(idsIn(tree["zones"], "parentId")));
    QVERIFY((playlists + QSet<int>{0}).contains(idsIn(library["playlists"], "parentId")));
    QVERIFY(playlists.contains(idsIn(library["tracks"], "parentId")));
    const QJsonArray plays = client.ask("playback", "getPlays")["list"].toArray();
    QVERIFY(playlists.contains(idsIn(plays, "playlistId")));
    QVERIFY(idsIn(library["tracks"], "id").contains(idsIn(plays, "trackId")));
    for (const QJsonValue& playback : plays) {
        QVERIFY(!idsIn(playback["devices"]).isEmpty());
        QVERIFY(units.contains(idsIn(playback["devices"])));
        QVERIFY(idsIn(playback["devices"]).contains(idsIn(playback["activeDevices"])));
    }
    const QJsonValue presets = client.ask("preset", "list")["presets"];
    QVERIFY(playlists.contains(idsIn(presets, "playlistId")));
    const QJsonArray tasks = client.ask("task", "list")["tasks"].toArray();
    for (const QJsonValue& task : tasks) {
        const bool starts = task["event"] == "play";
        QVERIFY((starts ? playlists : idsIn(tasks, "id")).contains(task["eventId"].toInt()));
    }
}

void TestServer::clockIsUtc()
{
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("viewer"));
    const QJsonObject reply = client.ask("helper", "getDateTime");
    const QDateTime told = QDateTime::fromString(
        reply["utcDate"].toString() + 'T' + reply["utcTime"].toString() + 'Z', Qt::ISODate);
    QVERIFY(told.isValid());
    QVERIFY(qAbs(told.secsTo(QDateTime::currentDateTimeUtc())) < 60);
}

void TestServer::saysWhatArrives()
{
    ServerFixture server;
    Client speaker(server->port());
    QVERIFY(speaker.logIn("operator"));
    QStringList lines;
    connect(&*server, &simulator::Server::said, this,
            [&lines](const QString& line) { lines.append(line); });
    const QJsonObject started =
        speaker.ask("playback", "startRedirection",
                    {{"type", "microphone"}, {"strategy", "none"}, {"devices", QJsonArray{3}}});
    QUdpSocket sound;
    const QByteArray packet = QByteArray::fromHex("47010010").leftJustified(188, '\0');
    for (int count = 0; count < 3; ++count) {
        sound.writeDatagram(packet, QHostAddress::LocalHost, quint16(started["port"].toInt()));
    }
    QTRY_COMPARE(lines.filter("3 packets of 188 bytes").size(), 1);
    QCOMPARE(lines.filter("unknown sound").size(), 1);
    QVERIFY(speaker.ask("playback", "stopRedirection").contains("response"));
    QCOMPARE(lines.last(), QString("redirection: ended"));
}

void TestServer::lifeLeavesWhatIsSetByHand()
{
    ServerFixture server;
    simulator::Prompt prompt(*server);
    for (const char* line : {"link 1-8 no", "link 9,18 bidirectional", "mains 10-12 off",
                             "battery 13 17", "mains 14 off", "battery 14 99", "mains 14 on"}) {
        QCOMPARE(prompt.execute(line), QString("ok"));
    }
    simulator::Life life(*server, 1);
    const simulator::Installation& now = server->installation();
    const int before = now.unit(10)->batteryLevel;
    for (int steps = 0; steps < 2000; ++steps) {
        life.step();
        for (int id = 1; id <= 8; ++id) {
            QCOMPARE(now.unit(id)->link, simulator::Link::No);
        }
        QCOMPARE(now.unit(9)->link, simulator::Link::Bidirectional);
        QCOMPARE(now.unit(18)->link, simulator::Link::Bidirectional);
    }
    QCOMPARE(now.unit(10)->battery, simulator::Battery::AcPowerMissing);
    QCOMPARE(now.unit(10)->batteryLevel, before);
    QCOMPARE(now.unit(13)->batteryLevel, 17);
    QCOMPARE(now.unit(14)->batteryLevel, 100); // set back, so it charges
}

/// Units drop and come back in two stages, somebody plays music and stops it again.
void TestServer::lifeGoesOnAndRepeatsItself()
{
    const auto pushes = [](quint32 seed) {
        ServerFixture server(40, seed);
        Client client(server->port());
        client.logIn("admin");
        simulator::Life life(*server, seed);
        for (int steps = 0; steps < 500; ++steps) {
            life.step();
        }
        return QVector<QJsonObject>{client.ask("device", "getDevices")} + client.pushes;
    };
    const QVector<QJsonObject> first = pushes(3);
    QCOMPARE(pushes(3), first);
    QVERIFY(pushes(4) != first);
    QSet<QString> links;
    QSet<int> ended;
    for (const QJsonObject& push : first) {
        links.insert(push.value("link").toString());
        ended.insert(push.value("action") == "stop" ? push.value("id").toInt() : 0);
    }
    QVERIFY(links.contains({"no", "incoming", "bidirectional"}));
    QVERIFY(ended.contains(3));
    QVERIFY(!ended.contains(1)); // only the visitor's own is stopped
}

void TestServer::playbacksAreLogged()
{
    const LogWatch log;
    ServerFixture server;
    Client client(server->port());
    QVERIFY(client.logIn("operator"));
    client.ask("playback", "play",
               {{"playlistId", 25}, {"trackId", 141}, {"devices", QJsonArray{3}}});
    client.ask("playback", "pause", {{"playbackId", 3}, {"pause", true}});
    client.ask("playback", "pause", {{"playbackId", 3}, {"pause", false}});
    client.ask("playback", "playNext", {{"playbackId", 3}, {"trackId", 142}, {"timeshift", 0}});
    client.ask("playback", "stop", {{"playbackId", 2}});
    simulator::Playback& last = *server->installation().playback(3);
    last.since = last.since.addSecs(-100);
    simulator::Playout(*server).step();
    for (const char* line :
         {"Playback 3 started with track 141 of folder 25 on 1 units by operator in session 1",
          "Playback 3 paused by operator in session 1", "Playback 3 resumed by operator",
          "Playback 3 put on track 142 at 0 s by operator", "Playback 2 ended by operator",
          "Playback 3 ended by its own end"}) {
        QVERIFY2(log.saw(line), line);
    }
}

QTEST_GUILESS_MAIN(TestServer)
#include "tst_server.moc"
