#include "view/WebView.h"

#include "app/Data.h"
#include "log/LogSettings.h"
#include "model/Device.h"
#include "page/ScriptCall.h"
#include "protocol/Request.h"
#include "view/SlotLog.h"

namespace
{

/// Sends a request about a unit, or one of its lines, unless the unit has gone.
void sendToUnit(DeviceCommand command, int id, const QJsonObject& more = {})
{
    if (Data::getDeviceById(id)) {
        QJsonObject fields{{QStringLiteral("id"), id}};
        for (auto field = more.begin(); field != more.end(); ++field) {
            fields.insert(field.key(), field.value());
        }
        send(command, fields);
    }
}

QJsonObject line(int tipId)
{
    return {{QStringLiteral("tipId"), tipId}};
}

} // namespace

void WebView::admin_selectLineControlDevice(int id)
{
    const SlotLog log("admin_selectLineControlDevice", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    if (const Device* const device = Data::getDeviceById(id)) {
        Page::call("wrapperInput_device_setId", id);
        device->showVersion();
        for (const auto& [lineId, lineControl] : device->getLines()) {
            lineControl.addToPage(device->isLinesEditable());
        }
    }
}

void WebView::admin_getLineControlForDevice(int id)
{
    const SlotLog log("admin_getLineControlForDevice", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    sendToUnit(DeviceCommand::GetState, id);
}

void WebView::admin_addLineControlForDevice(int deviceId, int tipId)
{
    const SlotLog log("admin_addLineControlForDevice",
                      QStringLiteral(": %1, %2").arg(deviceId).arg(tipId),
                      LogLevel::DeviceSettings);
    sendToUnit(DeviceCommand::AddTipDevice, deviceId, line(tipId));
}

void WebView::admin_addLineControlForDevices(int deviceId)
{
    const SlotLog log("admin_addLineControlForDevices", QStringLiteral(": %1").arg(deviceId),
                      LogLevel::DeviceSettings);
    sendToUnit(DeviceCommand::AddTipDevices, deviceId);
}

void WebView::admin_deleteLineControlForDevice(int deviceId, int tipId)
{
    const SlotLog log("admin_deleteLineControlForDevice",
                      QStringLiteral(": %1, %2").arg(deviceId).arg(tipId),
                      LogLevel::DeviceSettings);
    sendToUnit(DeviceCommand::RemoveTipDevice, deviceId, line(tipId));
}

void WebView::admin_deleteLineControlForDevices(int deviceId)
{
    const SlotLog log("admin_deleteLineControlForDevices", QStringLiteral(": %1").arg(deviceId),
                      LogLevel::DeviceSettings);
    sendToUnit(DeviceCommand::RemoveTipDevices, deviceId);
}

void WebView::admin_editLineControlForDevice(int deviceId, int tipId, const QString& title)
{
    const SlotLog log("admin_editLineControlForDevice",
                      QStringLiteral(": %1, %2, ").arg(deviceId).arg(tipId) + title,
                      LogLevel::DeviceSettings);
    QJsonObject fields = line(tipId);
    fields.insert(QStringLiteral("title"), title);
    sendToUnit(DeviceCommand::SetTipDeviceTitle, deviceId, fields);
}
