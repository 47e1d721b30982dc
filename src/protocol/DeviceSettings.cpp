#include "protocol/DeviceSettings.h"

#include "app/Data.h"
#include "model/Device.h"
#include "page/ScriptCall.h"
#include "protocol/DeviceState.h"
#include "protocol/FieldSetter.h"
#include "protocol/Forbidden.h"
#include "protocol/Reply.h"

namespace
{

constexpr int highestPort = 0xFFFF;

/// The settings that are both told and sent. DHCP comes first: it decides which of the addresses
/// the page shows.
void readSettings(FieldSetter<Device>& set, bool withAddressesInForce)
{
    set.boolean("dhcp", &Device::setDHCP);
    if (withAddressesInForce) {
        set.text("ip", &Device::setIp);
        set.text("mask", &Device::setNetworkMask);
        set.text("gateway", &Device::setGateway);
    }
    set.text("staticIp", &Device::setStaticIp);
    set.text("staticMask", &Device::setStaticNetworkMask);
    set.text("staticGateway", &Device::setStaticGateway);
    set.text("multicastIp", &Device::setMulticastIp);
    set.integer("commandPort", &Device::setCommandPort, 0, highestPort);
    set.text("allowedCommandIp", &Device::setAllowedCommandIp);
    set.boolean("tavrinRelayControl", &Device::setTavrinRelayControl);
    set.boolean("lineJoined", &Device::setLineJoined);
    set.integer("tavrinAddress", &Device::setTavrinAddress);
    set.boolean("tavrinRelayEvent", &Device::setTavrinRelayEvent);
    set.boolean("tavrinErrorIndication", &Device::setTavrinErrorIndication);
    set.boolean("multicastListen", &Device::setMulticastListen);
    set.boolean("multicastAIN0", &Device::setMulticastAIN0);
    set.boolean("multicastAIN1", &Device::setMulticastAIN1);
    set.integer("priorityAIN0", &Device::setPriorityAIN0);
    set.integer("priorityAIN1", &Device::setPriorityAIN1);
    set.integer("priorityScenario", &Device::setPriorityScenario);
    set.integer("priorityListen", &Device::setPriorityListen);
    set.integer("priorityStream", &Device::setPriorityStream);
}

void readEqualizer(FieldSetter<Device>& set)
{
    set.boolean("enabled", &Device::setEqualizerEnabled);
    const auto levels = Fields::array(set.message(), "levels");
    if (!levels) {
        set.logIgnored("levels");
        return;
    }
    for (int band = 0; band < levels->size(); ++band) {
        const QJsonValue level = levels->at(band);
        if (level.isDouble() && band < Device::bandCount) {
            set.object().setEqualizer(band, level.toDouble());
        } else {
            set.logIgnored("levels, one element");
        }
    }
}

/// The unit that the operator may not set, whose sliders go back to where they were.
const Device* forbiddenDevice(const QJsonObject& reply)
{
    return Forbidden::isAnswer(reply) ? DeviceState::requested(reply) : nullptr;
}

} // namespace

void protocolDeviceCommandGetConfig(const QJsonObject& reply)
{
    DeviceState::readReply(reply, reply, "getConfig",
                           [](FieldSetter<Device>& set) { readSettings(set, true); });
}

void protocolDeviceCommandSetConfig(const QJsonObject& reply)
{
    DeviceState::readReply(reply, request(reply), "setConfig", [](FieldSetter<Device>& set) {
        readSettings(set, false);
        Page::call(Data::deviceSave ? "modalAdminDeviceSaveShow" : "modalAdminTitleExists");
    });
    if (response(reply) == QLatin1String("error")) {
        Page::call("modalAdminDeviceSaveErrorShow");
    }
}

void protocolDeviceCommandGetVolume(const QJsonObject& reply)
{
    DeviceState::readReply(reply, reply, "getVolume", DeviceState::readVolume);
}

void protocolDeviceCommandSetVolume(const QJsonObject& reply)
{
    DeviceState::readReply(reply, request(reply), "setVolume", DeviceState::readVolume);
    if (const Device* const device = forbiddenDevice(reply)) {
        device->showVolume();
    }
}

void protocolDeviceCommandGetEqualizer(const QJsonObject& reply)
{
    DeviceState::readReply(reply, reply, "getEqualizer", readEqualizer);
}

void protocolDeviceCommandSetEqualizer(const QJsonObject& reply)
{
    DeviceState::readReply(reply, request(reply), "setEqualizer", readEqualizer);
    if (const Device* const device = forbiddenDevice(reply)) {
        device->showEqualizer();
    }
}
