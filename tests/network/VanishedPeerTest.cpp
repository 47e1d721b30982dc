#include "network/PeerWatch.h"
#include "protocol/Request.h"
#include "support/SessionFixture.h"
#include "support/TestServer.h"

#include "app/Data.h"
#include "network/TcpClient.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include <sched.h>

namespace
{

/// Runs the tool in the calling thread's network. True on success.
bool ip(const QString& arguments)
{
    return QProcess::execute(QStringLiteral("ip"), arguments.split(QLatin1Char(' '))) == 0;
}

/// Gives the calling thread a network of its own.
bool leaveNetwork()
{
    return unshare(CLONE_NEWNET) == 0;
}

} // namespace

/// A server whose cable is pulled: it closes nothing, and says nothing any more.
class VanishedPeerTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void pulledCableEndsTheIdleSession();
};

void VanishedPeerTest::pulledCableEndsTheIdleSession()
{
    if (!leaveNetwork()) {
        QSKIP("needs the right to make network namespaces");
    }
    const QString mainProcess = QString::number(QCoreApplication::applicationPid());
    bool linked = false;
    TestServer server(
        TestServer::Conduct::Tls,
        [&] {
            linked = leaveNetwork() &&
                     ip(QStringLiteral("link add server0 type veth peer name console0 netns ") +
                        mainProcess) &&
                     ip(QStringLiteral("addr add 198.18.0.2/30 dev server0")) &&
                     ip(QStringLiteral("link set server0 up"));
        },
        QHostAddress::AnyIPv4);
    linked = linked && ip(QStringLiteral("addr add 198.18.0.1/30 dev console0")) &&
             ip(QStringLiteral("link set console0 up"));
    if (!linked) {
        QSKIP("needs the ip tool and links between network namespaces");
    }
    server.answerAll();
    const SessionFixture session;
    QVERIFY(Data::tcpClient.connectToServer(QStringLiteral("198.18.0.2"), server.port()));
    send(HelperCommand::CheckInternet);
    QTRY_VERIFY(session.log.contains(QStringLiteral("Packet answer: ")));

    server.run([] { ip(QStringLiteral("link set server0 down")); });
    QElapsedTimer clock;
    clock.start();
    QTRY_COMPARE_WITH_TIMEOUT(session.endCount(), 1, 30000);
    constexpr int expectedSeconds =
        PeerWatch::idleSeconds + PeerWatch::probeCount * PeerWatch::probeIntervalSeconds;
    QVERIFY2(clock.elapsed() < (expectedSeconds + 4) * 1000,
             QByteArray::number(clock.elapsed()).constData());
}

QTEST_GUILESS_MAIN(VanishedPeerTest)
#include "VanishedPeerTest.moc"
