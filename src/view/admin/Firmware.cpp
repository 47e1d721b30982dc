#include "view/WebView.h"

#include "app/Data.h"
#include "files/FileWork.h"
#include "files/FirmwareFiles.h"
#include "log/Log.h"
#include "model/Firmware.h"
#include "page/ScriptCall.h"
#include "protocol/PlayFields.h"
#include "protocol/Request.h"
#include "view/SlotLog.h"

#include <QSettings>

namespace
{

/// What the tables show: a row is the image meant only as long as they are what lies there.
FirmwareFiles::Listing shownFiles;
QStringList shownNames;

QString firmwareFolder()
{
    return Data::settings->value(QStringLiteral("path/firmware")).toString();
}

QStringList serverNames()
{
    QStringList names;
    for (const Firmware& image : qAsConst(Data::firmwareList)) {
        names.append(image.fileName);
    }
    return names;
}

void tellAllFailed(const QList<int>& ids)
{
    for (const int id : ids) {
        Page::call("wrapperInput_device_updateFinished", id, 0);
    }
}

QJsonObject forUnits(const QList<int>& ids)
{
    return {{QStringLiteral("ids"), PlayFields::idArray(ids.toVector())}};
}

} // namespace

void WebView::admin_loadDeviceFirmwareList()
{
    const SlotLog log("admin_loadDeviceFirmwareList", {}, LogLevel::DeviceSettings);
    Log::message("Load firmware list ", LogLevel::DeviceSettings);
    const FirmwareFiles::Folder folder = FirmwareFiles::read(firmwareFolder());
    shownFiles = folder.listing;
    shownNames = serverNames();
    for (const FirmwareFiles::Image& image : folder.images) {
        Page::call("wrapperInput_device_addFirmware", image.row, image.name, image.version, 1);
    }
    int index = 0;
    for (const Firmware& image : qAsConst(Data::firmwareList)) {
        Page::call("wrapperInput_device_addFirmware", index++, image.fileName, image.version, 0);
    }
}

void WebView::admin_updateDevice(int number, const QList<int>& ids, int type)
{
    const SlotLog log("admin_updateDevice", QStringLiteral(": %1, %2").arg(number).arg(type),
                      LogLevel::DeviceSettings);
    Log::message(QStringLiteral("Device list size: %1").arg(ids.size()), LogLevel::DeviceSettings);
    constexpr int ofServer = 1;
    const int row = number - 1;
    const QString name = type == ofServer
                             ? serverNames().value(row)
                             : FirmwareFiles::nameAt(firmwareFolder(), shownFiles, row);
    if (name.isEmpty() || (type == ofServer && shownNames.value(row, name) != name)) {
        tellAllFailed(ids);
        Page::call("modalAdminFirmwareChanged");
        return;
    }
    if (type == ofServer) {
        QJsonObject fields = forUnits(ids);
        fields.insert(QStringLiteral("fileName"), name);
        send(DeviceCommand::UpgradeFirmware, fields);
        return;
    }
    const QString path = firmwareFolder() + QLatin1Char('/') + name;
    fileWork.start(
        [path] { return FileWork::readEncoded(path); },
        [ids, name](const QByteArray& text) {
            if (text.isNull()) {
                tellAllFailed(ids);
                Page::call("modalAdminFileError");
                return;
            }
            Log::message(QStringLiteral("File size: %1").arg(text.size()));
            const Attachment image{QStringLiteral("firmware"), text};
            send(DeviceCommand::SaveFirmware, {{QStringLiteral("fileName"), name}}, image);
            send(DeviceCommand::UpgradeFirmware, forUnits(ids), image);
        });
}

void WebView::admin_updateDeviceInfo(const QList<int>& ids)
{
    const SlotLog log("admin_updateDeviceInfo", {}, LogLevel::DeviceSettings);
    if (isWaiting(DeviceCommand::GetProgressOfUpgrading)) {
        return; // the last round is still under way
    }
    for (const int id : ids) {
        send(DeviceCommand::GetProgressOfUpgrading, {{QStringLiteral("id"), id}});
    }
}
