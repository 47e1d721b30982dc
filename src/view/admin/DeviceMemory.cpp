#include "view/WebView.h"

#include "app/Data.h"
#include "files/FileName.h"
#include "files/FileWork.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/MemoryEntries.h"
#include "page/ScriptCall.h"
#include "protocol/Request.h"
#include "view/ScriptPipe.h"
#include "view/SlotLog.h"

#include <QDir>
#include <QSettings>

namespace
{

/// Whether a unit can be told something; the operator is told of one that isn't online.
bool isReachable(int id)
{
    const Device* const device = Data::getDeviceById(id);
    if (device && device->getStatus() != DeviceOnline) {
        Page::call("modalAdminDeviceOfflineError");
        return false;
    }
    return true;
}

void sendToUnit(DeviceCommand command, int id, QJsonObject fields = {})
{
    if (isReachable(id)) {
        fields.insert(QStringLiteral("id"), id);
        send(command, fields);
    }
}

QString imageFolder()
{
    return Data::settings->value(QStringLiteral("path/message")).toString();
}

const QString imageEnding = QStringLiteral(".a-bin");

template <class Entry>
void showEntries(const QVector<Entry>& entries, const char* what, int playing, int group)
{
    for (const Entry& entry : entries) {
        Log::message(QLatin1String(what) + entry.title, LogLevel::DeviceSettings);
        entry.addToPage(entry.position == playing ? group : 0);
    }
}

} // namespace

void WebView::admin_selectMemoryDevice(int id)
{
    const SlotLog log("admin_selectMemoryDevice", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    const Device* const device = Data::getDeviceById(id);
    if (!device) {
        return;
    }
    {
        const ScriptPipe::Gathering lists(scripts);
        const int group = device->getPlaybackGroupId();
        Page::call("wrapperInput_device_setId", id);
        Page::call("deviceInfo_cleanMessageList");
        showEntries(MemoryEntries::getDeviceMessages(id),
                    "Found message: ", device->getMessagePlaying(), group);
        Page::call("deviceInfo_cleanScenarioList");
        showEntries(MemoryEntries::getDeviceScenarios(id),
                    "Found scenario: ", device->getScenarioPlaying(), group);
        Page::call("deviceInfo_changePlaying", id, qMax(group, 0));
    }
    scripts.flush();
}

void WebView::admin_addDeviceMessage(int id, const QString& title, const QString& filePath)
{
    const SlotLog log("admin_addDeviceMessage", QStringLiteral(": %1, ").arg(id) + title,
                      LogLevel::DeviceSettings);
    const Device* const device = Data::getDeviceById(id);
    const qint64 size = QFileInfo(filePath).size();
    if (!isReachable(id)) {
        Page::call("modalAdminAddDeviceMessageButtonUnblock");
        return;
    }
    if (device && size > device->getAvailableMemory()) {
        Page::call("modalAdminAddDeviceMessageButtonUnblock");
        Page::call("modalAdminDeviceMemoryError");
        return;
    }
    fileWork.start([filePath] { return FileWork::readEncoded(filePath); },
                   [id, title, size](const QByteArray& text) {
                       if (text.isNull()) {
                           Page::call("modalAdminAddDeviceMessageButtonUnblock");
                           Page::call("modalAdminFileError");
                       } else if (Data::getDeviceById(id)) {
                           send(DeviceCommand::AddMessage,
                                {{QStringLiteral("id"), id},
                                 {QStringLiteral("title"), title},
                                 {QStringLiteral("size"), size}},
                                {QStringLiteral("track"), text});
                       }
                   });
}

void WebView::admin_deleteDeviceMessage(int id, int position)
{
    const SlotLog log("admin_deleteDeviceMessage", QStringLiteral(": %1, %2").arg(id).arg(position),
                      LogLevel::DeviceSettings);
    sendToUnit(DeviceCommand::DeleteMessage, id, {{QStringLiteral("position"), position}});
}

void WebView::admin_addDeviceScenario(int id, const QString& title, int priority, int positionGong,
                                      int positionMessage, int repeat)
{
    const SlotLog log("admin_addDeviceScenario", QStringLiteral(": %1, ").arg(id) + title,
                      LogLevel::DeviceSettings);
    sendToUnit(DeviceCommand::AddScenario, id,
               {{QStringLiteral("title"), title},
                {QStringLiteral("priority"), priority},
                {QStringLiteral("positionGong"), positionGong},
                {QStringLiteral("positionMessage"), positionMessage},
                {QStringLiteral("repeat"), repeat}});
}

void WebView::admin_deleteDeviceScenario(int id, int position)
{
    const SlotLog log("admin_deleteDeviceScenario",
                      QStringLiteral(": %1, %2").arg(id).arg(position), LogLevel::DeviceSettings);
    sendToUnit(DeviceCommand::DeleteScenario, id, {{QStringLiteral("position"), position}});
}

void WebView::admin_applyDeviceMemory(int id)
{
    const SlotLog log("admin_applyDeviceMemory", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    if (isReachable(id)) {
        send(DeviceCommand::ApplyToDevice, {{QStringLiteral("id"), id}});
        send(DeviceCommand::GetProgressOfApplying, {{QStringLiteral("id"), id}});
    } else {
        Page::call("wrapperInput_device_applyFinished", id, 0);
    }
}

void WebView::admin_updateDeviceApplyInfo(int id)
{
    const SlotLog log("admin_updateDeviceApplyInfo", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    if (!isWaiting(DeviceCommand::GetProgressOfApplying)) {
        send(DeviceCommand::GetProgressOfApplying, {{QStringLiteral("id"), id}});
    }
}

void WebView::admin_revertDeviceMemory(int id)
{
    const SlotLog log("admin_revertDeviceMemory", QStringLiteral(": %1").arg(id),
                      LogLevel::DeviceSettings);
    sendToUnit(DeviceCommand::RevertChanges, id);
}

void WebView::admin_loadDeviceMemoryList()
{
    const SlotLog log("admin_loadDeviceMemoryList", {}, LogLevel::DeviceSettings);
    const QFileInfoList images =
        QDir(imageFolder()).entryInfoList({QLatin1Char('*') + imageEnding}, QDir::Files);
    for (const QFileInfo& image : images) {
        Page::call("wrapperInput_device_addDeviceMemory", image.fileName(), image.size());
    }
}

void WebView::admin_downloadDeviceMemory(int id, const QString& fileName)
{
    const SlotLog log("admin_downloadDeviceMemory", QStringLiteral(": %1, ").arg(id) + fileName,
                      LogLevel::DeviceSettings);
    if (!Files::isPlainName(fileName + imageEnding)) {
        Page::call("modalAdminFileError");
    } else if (isReachable(id)) {
        Page::call("modalAdminDeviceMemoryDownload");
        send(DeviceCommand::DownloadImage,
             {{QStringLiteral("id"), id}, {QStringLiteral("fileName"), fileName}});
    }
}

void WebView::saveMemoryImage(const QString& name, const QByteArray& base64)
{
    if (!Files::isPlainName(name + imageEnding)) {
        Log::message(QStringLiteral("No name for an image: ") + name);
        Page::call("modalAdminDeviceMemoryDownloadHide");
        Page::call("modalAdminFileError");
        return;
    }
    const QString path = imageFolder() + QLatin1Char('/') + name + imageEnding;
    fileWork.start(
        [path, base64] {
            return FileWork::writeDecoded(path, base64) ? QByteArray("done") : QByteArray();
        },
        [](const QByteArray& outcome) {
            if (outcome.isNull()) {
                Page::call("modalAdminDeviceMemoryDownloadHide");
                Page::call("modalAdminFileError");
            } else {
                Page::call("modalAdminDeviceMemoryDownloaded");
            }
        });
}

void WebView::admin_uploadDeviceMemory(int id, const QString& fileName)
{
    const SlotLog log("admin_uploadDeviceMemory", QStringLiteral(": %1, ").arg(id) + fileName,
                      LogLevel::DeviceSettings);
    if (!Files::isPlainName(fileName)) {
        Page::call("modalAdminFileError");
        return;
    }
    if (!isReachable(id)) {
        return;
    }
    Page::call("modalAdminDeviceMemoryUpload");
    const QString path = imageFolder() + QLatin1Char('/') + fileName;
    fileWork.start([path] { return FileWork::readEncoded(path); },
                   [id](const QByteArray& text) {
                       if (text.isNull()) {
                           Page::call("modalAdminDeviceMemoryUploadHide");
                           Page::call("modalAdminFileError");
                       } else if (Data::getDeviceById(id)) {
                           send(DeviceCommand::UploadImage, {{QStringLiteral("id"), id}},
                                {QStringLiteral("image"), text});
                       }
                   });
}
