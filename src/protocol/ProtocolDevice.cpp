#include "protocol/Protocols.h"

#include "protocol/Commands.h"

namespace
{

constexpr CommandRow commands[] = {
    {"getDevices"},
    {"findLostDevices"},
    {"getState"},
    {"getTitle"},
    {"setTitle"},
    {"getVolume"},
    {"setVolume"},
    {"getChannel"},
    {"setEqualizer"},
    {"getEqualizer"},
    {"reboot"},
    {"saveFirmware"},
    {"deleteFirmware"},
    {"listFirmware"},
    {"upgradeFirmware"},
    {"getProgressOfUpgrading"},
    {"getMemoryStamp"},
    {"addMessage"},
    {"deleteMessage"},
    {"listMessages"},
    {"addScenario"},
    {"deleteScenario"},
    {"listScenarios"},
    {"revertChanges"},
    {"getAvailableMemory"},
    {"uploadImage"},
    {"downloadImage"},
    {"clearMemory"},
    {"applyToDevice"},
    {"getProgressOfApplying"},
    {"playMessage"},
    {"playScenario"},
    {"getPlays"},
    {"stop"},
    {"getConfig"},
    {"setConfig"},
    {"measureLine"},
    {"exchangeHardwareAddresses"},
    {"addTipDevice"},
    {"addTipDevices"},
    {"removeTipDevice"},
    {"removeTipDevices"},
    {"setTipDeviceTitle"},
    {"getDebugInfo"},
};

} // namespace

void initProtocolDevice(NetworkParser* parser)
{
    registerProtocol<DeviceCommand>(parser, "device", commands);
}
