#include "view/WebView.h"

#include "app/Data.h"
#include "log/LogSettings.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Role.h"
#include "model/Zone.h"
#include "page/ScriptCall.h"
#include "protocol/DeviceState.h"
#include "protocol/Request.h"
#include "protocol/ZoneMembership.h"
#include "view/EqualizerLevels.h"
#include "view/ScriptPipe.h"
#include "view/SlotLog.h"

namespace
{

QJsonObject idOf(int id)
{
    return {{QStringLiteral("id"), id}};
}

/// What the lists of the administration show of a unit beside its name.
void showInList(const Device& device)
{
    const int id = device.getId();
    const bool isOnline = device.getStatus() == DeviceOnline;
    Page::call("wrapperInput_device_add", id, device.getName(),
               static_cast<int>(device.getStatus()), 0, 0, mayManageZones());
    Page::call("wrapperInput_device_setAvailableMemory", id,
               isOnline ? device.getAvailableMemory() : -1);
    Page::call("wrapperInput_device_setVersion", id, device.getVersionMain(),
               device.getVersionPss(), device.getVersionLnCtrl(),
               isOnline ? device.getVersionMainText() : QStringLiteral("Отключен"));
}

void showAddresses(int id, const QString& ip, const QString& mask, const QString& gateway)
{
    Page::call("wrapperInput_device_setIp", id, ip);
    Page::call("wrapperInput_device_setNetworkMask", id, mask);
    Page::call("wrapperInput_device_setGateway", id, gateway);
}

/// The addresses that count: without DHCP those that would be saved again.
void showAddresses(const Device& device, bool dhcp)
{
    if (dhcp) {
        showAddresses(device.getId(), device.getIp(), device.getNetworkMask(), device.getGateway());
    } else {
        showAddresses(device.getId(), device.getStaticIp(), device.getStaticNetworkMask(),
                      device.getStaticGateway());
    }
}

void showIdentity(const Device& device)
{
    const int id = device.getId();
    Page::call("wrapperInput_device_setId", id);
    Page::call("wrapperInput_device_setName", id, device.getName());
    if (device.getStatus() == DeviceOnline) {
        Page::call("wrapperInput_device_linkOn", id, static_cast<int>(DeviceOnline));
    } else {
        Page::call("wrapperInput_device_linkOff", id, static_cast<int>(DeviceOffline));
    }
}

void showNetwork(const Device& device)
{
    const int id = device.getId();
    Page::call("wrapperInput_device_setDHCP", id, device.getDHCP(),
               static_cast<int>(device.getStatus()));
    device.showVersion();
    Page::call("wrapperInput_device_setMac", id, device.getMac());
    showAddresses(device, device.getDHCP());
}

void showSettings(const Device& device)
{
    const int id = device.getId();
    Page::call("wrapperInput_device_setMulticastIp", id, device.getMulticastIp());
    Page::call("wrapperInput_device_setCommandPort", id, device.getcommandPort());
    Page::call("wrapperInput_device_setAllowedCommandIp", id, device.getAllowedCommandIp());
    Page::call("wrapperInput_device_setTavrinRelayControl", id, device.getTavrinRelayControl());
    Page::call("wrapperInput_device_setLineJoined", id, device.getLineJoined());
    Page::call("wrapperInput_device_setTavrinAddress", id, device.getTavrinAddress());
    Page::call("wrapperInput_device_setTavrinRelayEvent", id, device.getTavrinRelayEvent());
    Page::call("wrapperInput_device_setTavrinErrorIndication", id,
               device.getTavrinErrorIndication());
    Page::call("wrapperInput_device_setMulticastListen", id, device.getMulticastListen());
    Page::call("wrapperInput_device_setMulticastAIN0", id, device.getMulticastAIN0());
    Page::call("wrapperInput_device_setMulticastAIN1", id, device.getMulticastAIN1());
    Page::call("wrapperInput_device_setPriorityAIN0", id, device.getPriorityAIN0());
    Page::call("wrapperInput_device_setPriorityAIN1", id, device.getPriorityAIN1());
    Page::call("wrapperInput_device_setPriorityScenario", id, device.getPriorityScenario());
    Page::call("wrapperInput_device_setPriorityListen", id, device.getPriorityListen());
    Page::call("wrapperInput_device_setPriorityStream", id, device.getPriorityStream());
}

void showZones(const Device& device)
{
    for (const Zone& zone : Data::zoneList) {
        ZoneMembership::showExcluded(zone.getId(), device.getId());
    }
    for (const int zoneId : device.getZoneList()) {
        ZoneMembership::showIncluded(zoneId, device.getId());
    }
}

/// What a unit of the older generation is sent whatever the page holds: it has no such inputs.
const QJsonObject fixedSources{{"multicastListen", false}, {"multicastAIN0", false},
                               {"multicastAIN1", false},   {"priorityAIN0", 4},
                               {"priorityAIN1", 3},        {"priorityScenario", 2},
                               {"priorityListen", 1},      {"priorityStream", 0}};

QJsonObject settingsToSend(const Device& device, const QVariantMap& settings)
{
    QJsonObject fields = idOf(device.getId());
    for (const char* const name :
         {"dhcp", "tavrinRelayControl", "lineJoined", "tavrinRelayEvent", "tavrinErrorIndication",
          "multicastListen", "multicastAIN0", "multicastAIN1"}) {
        fields.insert(QLatin1String(name), settings.value(QLatin1String(name)).toBool());
    }
    for (const char* const name : {"commandPort", "tavrinAddress", "priorityAIN0", "priorityAIN1",
                                   "priorityScenario", "priorityListen", "priorityStream"}) {
        fields.insert(QLatin1String(name), settings.value(QLatin1String(name)).toInt());
    }
    for (const char* const name :
         {"staticIp", "staticMask", "staticGateway", "multicastIp", "allowedCommandIp"}) {
        fields.insert(QLatin1String(name), settings.value(QLatin1String(name)).toString());
    }
    if (fields.value("dhcp").toBool()) { // the page shows those in force then
        fields.insert(QStringLiteral("staticIp"), device.getStaticIp());
        fields.insert(QStringLiteral("staticMask"), device.getStaticNetworkMask());
        fields.insert(QStringLiteral("staticGateway"), device.getStaticGateway());
    }
    for (auto field = fixedSources.begin(); !device.hasTenBands() && field != fixedSources.end();
         ++field) {
        fields.insert(field.key(), field.value());
    }
    return fields;
}

} // namespace

void WebView::admin_loadDeviceList()
{
    const SlotLog log("admin_loadDeviceList", {}, LogLevel::DeviceSettings);
    replayDevices(showInList);
    if (!Data::deviceList.isEmpty()) {
        const int first = Data::deviceList.at(0)->getId();
        admin_selectDevice(first);
        admin_selectMemoryDevice(first);
        admin_selectLineControlDevice(first);
    }
}

void WebView::admin_selectDevice(int id)
{
    const SlotLog log("admin_selectDevice", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    {
        const ScriptPipe::Gathering page(scripts);
        if (const Device* const device = Data::getDeviceById(id)) {
            showIdentity(*device);
            showNetwork(*device);
            device->showVolume();
            device->showEqualizer();
            showSettings(*device);
            showZones(*device);
            if (!Data::debugMode) {
                Page::call("wrapperInput_device_hideDebugInfo");
            }
        }
        if (const Role* const role = Data::getCurrentRole()) {
            Page::call("wrapperInput_roleGlobal_editZoneManagement", role->getId(), role->getName(),
                       role->getZoneManagement());
        }
    }
    scripts.flush();
}

void WebView::admin_findLostDevices()
{
    const SlotLog log("admin_findLostDevices", {}, LogLevel::DeviceSettings);
    send(DeviceCommand::FindLostDevices, {{QStringLiteral("force"), false}});
}

void WebView::admin_deleteDevice(int id, bool force)
{
    const SlotLog log("admin_deleteDevice", QStringLiteral(": %1, %2").arg(id).arg(force),
                      LogLevel::DeviceSettings);
    if (Data::getDeviceById(id)) {
        send(ZoneCommand::ExcludeDevice, {{QStringLiteral("deviceId"), id},
                                          {QStringLiteral("force"), force},
                                          {QStringLiteral("recursively"), true},
                                          {QStringLiteral("zoneId"), Zone::everything}});
    }
}

void WebView::admin_replaceDevice(int id, int withDevice)
{
    const SlotLog log("admin_replaceDevice", QStringLiteral(": %1, %2").arg(id).arg(withDevice),
                      LogLevel::DeviceSettings);
    if (Data::getDeviceById(id)) {
        send(DeviceCommand::ExchangeHardwareAddresses,
             {{QStringLiteral("id"), id}, {QStringLiteral("withDevice"), withDevice}});
    }
}

void WebView::admin_editDeviceName(int id, const QString& title)
{
    const SlotLog log("admin_editDeviceName", QStringLiteral(": %1, ").arg(id) + title,
                      LogLevel::DeviceSettings);
    Data::deviceSave = true;
    send(DeviceCommand::SetTitle, {{QStringLiteral("id"), id}, {QStringLiteral("title"), title}});
}

void WebView::admin_editDeviceSettings(int id, const QVariantMap& settings)
{
    const SlotLog log("admin_editDeviceSettings", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    if (const Device* const device = Data::getDeviceById(id)) {
        send(DeviceCommand::SetConfig, settingsToSend(*device, settings));
    }
}

void WebView::admin_setDeviceEqualizer(int id, bool enabled, const QVariantList& levels)
{
    const SlotLog log("admin_setDeviceEqualizer", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    sendEqualizer(id, enabled, levels);
}

void WebView::admin_changeDeviceDHCPMode(int id, int mode)
{
    const SlotLog log("admin_changeDeviceDHCPMode", QStringLiteral(": %1, %2").arg(id).arg(mode),
                      LogLevel::DeviceSettings);
    if (const Device* const device = Data::getDeviceById(id)) {
        showAddresses(*device, mode != 0);
    }
}

void WebView::admin_rebootDevice(int id)
{
    const SlotLog log("admin_rebootDevice", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    send(DeviceCommand::Reboot, idOf(id));
}

void WebView::admin_measureDeviceLine(int id)
{
    const SlotLog log("admin_measureDeviceLine", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    send(DeviceCommand::MeasureLine, idOf(id));
}

void WebView::admin_getDebugInfo(int id)
{
    const SlotLog log("admin_getDebugInfo", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    send(DeviceCommand::GetDebugInfo,
         {{QStringLiteral("id"), id}, {QStringLiteral("target"), QStringLiteral("common")}});
}
