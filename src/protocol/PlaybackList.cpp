#include "protocol/PlaybackList.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/Device.h"
#include "model/Library.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Task.h"
#include "protocol/FieldSetter.h"
#include "protocol/PlaybackState.h"
#include "protocol/Reply.h"

#include <QSet>
#include <QVector>

namespace
{

void readFields(Playback& playback, const QJsonObject& element)
{
    FieldSetter set(playback, element, "getPlays");
    set.integer("playlistId", &Playback::setPlaylistId);
    set.integer("trackId", &Playback::setTrackId);
    set.integer("volume", &Playback::setVolume);
    playback.setPlaybackType(Library::getPlaybackType(playback.getPlaylistId()));
    set.boolean("playing", &Playback::setPlaying);
    set.text("targetPlaying", &Playback::setTargetPlaying);
    set.integer("repeats", &Playback::setRepeats);
    set.text("actionIfEnd", &Playback::setActionIfEnd);
    set.integer("timeshift", &Playback::setTimeShift);
    playback.setDeviceList(PlaybackState::readActiveDevices(element));
}

void addPlayback(int id, const QJsonObject& element)
{
    Playback& playback = PlaybackState::append(id);
    readFields(playback, element);
    const Task* const task =
        Data::tasks.findIf([=](const Task& known) { return known.getPlayback() == id; });
    if (task) {
        playback.setTaskId(task->getId());
    }
    playback.addToPage();
}

/// Whether the playback was started without targets, which means on all units.
bool isForAllDevices(const QJsonObject& element)
{
    const auto devices = Fields::array(element, "devices");
    const auto zones = Fields::array(element, "zones");
    return devices && zones && devices->isEmpty() && zones->isEmpty();
}

void putOnDevices(const Playback& playback, bool isForAll)
{
    const auto put = [&](Device& device) {
        PlaybackState::setPlayback(device, playback.getId(), playback.getCategory());
    };
    if (isForAll) {
        for (Device& device : Data::deviceList) {
            // A unit that an alarm has taken over isn't carried by it, for all that it was started
            // on all units.
            if (device.getStatus() == DeviceOnline &&
                device.getPlaybackCategory() != PlaybackCategory::Alarm) {
                put(device);
            }
        }
        return;
    }
    for (const int deviceId : playback.getDeviceList()) {
        if (Device* const device = Data::getDeviceById(deviceId)) {
            put(*device);
        }
    }
}

void takePlayback(int id, const QJsonObject& element)
{
    if (Playback* const known = Data::getPlaybackById(id)) {
        readFields(*known, element);
    } else {
        addPlayback(id, element);
    }
    putOnDevices(*Data::getPlaybackById(id), isForAllDevices(element));
}

void finishExcept(const QSet<int>& named)
{
    const auto isGone = [&](const Playback& playback) { return !named.contains(playback.getId()); };
    while (const Playback* const gone = Data::playbackList.findIf(isGone)) {
        PlaybackState::finish(*gone);
    }
}

} // namespace

void protocolPlaybackCommandGetPlays(const QJsonObject& reply)
{
    const auto elements = Fields::array(reply, "list");
    if (!succeeded(reply) || !elements) {
        Log::dropped(QStringLiteral("Ignored getPlays: no list of playbacks"));
        return;
    }
    QSet<int> named;
    for (const QJsonValue& value : *elements) {
        const QJsonObject element = value.toObject();
        if (const auto id = Fields::integer(element, "playbackId")) {
            named.insert(*id);
            takePlayback(*id, element);
        } else {
            Log::dropped(QStringLiteral("Dropped playback of getPlays: no id"));
        }
    }
    finishExcept(named);
}
