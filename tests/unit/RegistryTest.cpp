#include "app/Data.h"
#include "network/NetworkParser.h"
#include "network/TcpClient.h"
#include "protocol/Request.h"
#include "support/SessionFixture.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QTest>

namespace
{

struct Group {
    const char* name;
    const char* commands; ///< in the order of their indexes
};

const Group groups[] = {
    {"device",
     "getDevices findLostDevices getState getTitle setTitle getVolume setVolume getChannel "
     "setEqualizer getEqualizer reboot saveFirmware deleteFirmware listFirmware upgradeFirmware "
     "getProgressOfUpgrading getMemoryStamp addMessage deleteMessage listMessages addScenario "
     "deleteScenario listScenarios revertChanges getAvailableMemory uploadImage downloadImage "
     "clearMemory applyToDevice getProgressOfApplying playMessage playScenario getPlays stop "
     "getConfig setConfig measureLine exchangeHardwareAddresses addTipDevice addTipDevices "
     "removeTipDevice removeTipDevices setTipDeviceTitle getDebugInfo"},
    {"helper", "checkInternet checkServerUpdate getCurrentServerVersion getDateTime"},
    {"log", "getLevel setLevel getServerLog saveClientLog getClientLog list"},
    {"package", ""},
    {"playback",
     "addPlaylist addTrack endTrack includeTrack excludeTrack setPosition setRepetition setVolume "
     "setTitle remove list getTrack play playNext pause getPlays stop startRedirection "
     "getRedirection stopRedirection"},
    {"preset", "add edit setPosition setTitle remove list play stop"},
    {"role", "add edit delete getInfo list include exclude setRedirection getRedirection setServer "
             "getServer setTasks getTasks setZones getZones setPlaylist getPlaylist setPreset "
             "getPreset setPermissions"},
    {"server", "getSettings getNetworkInterfaceList setNetworkInterface setMulticastIp "
               "setCommandPort restartAudioServer"},
    {"task", "add edit enable delete list getPlays"},
    {"user", "add login logout delete checkAccess edit getInfo list getConnected saveValue "
             "loadValue"},
    {"zone", "add edit delete list includeDevice excludeDevice"},
};

QStringList namesOf(const NetworkProtocol& protocol)
{
    QStringList names;
    for (int index = 0; index < protocol.getCommandCount(); ++index) {
        names.append(protocol.getNetworkCommand(index).getName());
    }
    return names;
}

QJsonObject lastQueued()
{
    return QJsonDocument::fromJson(Data::tcpClient.queuedMessages().last()).object();
}

} // namespace

class RegistryTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyCommandHasItsIndex_data();
    void everyCommandHasItsIndex();
    void registryIsComplete();
    void requestsCarryTheirWireNames();
    void requestKeepsItsFields();
    void enumeratorsMeanTheirRows();
};

void RegistryTest::everyCommandHasItsIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("commands");
    int index = 0;
    for (const Group& group : groups) {
        QTest::newRow(group.name) << index++ << QString::fromLatin1(group.commands);
    }
}

void RegistryTest::everyCommandHasItsIndex()
{
    QFETCH(int, index);
    QFETCH(QString, commands);
    const SessionFixture session;
    const NetworkProtocol& protocol = Data::parser.getProtocol(index);
    QCOMPARE(protocol.getName(), QLatin1String(QTest::currentDataTag()));
    QCOMPARE(namesOf(protocol), commands.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

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

void RegistryTest::requestsCarryTheirWireNames()
{
    const SessionFixture session;
    int order = 0;
    for (int index = 0; index < Data::parser.getProtocolCount(); ++index) {
        const QStringList names = namesOf(Data::parser.getProtocol(index));
        for (int command = 0; command < names.size(); ++command) {
            QString action = names.at(command);
            if (action == QLatin1String("setMulticastIp")) {
                action = QStringLiteral("setMulticastIP");
            } else if (action == QLatin1String("restartAudioServer")) {
                action = QStringLiteral("restart");
            }
            sendRequest(static_cast<ProtocolId>(index), command, {});
            const QJsonObject expected{
                {QStringLiteral("request"), QLatin1String(groups[index].name)},
                {QStringLiteral("action"), action},
                {QStringLiteral("order"), order++}};
            QCOMPARE(lastQueued(), expected);
        }
    }
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

void RegistryTest::enumeratorsMeanTheirRows()
{
    const SessionFixture session;
    send(DeviceCommand::GetDebugInfo);
    send(HelperCommand::GetDateTime);
    send(LogCommand::List);
    send(PlaybackCommand::GetPlays);
    send(PresetCommand::Play);
    send(RoleCommand::SetPermissions);
    send(ServerCommand::SetMulticastIp);
    send(ServerCommand::Restart);
    send(TaskCommand::GetPlays);
    send(UserCommand::GetInfo);
    send(ZoneCommand::ExcludeDevice);
    QStringList sent = SessionFixture::queued();
    sent.replaceInStrings(QRegularExpression(QStringLiteral(" \\d+$")), QString());
    const QStringList expected =
        QStringLiteral("device/getDebugInfo helper/getDateTime log/list playback/getPlays "
                       "preset/play role/setPermissions server/setMulticastIP server/restart "
                       "task/getPlays user/getInfo zone/excludeDevice")
            .split(QLatin1Char(' '));
    QCOMPARE(sent, expected);
}

QTEST_GUILESS_MAIN(RegistryTest)
#include "RegistryTest.moc"
