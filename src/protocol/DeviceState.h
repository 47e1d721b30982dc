#pragma once

#include "model/Device.h"
#include "page/ScriptCall.h"
#include "protocol/CurrentRole.h"
#include "protocol/FieldSetter.h"
#include "protocol/Reply.h"

#include <QJsonObject>

#include <optional>

/// What the messages about a unit's state have in common, replies and pushes alike.
namespace DeviceState
{

/// The unit that the request of this reply was about; null, with a log line, if it has gone.
Device* requested(const QJsonObject& reply);

/// Calls `read` with the unit of a successful reply and the object that holds its values, which is
/// the reply or what was asked.
template <class Read>
void readReply(const QJsonObject& reply, const QJsonObject& values, const char* what, Read read)
{
    if (!succeeded(reply)) {
        return;
    }
    if (Device* const device = requested(reply)) {
        FieldSetter set(*device, values, what);
        read(set);
    }
}

/// Tells the page of a unit that it may not have yet. `more` follows the usual arguments.
template <class... More> void addToPage(const Device& device, const More&... more)
{
    Page::call("wrapperInput_device_add", device.getId(), device.getName(),
               static_cast<int>(device.getStatus()), device.getVolume(),
               device.getPlaybackCategory(), mayManageZones(), more...);
}

/// Tells the page of a unit whose state has come that it is known.
void showRead(const Device& device);

// Parts of a state that several messages carry, under the same names.
void readVersions(FieldSetter<Device>& message);
void readLink(FieldSetter<Device>& message);
void readBattery(FieldSetter<Device>& message);
void readBatteryLevel(FieldSetter<Device>& message);
void readVolume(FieldSetter<Device>& message);
/// The category of playback; nothing, with a log line, for an unknown word.
std::optional<int> readPlayback(FieldSetter<Device>& message);
bool isFromMemory(int playbackCategory);

/// Makes the unit's lines those of the message: lines that it doesn't name go, and the rest is
/// changed or added in its order. Without an array of lines nothing changes.
void mergeLines(FieldSetter<Device>& message);

/// How many units wait for the list of units to tell of them.
int unreadCount();

/// Asks for stamp, free space and contents of the unit's own memory.
void requestMemory(int deviceId);

} // namespace DeviceState
