#include "protocol/DeviceMemoryEditing.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Device.h"
#include "model/DeviceMemory.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/DeviceState.h"
#include "protocol/Forbidden.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"

namespace
{

constexpr Refusal editRefusals[] = {
    {"littleMemory", "modalAdminDeviceMemoryError"},
    {"playing", "modalAdminDevicePlayingError"},
    {"lockedByPreset", "modalAdminDevicePresetError"},
    {"busy", "modalAdminDeviceMemoryBusy"},
    {"entry", "modalAdminDeviceMessageUsed"},
    {"titleExists", "modalAdminTitleExists"},
    {"incorrectSampleRate", "modalAdminDeviceMemoryRateError"},
    {"incorrectSize", "modalAdminDeviceMemorySizeError"},
};

constexpr Refusal scenarioRefusals[] = {{"error", "modalAdminAddDeviceScenarioError"}};

template <std::size_t count> bool isNamed(const QString& word, const Refusal (&table)[count])
{
    for (const Refusal& refusal : table) {
        if (word == QLatin1String(refusal.response)) {
            return true;
        }
    }
    return false;
}

/// The word's dialog; one that nobody names says that it hasn't worked.
void showEditRefusal(const QJsonObject& reply)
{
    showRefusal(reply, editRefusals);
    if (!isNamed(response(reply), editRefusals) && !Forbidden::isAnswer(reply)) {
        Page::call("modalAdminDeviceEditError");
    }
}

QJsonObject idOf(const Device& device)
{
    return {{QStringLiteral("id"), device.getId()}};
}

/// The unit of a successful reply; null, the refusal told, for any other.
const Device* edited(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        showEditRefusal(reply);
        return nullptr;
    }
    return DeviceState::requested(reply);
}

void askForAll(const Device& device)
{
    send(DeviceCommand::GetAvailableMemory, idOf(device));
    send(DeviceCommand::ListScenarios, idOf(device));
    send(DeviceCommand::ListMessages, idOf(device));
}

} // namespace

MemoryImageHooks& memoryImageHooks()
{
    static MemoryImageHooks hooks;
    return hooks;
}

void protocolDeviceCommandAddMessage(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        Page::call("modalAdminAddDeviceMessageButtonUnblock");
    }
    const Device* const device = edited(reply);
    const auto position = Fields::integer(reply, "position");
    const auto size = Fields::integer(reply, "size");
    if (!device || !position || !size) {
        return;
    }
    const Message message{device->getId(), *position,
                          Fields::text(request(reply), "title").value_or(QString()), *size};
    Data::messageList.append(message);
    send(DeviceCommand::GetAvailableMemory, idOf(*device));
    message.addToPage(0);
    Page::call("modalAdminAddDeviceMessageButtonUnblock");
    Page::call("modalAdminAddDeviceMessageHide");
}

void protocolDeviceCommandAddScenario(const QJsonObject& reply)
{
    if (response(reply) == QLatin1String("error")) {
        showRefusal(reply, scenarioRefusals);
        return;
    }
    const Device* const device = edited(reply);
    const auto position = Fields::integer(reply, "position");
    if (!device || !position) {
        return;
    }
    const QJsonObject asked = request(reply);
    const auto number = [&asked](const char* field) {
        return Fields::integer(asked, field).value_or(0);
    };
    const Scenario scenario{device->getId(),
                            *position,
                            Fields::text(asked, "title").value_or(QString()),
                            number("priority"),
                            number("positionGong"),
                            number("positionMessage"),
                            number("repeat")};
    Data::scenarioList.append(scenario);
    send(DeviceCommand::GetAvailableMemory, idOf(*device));
    scenario.addToPage(0);
    Page::call("modalAdminAddDeviceScenarioHide");
}

void protocolDeviceCommandDeleteMessage(const QJsonObject& reply)
{
    if (const Device* const device = edited(reply)) {
        Page::call("wrapperInput_device_clearMessage");
        send(DeviceCommand::ListMessages, idOf(*device));
        send(DeviceCommand::GetAvailableMemory, idOf(*device));
    }
}

void protocolDeviceCommandDeleteScenario(const QJsonObject& reply)
{
    if (const Device* const device = edited(reply)) {
        Page::call("wrapperInput_device_clearScenario");
        send(DeviceCommand::ListScenarios, idOf(*device));
        send(DeviceCommand::GetAvailableMemory, idOf(*device));
    }
}

void protocolDeviceCommandRevertChanges(const QJsonObject& reply)
{
    if (const Device* const device = edited(reply)) {
        Page::call("deviceInfo_cleanMessageListByDevice", device->getId());
        Page::call("deviceInfo_cleanScenarioListByDevice", device->getId());
        askForAll(*device);
    }
}

void protocolDeviceCommandUploadImage(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        Page::call("modalAdminDeviceMemoryUploadHide");
    }
    if (const Device* const device = edited(reply)) {
        askForAll(*device);
        Page::call("modalAdminDeviceMemoryUploaded");
    }
}

void protocolDeviceCommandDownloadImage(const QJsonObject& reply)
{
    const auto image = takeText(reply, "image");
    if (succeeded(reply) && image && memoryImageHooks().arrived) {
        memoryImageHooks().arrived(Fields::text(request(reply), "fileName").value_or(QString()),
                                   *image);
        return;
    }
    Page::call("modalAdminDeviceMemoryDownloadHide");
    showEditRefusal(reply);
}

void protocolDeviceCommandApplyToDevice(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        const int id = Fields::integer(request(reply), "id").value_or(0);
        Page::call("wrapperInput_device_applyFinished", id, 0);
        showEditRefusal(reply);
    }
}

void protocolDeviceCommandGetProgressOfApplying(const QJsonObject& reply)
{
    const int id = Fields::integer(request(reply), "id").value_or(0);
    if (succeeded(reply)) {
        Page::call("wrapperInput_device_applyFinished", id, 1);
    } else if (response(reply) == QLatin1String("progress")) {
        Page::call("wrapperInput_device_applyProgress", id,
                   Fields::integer(reply, "progress").value_or(0));
    } else if (response(reply) == QLatin1String("error") || Forbidden::isAnswer(reply)) {
        Page::call("wrapperInput_device_applyFinished", id, 0);
    }
}
