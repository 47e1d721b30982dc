#include "protocol/DeviceMemory.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/DeviceMemory.h"
#include "model/MemoryEntries.h"
#include "model/ModelList.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/DeviceState.h"
#include "protocol/FieldSetter.h"
#include "protocol/Reply.h"

namespace
{

constexpr Refusal playRefusals[] = {
    {"changes", "modalDeviceMemoryChangeError"},
    {"busy", "modalDeviceMemoryBusy"},
    // Each page has one of the two.
    {"playing", "modalDevicePlayingError"},
    {"playing", "modalAdminDevicePlayingError"},
    {"wait", "modalDeviceWait"},
};

std::optional<Message> readMessage(int deviceId, const QJsonObject& element)
{
    const auto position = Fields::integer(element, "position");
    const auto title = Fields::text(element, "title");
    const auto size = Fields::integer(element, "size");
    if (!position || !title || !size) {
        return std::nullopt;
    }
    return Message{deviceId, *position, *title, *size};
}

std::optional<Scenario> readScenario(int deviceId, const QJsonObject& element)
{
    const auto position = Fields::integer(element, "position");
    const auto title = Fields::text(element, "title");
    const auto priority = Fields::integer(element, "priority");
    const auto gong = Fields::integer(element, "positionGong");
    const auto message = Fields::integer(element, "positionMessage");
    const auto repeat = Fields::integer(element, "repeat");
    if (!position || !title || !priority || !gong || !message || !repeat) {
        return std::nullopt;
    }
    return Scenario{deviceId, *position, *title, *priority, *gong, *message, *repeat};
}

/// Takes over the entries of a list reply in place of those that were known of its unit.
template <class Entry>
void takeList(const QJsonObject& reply, QVector<Entry>& entries, void (*forget)(int deviceId),
              std::optional<Entry> (*read)(int deviceId, const QJsonObject& element))
{
    const auto list = Fields::array(reply, "list");
    const Device* const device = DeviceState::requested(reply);
    if (!succeeded(reply) || !list || !device) {
        Log::dropped(QStringLiteral("Ignored list of a unit's memory"));
        return;
    }
    forget(device->getId());
    for (const QJsonValue& element : *list) {
        const auto entry = read(device->getId(), element.toObject());
        if (!entry) {
            Log::dropped(QStringLiteral("Dropped entry of a unit's memory"));
            continue;
        }
        entries.append(*entry);
        entry->addToPage(0);
    }
}

/// What of the unit's memory plays: one of the two positions, the other is -1.
void setPlaying(Device& device, int messagePosition, int scenarioPosition)
{
    device.setMessagePlaying(messagePosition);
    device.setScenarioPlaying(scenarioPosition);
}

/// The common end of a start from memory.
void started(const QJsonObject& reply, PlaybackCategory::Number category)
{
    Log::message("Start play message");
    if (!succeeded(reply)) {
        showRefusal(reply, playRefusals);
        return;
    }
    Device* const device = DeviceState::requested(reply);
    const auto groupId = Fields::integer(reply, "playbackGroupId");
    const auto position = Fields::integer(request(reply), "position");
    if (!device || !groupId || !position) {
        Log::dropped(QStringLiteral("Ignored start from memory"));
        return;
    }
    const bool isMessage = category == PlaybackCategory::MemoryMessage;
    device->setPlaybackGroupId(*groupId);
    setPlaying(*device, isMessage ? *position : -1, isMessage ? -1 : *position);
    device->setPlayback(0);
    device->setPlaybackCategory(category);
    Page::call("deviceInfo_hideMessages");
    Page::call("deviceInfo_changePlaying", device->getId(), *groupId);
}

/// Takes over one group that plays from memory; one that can't be read is dropped.
void takeGroup(const QJsonObject& group)
{
    const auto id = Fields::integer(group, "id");
    const auto type = Fields::text(group, "type");
    const auto reported = Fields::integer(group, "position");
    const auto devices = Fields::array(group, "devices");
    const bool isMessage = type == QStringLiteral("message");
    if (!id || !reported || !devices || (!isMessage && type != QStringLiteral("scenario"))) {
        Log::dropped(QStringLiteral("Dropped group of playbacks from memory"));
        return;
    }
    const int position = qMax(*reported, 0);
    for (const QJsonValue& value : *devices) {
        const auto deviceId = Fields::integer(value);
        Device* const device = deviceId ? Data::getDeviceById(*deviceId) : nullptr;
        if (!device) {
            Log::dropped(
                QStringLiteral("Dropped unknown unit of a group of playbacks from memory"));
            continue;
        }
        device->setPlaybackGroupId(*id);
        setPlaying(*device, isMessage ? position : -1, isMessage ? -1 : position);
    }
}

} // namespace

void protocolDeviceCommandGetMemoryStamp(const QJsonObject& reply)
{
    DeviceState::readReply(reply, reply, "getMemoryStamp", [](FieldSetter<Device>& set) {
        set.text("memoryStamp", &Device::setMemoryStamp);
    });
}

void protocolDeviceCommandGetAvailableMemory(const QJsonObject& reply)
{
    DeviceState::readReply(reply, reply, "getAvailableMemory", [](FieldSetter<Device>& set) {
        set.integer("size", &Device::setAvailableMemory, 0);
    });
}

void protocolDeviceCommandListMessages(const QJsonObject& reply)
{
    Log::message("Start parse message list");
    takeList<Message>(reply, Data::messageList, MemoryEntries::deleteDeviceMessages, readMessage);
}

void protocolDeviceCommandListScenarios(const QJsonObject& reply)
{
    Log::message("Start parse scenario list");
    takeList<Scenario>(reply, Data::scenarioList, MemoryEntries::deleteDeviceScenarios,
                       readScenario);
}

void protocolDeviceCommandGetPlays(const QJsonObject& reply)
{
    Log::message("Get play message");
    const auto groups = Fields::array(reply, "playbackGroups");
    if (!succeeded(reply) || !groups) {
        Log::dropped(QStringLiteral("Ignored playbacks from memory: no list of groups"));
        return;
    }
    for (const QJsonValue& group : *groups) {
        takeGroup(group.toObject());
    }
}

void protocolDeviceCommandPlayMessage(const QJsonObject& reply)
{
    started(reply, PlaybackCategory::MemoryMessage);
}

void protocolDeviceCommandPlayScenario(const QJsonObject& reply)
{
    started(reply, PlaybackCategory::MemoryScenario);
}

void protocolDeviceCommandStop(const QJsonObject& reply)
{
    const auto groupId = Fields::integer(request(reply), "playbackGroupId");
    // Every unit that plays nothing from its memory has group 0.
    if (!succeeded(reply) || !groupId || *groupId <= 0) {
        return;
    }
    for (Device& device : Data::deviceList) {
        if (device.getPlaybackGroupId() != *groupId) {
            continue;
        }
        device.setPlaybackGroupId(0);
        device.setPlayback(0);
        device.setPlaybackCategory(PlaybackCategory::None);
        setPlaying(device, -1, -1);
    }
}
