#include "simulator/Client.h"

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
    void servesUntilItIsEnded_data();
    void servesUntilItIsEnded();
    void refusesToStart_data();
    void refusesToStart();
    void announcesItself();

private:
    /// Starts the program with these arguments behind the usual ones.
    void start(QProcess& program, const QStringList& arguments);
    /// The port that it says it listens on, 0 when it says nothing.
    static quint16 portOf(QProcess& program);

    QTemporaryDir folder;
};

void TestProgram::start(QProcess& program, const QStringList& arguments)
{
    program.start(SIMULATOR_PROGRAM,
                  QStringList{"--data", folder.path(), "--port", "0", "--quiet"} + arguments);
}

quint16 TestProgram::portOf(QProcess& program)
{
    const bool told = QTest::qWaitFor([&program] { return program.canReadLine(); }, 60000);
    const QByteArray line = told ? program.readLine().trimmed() : QByteArray();
    return line.startsWith("Listening on 127.0.0.1:") ? line.split(':').last().toUShort() : 0;
}

void TestProgram::servesUntilItIsEnded_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("terminate") << SIGTERM;
    QTest::newRow("interrupt") << SIGINT;
    QTest::newRow("typed") << 0;
}

void TestProgram::servesUntilItIsEnded()
{
    QFETCH(int, signal);
    QProcess program;
    start(program, {"--no-announce"});
    const quint16 port = portOf(program);
    QVERIFY(port > 0);
    if (signal != 0) {
        program.closeWriteChannel(); // the end of its input doesn't end it
    }
    Client client(port);
    QVERIFY(client.logIn("admin"));
    if (signal != 0) {
        ::kill(pid_t(program.processId()), signal);
    } else {
        program.write("quit\n");
    }
    QVERIFY(QTest::qWaitFor([&program] { return program.state() == QProcess::NotRunning; }, 5000));
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
    QProcess program;
    start(program, arguments);
    QVERIFY(program.waitForFinished());
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QVERIFY(program.exitCode() != 0);
    const QByteArray text = program.readAllStandardError();
    QVERIFY2(text.contains(said), text.constData());
    QVERIFY(program.readAllStandardOutput().isEmpty());
}

void TestProgram::announcesItself()
{
    QUdpSocket listener;
    QVERIFY(listener.bind(QHostAddress::AnyIPv4, 11991,
                          QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint));
    QNetworkInterface loopback;
    for (const QNetworkInterface& candidate : QNetworkInterface::allInterfaces()) {
        if (candidate.flags() & QNetworkInterface::IsLoopBack) {
            loopback = candidate;
        }
    }
    QVERIFY(listener.joinMulticastGroup(QHostAddress("224.0.224.1"), loopback));
    QProcess program;
    start(program, {});
    const quint16 port = portOf(program);
    QVERIFY(port > 0);
    const QByteArray expected = "\"port\":" + QByteArray::number(port);
    QHostAddress from;
    QVERIFY(QTest::qWaitFor(
        [&] {
            QByteArray datagram(int(qMax<qint64>(listener.pendingDatagramSize(), 0)), '\0');
            return listener.hasPendingDatagrams() &&
                   listener.readDatagram(datagram.data(), datagram.size(), &from) > 0 &&
                   datagram.contains(expected);
        },
        5000));
    QCOMPARE(from, QHostAddress(QHostAddress::LocalHost));
    program.kill();
    program.waitForFinished();
}

QTEST_GUILESS_MAIN(TestProgram)
#include "tst_program.moc"
