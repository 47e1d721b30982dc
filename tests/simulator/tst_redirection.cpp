#include "simulator/Client.h"
#include "simulator/ServerFixture.h"

#include <QJsonArray>
#include <QUdpSocket>
#include <QtTest>

/// Live speech takes its units by rank, and ends with the one who speaks. When the server starts,
/// playback 1 is on units 21 and 23, playback 2 on units 2 and 8; unit 18 is not connected.
class TestRedirection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void speechIsSeenByTheOthers();
    void ranks_data();
    void ranks();
    void endsWithItsSpeaker_data();
    void endsWithItsSpeaker();
    void endedByAnother();
    void rightsAreAsked_data();
    void rightsAreAsked();
    void saysWhatArrives();

private:
    QJsonObject speak(Client& client, const QString& type, const QJsonArray& units,
                      const QString& strategy = "overlap")
    {
        return client.ask(
            "playback", "startRedirection",
            {{"type", type}, {"strategy", strategy}, {"volume", 61}, {"devices", units}});
    }
    QString word(const QJsonObject& reply) { return reply.value("response").toString(); }
    QJsonArray hearing() { return other->ask("playback", "getRedirection")["devices"].toArray(); }

    std::unique_ptr<ServerFixture> server;
    std::unique_ptr<Client> speaker;
    std::unique_ptr<Client> other;
};

void TestRedirection::init()
{
    speaker.reset();
    other.reset();
    server = std::make_unique<ServerFixture>();
    speaker = std::make_unique<Client>((*server)->port());
    other = std::make_unique<Client>((*server)->port());
    QVERIFY(other->logIn("admin"));
    QVERIFY(speaker->logIn("operator"));
    QVERIFY(!other->takePush("reloadChanges").isEmpty());
}

void TestRedirection::speechIsSeenByTheOthers()
{
    const QJsonObject reply = speak(*speaker, "microphone", {2, 8, 18, 3});
    QCOMPARE(word(reply), QString("success"));
    QVERIFY(reply.value("port").toInt() > 0);
    QCOMPARE(hearing(), (QJsonArray{2, 8, 3}));
    // The music has lost its units.
    QCOMPARE(other->takePush().value("action"), QJsonValue("stop"));
    QCOMPARE(other->takePush().value("action"), QJsonValue("startRedirection"));
    const QJsonObject state = other->takePush("setState");
    QCOMPARE(state.value("playback"), QJsonValue("microphone"));
    QCOMPARE(state.value("volume"), QJsonValue(61));
    other->pushes.clear();

    QCOMPARE(word(speaker->ask("playback", "setVolume",
                               {{"target", "redirection"}, {"id", 0}, {"volume", 20}})),
             QString("success"));
    QCOMPARE(other->takePush("setState").value("volume"), QJsonValue(20));
    QCOMPARE(word(speaker->ask("playback", "stopRedirection")), QString("success"));
    QVERIFY(!other->takePush("stopRedirection").isEmpty());
    QCOMPARE(other->takePush("setState").value("playback"), QJsonValue("none"));
    QVERIFY(hearing().isEmpty());
    // Nothing but the end of the music is news for the one who spoke.
    QCOMPARE(speaker->takePush().value("id"), QJsonValue(2));
    QVERIFY(speaker->pushes.isEmpty());
}

void TestRedirection::ranks_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<int>("playlist"); ///< 0 for an alarm by voice
    QTest::addColumn<QString>("strategy");
    QTest::addColumn<QString>("response");
    QTest::addColumn<bool>("ends");
    QTest::newRow("music over a microphone") << "microphone" << 22 << "overlap"
                                             << "lowPriority" << false;
    QTest::newRow("music where it is free") << "microphone" << 22 << "partial"
                                            << "noDevices" << false;
    QTest::newRow("alarm message over a microphone") << "microphone" << 27 << "overlap"
                                                     << "success" << true;
    QTest::newRow("alarm message, first asked") << "microphone" << 27 << "none"
                                                << "overlap" << false;
    QTest::newRow("alarm message over an alarm") << "alarm" << 27 << "overlap"
                                                 << "lowPriority" << false;
    QTest::newRow("alarm over a microphone") << "microphone" << 0 << "overlap"
                                             << "success" << true;
}

void TestRedirection::ranks()
{
    QFETCH(QString, first);
    QFETCH(int, playlist);
    QFETCH(QString, strategy);
    QFETCH(bool, ends);
    QCOMPARE(word(speak(*speaker, first, {3})), QString("success"));
    const QJsonObject reply = playlist == 0 ? speak(*other, "alarm", {3, 4}, strategy)
                                            : other->ask("playback", "play",
                                                         {{"playlistId", playlist},
                                                          {"trackId", -1},
                                                          {"devices", QJsonArray{3}},
                                                          {"strategy", strategy}});
    QTEST(word(reply), "response");
    QCOMPARE(hearing().contains(3), !ends || playlist == 0);
    speaker->ask("user", "getInfo");
    QCOMPARE(!speaker->pushes.isEmpty() &&
                 speaker->pushes.first().value("action") == "stopRedirection",
             ends);
    // The microphone has no chance against the alarm.
    if (playlist == 0) {
        QCOMPARE(word(speak(*speaker, "microphone", {5})), QString("lowPriority"));
    }
}

void TestRedirection::endsWithItsSpeaker_data()
{
    QTest::addColumn<bool>("logsOut");
    QTest::newRow("connection lost") << false;
    QTest::newRow("logout") << true;
}

void TestRedirection::endsWithItsSpeaker()
{
    QFETCH(bool, logsOut);
    QCOMPARE(word(speak(*speaker, "alarm", {3})), QString("success"));
    QVERIFY(!other->takePush("startRedirection").isEmpty());
    if (logsOut) {
        QCOMPARE(word(speaker->ask("user", "logout")), QString("success"));
    } else {
        speaker.reset();
    }
    QVERIFY(!other->takePush("stopRedirection").isEmpty());
    QVERIFY(hearing().isEmpty());
}

void TestRedirection::endedByAnother()
{
    QCOMPARE(word(speak(*speaker, "microphone", {3})), QString("success"));
    QCOMPARE(word(other->ask("playback", "stopRedirection")), QString("success"));
    QCOMPARE(speaker->takePush().value("action"), QJsonValue("stopRedirection"));
}

void TestRedirection::rightsAreAsked_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("response");
    QTest::newRow("may") << "microphone"
                         << "guard"
                         << "success";
    QTest::newRow("may not") << "microphone"
                             << "viewer"
                             << "forbidden";
    QTest::newRow("may not, alarm") << "alarm"
                                    << "viewer"
                                    << "forbidden";
    QTest::newRow("no such kind") << "song"
                                  << "admin"
                                  << "forbidden";
}

void TestRedirection::rightsAreAsked()
{
    QFETCH(QString, type);
    QFETCH(QString, name);
    Client client((*server)->port());
    QVERIFY(client.logIn(name));
    QTEST(word(speak(client, type, {3})), "response");
    QCOMPARE(word(speak(client, type, {23})) == "success", false); // unseen, or no right
}

void TestRedirection::saysWhatArrives()
{
    QStringList lines;
    connect(&**server, &simulator::Server::said, this,
            [&lines](const QString& line) { lines.append(line); });
    const int port = speak(*speaker, "microphone", {3}).value("port").toInt();
    QUdpSocket sound;
    const QByteArray packet = QByteArray::fromHex("47010010").leftJustified(188, '\0');
    for (int count = 0; count < 3; ++count) {
        sound.writeDatagram(packet, QHostAddress::LocalHost, quint16(port));
    }
    QTRY_VERIFY(lines.filter("3 packets of 188 bytes").size() == 1);
    QVERIFY(lines.filter("unknown sound").size() == 1);
    QCOMPARE(word(speaker->ask("playback", "stopRedirection")), QString("success"));
    QCOMPARE(lines.last(), QString("redirection: ended"));
}

QTEST_GUILESS_MAIN(TestRedirection)
#include "tst_redirection.moc"
