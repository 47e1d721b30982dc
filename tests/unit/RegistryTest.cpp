#include "app/Data.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "protocol/Request.h"
#include "support/SessionFixture.h"

#include <QRegularExpression>
#include <QTest>

class RegistryTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void registryIsComplete();
    void requestKeepsItsFields();
    void enumeratorsMeanTheirRows();
};

void RegistryTest::registryIsComplete()
{
    const SessionFixture session;
    int count = 0;
    for (int index = 0; index < Data::parser.getProtocolCount(); ++index) {
        count += Data::parser.getProtocol(index).getCommandCount();
    }
    QCOMPARE(Data::parser.getProtocolCount(), 11);
    QCOMPARE(count, 131);
}

void RegistryTest::requestKeepsItsFields()
{
    const SessionFixture session;
    send(DeviceCommand::SetVolume, {{QStringLiteral("id"), 12}, {QStringLiteral("volume"), 0.5}});
    QCOMPARE(Data::tcpClient.queuedMessages().last(), QByteArray("{\n"
                                                                 "    \"action\": \"setVolume\",\n"
                                                                 "    \"id\": 12,\n"
                                                                 "    \"order\": 0,\n"
                                                                 "    \"request\": \"device\",\n"
                                                                 "    \"volume\": 0.5\n"
                                                                 "}\n"));
}

/// Commands of every protocol, the last of most and the two whose name on the wire differs: a row
/// too many or too few moves them.
void RegistryTest::enumeratorsMeanTheirRows()
{
    const SessionFixture session;
    send(DeviceCommand::GetDebugInfo);
    send(HelperCommand::GetDateTime);
    send(LogCommand::List);
    send(PlaybackCommand::StopRedirection);
    send(PresetCommand::Stop);
    send(RoleCommand::SetPermissions);
    send(ServerCommand::SetMulticastIp);
    send(ServerCommand::Restart);
    send(TaskCommand::GetPlays);
    send(UserCommand::LoadValue);
    send(ZoneCommand::ExcludeDevice);
    QStringList sent = SessionFixture::queued();
    sent.replaceInStrings(QRegularExpression(QStringLiteral(" \\d+$")), QString());
    const QStringList expected =
        QStringLiteral("device/getDebugInfo helper/getDateTime log/list playback/stopRedirection "
                       "preset/stop role/setPermissions server/setMulticastIP server/restart "
                       "task/getPlays user/loadValue zone/excludeDevice")
            .split(QLatin1Char(' '));
    QCOMPARE(sent, expected);
}

QTEST_GUILESS_MAIN(RegistryTest)
#include "RegistryTest.moc"
