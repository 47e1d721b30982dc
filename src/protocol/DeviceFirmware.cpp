#include "protocol/DeviceFirmware.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Firmware.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/Forbidden.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"

namespace
{

bool isFailure(const QString& word)
{
    return word == QLatin1String("wrongVersion") || word == QLatin1String("incorrectFirmware") ||
           word == QLatin1String("error") || word == QLatin1String("forbidden");
}

void tellFailed(int id)
{
    Page::call("wrapperInput_device_updateFinished", id, 0);
}

} // namespace

void protocolDeviceCommandListFirmware(const QJsonObject& reply)
{
    const auto list = Fields::array(reply, "list");
    if (!succeeded(reply) || !list) {
        return;
    }
    Page::call("wrapperInput_device_clearFirmware");
    Data::firmwareList.clear();
    for (const QJsonValue& element : *list) {
        const auto name = Fields::text(element.toObject(), "fileName");
        const auto version = Fields::text(element.toObject(), "version");
        if (!name || !version) {
            Log::dropped(QStringLiteral("Dropped firmware of the list: no name or version"));
            continue;
        }
        const Firmware image{*name, version->section(QLatin1Char('.'), 0, 2)};
        Page::call("wrapperInput_device_addFirmware", Data::firmwareList.size(), image.fileName,
                   image.version, 0);
        Data::firmwareList.append(image);
    }
}

void protocolDeviceCommandSaveFirmware(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        send(DeviceCommand::ListFirmware);
    }
}

void protocolDeviceCommandUpgradeFirmware(const QJsonObject& reply)
{
    const QJsonArray ids = request(reply).value(QLatin1String("ids")).toArray();
    const bool failedAll = isFailure(response(reply));
    const auto list = Fields::array(reply, "list");
    if (ids.size() == 1 || !list) {
        for (const QJsonValue& id : ids) {
            if (failedAll) {
                tellFailed(id.toInt());
            }
        }
        return;
    }
    for (const QJsonValue& value : *list) {
        const auto id = Fields::integer(value.toObject(), "id");
        if (id && isFailure(response(value.toObject()))) {
            tellFailed(*id);
        }
    }
}

void protocolDeviceCommandGetProgressOfUpgrading(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "id");
    if (!id) {
        return;
    }
    if (succeeded(reply)) {
        Page::call("wrapperInput_device_updateFinished", *id, 1);
    } else if (response(reply) == QLatin1String("error") || Forbidden::isAnswer(reply)) {
        tellFailed(*id);
    }
}
