#include "protocol/DeviceService.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Device.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/DeviceState.h"
#include "protocol/Reply.h"

namespace
{

bool isError(const QJsonObject& reply)
{
    return response(reply) == QLatin1String("error");
}

/// The line that a request named; null, with a log line, if it has gone.
LineControl* requestedLine(const QJsonObject& reply)
{
    Device* const device = DeviceState::requested(reply);
    const auto lineId = Fields::integer(request(reply), "tipId");
    if (device && lineId) {
        const auto line = device->getLines().find(static_cast<quint8>(*lineId));
        if (line != device->getLines().end() && line->first == *lineId) {
            return &line->second;
        }
    }
    Log::dropped(QStringLiteral("Ignored reply: unknown line %1").arg(lineId.value_or(0)));
    return nullptr;
}

/// What a reply about one line does to it, or the dialog of its failure.
template <class Change>
void changeLine(const QJsonObject& reply, const char* errorDialog, Change change)
{
    if (isError(reply)) {
        Page::call(errorDialog);
    }
    LineControl* const line = succeeded(reply) ? requestedLine(reply) : nullptr;
    if (line) {
        change(*line);
        DeviceState::requested(reply)->updateLinesStatus(); // a new line doesn't count
    }
}

/// The same for all lines of a unit.
void setAllNew(const QJsonObject& reply, bool areNew, const char* doneDialog,
               const char* errorDialog)
{
    if (isError(reply)) {
        Page::call(errorDialog);
    }
    Device* const device = succeeded(reply) ? DeviceState::requested(reply) : nullptr;
    if (!device) {
        return;
    }
    for (auto& [lineId, line] : device->getLines()) {
        line.setNew(areNew);
    }
    device->updateLinesStatus();
    Page::call(doneDialog);
}

} // namespace

void protocolDeviceCommandReboot(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        Page::call("modalAdminDeviceReboot");
    }
}

void protocolDeviceCommandExchangeHardwareAddresses(const QJsonObject& reply)
{
    if (succeeded(reply)) {
        Page::call("modalAdminDeviceReplace");
    } else if (isError(reply)) {
        Page::call("modalAdminDeviceReplaceError");
    }
}

void protocolDeviceCommandGetDebugInfo(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "id");
    auto text = Fields::text(reply, "debugInfo");
    if (succeeded(reply) && id && text) {
        Page::call("wrapperInput_device_debugInfo", *id, text->replace('\n', "<br>"));
    }
}

void protocolDeviceCommandMeasureLine(const QJsonObject& reply)
{
    const auto first = Fields::boolean(reply, "line1");
    const auto second = Fields::boolean(reply, "line2");
    if (!succeeded(reply) || !first || !second) {
        return;
    }
    if (*first && *second) {
        Page::call("modalAdminMeasureDeviceLine", *first, *second);
    } else {
        Page::call("modalAdminMeasureDeviceLineError", *first, *second);
    }
}

void protocolDeviceCommandAddTipDevice(const QJsonObject& reply)
{
    changeLine(reply, "modalAddLineControlError", [](LineControl& line) { line.setNew(false); });
}

void protocolDeviceCommandAddTipDevices(const QJsonObject& reply)
{
    setAllNew(reply, false, "modalAddLineControls", "modalAddLineControlError");
}

void protocolDeviceCommandRemoveTipDevice(const QJsonObject& reply)
{
    changeLine(reply, "modalDeleteLineControlError", [](LineControl& line) { line.setNew(true); });
}

void protocolDeviceCommandRemoveTipDevices(const QJsonObject& reply)
{
    setAllNew(reply, true, "modalDeleteLineControls", "modalDeleteLineControlError");
}

void protocolDeviceCommandSetTipDeviceTitle(const QJsonObject& reply)
{
    changeLine(reply, "modalEditLineControlError", [&reply](LineControl& line) {
        if (const auto title = Fields::text(request(reply), "title")) {
            line.setName(*title);
        }
    });
}
