#include "simulator/Client.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QNetworkInterface>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QUdpSocket>
#include <QtTest>

#include <csignal>

/// The program as a script starts it.
class TestProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void runs_data();
    void runs();
    void refusesToStart_data();
    void refusesToStart();
};

void TestProgram::runs_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("terminate") << SIGTERM;
    QTest::newRow("interrupt") << SIGINT;
    QTest::newRow("typed") << 0;
}

/// It says where it listens, announces itself, lets a gong end in spite of --quiet, and ends.
void TestProgram::runs()
{
    QFETCH(int, signal);
    QUdpSocket listener;
    QVERIFY(listener.bind(QHostAddress(QHostAddress::AnyIPv4), 0));
    const auto interfaces = QNetworkInterface::allInterfaces();
    const auto loopback =
        std::find_if(interfaces.begin(), interfaces.end(), [](const QNetworkInterface& one) {
            return one.flags() & QNetworkInterface::IsLoopBack;
        });
    QVERIFY(listener.joinMulticastGroup(QHostAddress("224.0.224.1"), *loopback));
    const QTemporaryDir folder;
    QProcess program;
    program.start(SIMULATOR_PROGRAM, {"--data", folder.path(), "--port", "0", "--quiet",
                                      "--announce-port", QString::number(listener.localPort())});
    QTRY_VERIFY_WITH_TIMEOUT(program.canReadLine(), 60000);
    const QByteArray said = program.readLine().trimmed();
    QVERIFY2(said.startsWith("Listening on 127.0.0.1:"), said.constData());
    const quint16 port = said.split(':').last().toUShort();
    QTRY_VERIFY(listener.hasPendingDatagrams());
    QByteArray datagram(int(listener.pendingDatagramSize()), '\0');
    QVERIFY(listener.readDatagram(datagram.data(), datagram.size()) > 0);
    QCOMPARE(QJsonDocument::fromJson(datagram).object()["port"].toInt(), int(port));

    Client client(port);
    QVERIFY(client.logIn("admin"));
    if (signal == 0) {
        client.ask("playback", "play",
                   {{"playlistId", 7}, {"trackId", 171}, {"devices", QJsonArray{3}}});
        QCOMPARE(client.takePush("stop").value("id"), QJsonValue(3));
        program.write("drop\n");
        QVERIFY(client.waitForEnd());
        program.write("quit\n");
    } else {
        program.closeWriteChannel(); // the end of its input doesn't end it
        QVERIFY(client.ask("user", "getInfo").contains("name"));
        ::kill(pid_t(program.processId()), signal);
    }
    QTRY_COMPARE(program.state(), QProcess::NotRunning);
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
}

void TestProgram::refusesToStart_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("port") << QStringList{"--port", "65536"} << QByteArray("--port");
    QTest::newRow("devices") << QStringList{"--devices", "-1"} << QByteArray("--devices");
    QTest::newRow("address") << QStringList{"--address", "nowhere"} << QByteArray("--address");
    QTest::newRow("interface") << QStringList{"--announce-interface", "none"} << QByteArray("none");
    QTest::newRow("unknown option") << QStringList{"--noise"} << QByteArray("noise");
    QTest::newRow("argument") << QStringList{"noise"} << QByteArray("noise");
    QTest::newRow("port in use") << QStringList() << QByteArray("in use");
}

void TestProgram::refusesToStart()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, said);
    QTcpServer other;
    if (arguments.isEmpty()) {
        QVERIFY(other.listen(QHostAddress::LocalHost, 0));
        arguments = QStringList{"--port", QString::number(other.serverPort())};
    }
    const QTemporaryDir folder;
    QProcess program;
    program.start(SIMULATOR_PROGRAM,
                  QStringList{"--data", folder.path(), "--port", "0"} + arguments);
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitCode(), 1);
    const QByteArray text = program.readAllStandardError();
    QVERIFY2(text.contains(said), text.constData());
    QVERIFY(program.readAllStandardOutput().isEmpty());
}

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_program.moc"
