#include "simulator/Client.h"
#include "simulator/ServerFixture.h"

#include <QJsonArray>
#include <QtTest>

/// What an administrator changes, and what a second console hears of it. Each row is one request
/// about unit 1 (or none), the answer, and a reading that shows whether it was taken.
class TestSettings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changes_data();
    void changes();
};

void TestSettings::changes_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QJsonObject>("fields");
    QTest::addColumn<QString>("response");
    QTest::addColumn<QString>("reading");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("value");

    const auto row = [](const char* name, const char* request, const char* action,
                        const QJsonObject& fields, const char* response, const char* reading,
                        const char* key, const QJsonValue& value) {
        QTest::newRow(name) << QString(request) << QString(action) << fields << QString(response)
                            << QString(reading) << QString(key) << value;
    };
    const QString old = "Холл, центральный вход";
    const QString longest(32, 'x');
    row("title", "device", "setTitle", {{"id", 1}, {"title", longest}}, "success", "getTitle",
        "title", longest);
    row("same title", "device", "setTitle", {{"id", 1}, {"title", old}}, "success", "getTitle",
        "title", old);
    row("title of another unit", "device", "setTitle", {{"id", 1}, {"title", "Ресепшн"}},
        "titleExists", "getTitle", "title", old);
    row("no title", "device", "setTitle", {{"id", 1}, {"title", ""}}, "error", "getTitle", "title",
        old);
    row("title too long", "device", "setTitle", {{"id", 1}, {"title", longest + 'x'}}, "error",
        "getTitle", "title", old);
    row("volume", "device", "setVolume", {{"id", 1}, {"volume", 100}}, "success", "getVolume",
        "volume", 100);
    row("volume too loud", "device", "setVolume", {{"id", 1}, {"volume", 101}}, "error",
        "getVolume", "volume", 30);
    row("volume is a text", "device", "setVolume", {{"id", 1}, {"volume", "7"}}, "error",
        "getVolume", "volume", 30);
    const QJsonArray bands{1, 2, 3, 4, 5, 6, -1, -2, -3, -4};
    row("equalizer", "device", "setEqualizer", {{"id", 1}, {"enabled", true}, {"levels", bands}},
        "success", "getEqualizer", "levels", bands);
    row("equalizer of the other hardware", "device", "setEqualizer",
        {{"id", 1}, {"enabled", true}, {"levels", QJsonArray{1, 2}}}, "error", "getEqualizer",
        "enabled", false);
    row("static address", "device", "setConfig",
        {{"id", 1}, {"dhcp", false}, {"staticIp", "10.20.9.9"}}, "success", "getConfig", "ip",
        "10.20.9.9");
    row("static address behind DHCP", "device", "setConfig",
        {{"id", 1}, {"dhcp", true}, {"staticIp", "10.20.9.9"}}, "success", "getConfig", "ip",
        "10.20.0.3");
    row("no address", "device", "setConfig", {{"id", 1}, {"tavrinAddress", 5}, {"staticIp", "x"}},
        "error", "getConfig", "tavrinAddress", 127);
    row("no port", "device", "setConfig", {{"id", 1}, {"commandPort", 65536}}, "error", "getConfig",
        "commandPort", 11990);
    row("switch is a number", "device", "setConfig", {{"id", 1}, {"multicastListen", 1}}, "error",
        "getConfig", "multicastListen", false);
    row("interface", "server", "setNetworkInterface", {{"ip", "192.168.7.1"}}, "success",
        "getSettings", "networkInterface", "192.168.7.1");
    row("default interface", "server", "setNetworkInterface", {{"ip", ""}}, "success",
        "getSettings", "networkInterface", "");
    row("unknown interface", "server", "setNetworkInterface", {{"ip", "10.0.0.1"}}, "error",
        "getSettings", "networkInterface", "10.20.0.2");
    row("multicast address", "server", "setMulticastIP", {{"ip", "224.0.224.9"}}, "success",
        "getSettings", "multicastIP", "224.0.224.9");
    row("no multicast address", "server", "setMulticastIP", {{"ip", "10.0.0.1"}}, "error",
        "getSettings", "multicastIP", "224.0.224.1");
    row("command port", "server", "setCommandPort", {{"port", 12000}}, "success", "getSettings",
        "commandPort", 12000);
    row("port that is taken", "server", "setCommandPort", {{"port", 11991}}, "busy", "getSettings",
        "commandPort", 11990);
    row("log level", "log", "setLevel", {{"maximumLevel", true}}, "success", "getLevel",
        "maximumLevel", true);
    row("log level is a number", "log", "setLevel", {{"maximumLevel", 1}}, "error", "getLevel",
        "maximumLevel", false);
}

void TestSettings::changes()
{
    QFETCH(QString, request);
    QFETCH(QString, action);
    QFETCH(QJsonObject, fields);
    QFETCH(QString, response);
    QFETCH(QString, reading);
    QFETCH(QString, key);
    ServerFixture server;
    Client client(server->port());
    Client other(server->port());
    QVERIFY(other.logIn("admin"));
    QVERIFY(client.logIn("admin"));
    other.takePush();

    QCOMPARE(client.ask(request, action, fields).value("response").toString(), response);
    QTEST(client.ask(request, reading, {{"id", fields.value("id")}}).value(key), "value");
    other.ask("user", "getInfo");
    QCOMPARE(!other.pushes.isEmpty(), response == "success");
    QVERIFY(client.pushes.isEmpty());
}

QTEST_GUILESS_MAIN(TestSettings)
#include "tst_settings.moc"
