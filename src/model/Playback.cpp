#include "model/Playback.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/Playlist.h"
#include "model/Track.h"
#include "page/ScriptCall.h"

void Playback::setTrackId(int currentTrackId)
{
    trackId = currentTrackId;
    if (const Track* const track = Data::getTrackById(trackId)) {
        Page::call("wrapperInput_playback_setCurrentTrack", id, trackId, track->getTitle());
    }
}

void Playback::setPlaying(bool running)
{
    playing = running;
    Page::call("wrapperInput_playback_setPlaying", id, playing, playbackType);
}

void Playback::setTimeShift(double seconds)
{
    timeShift = seconds;
    showTimeShift();
}

void Playback::setPlaybackType(int category)
{
    playbackType = category;
    Log::message(QStringLiteral("Playback set type: ") + QString::number(playbackType));
}

void Playback::setTaskId(int startingTaskId)
{
    taskId = startingTaskId;
    for (const int deviceId : deviceList) {
        if (Device* const device = Data::getDeviceById(deviceId)) {
            device->setTaskId(taskId);
        }
    }
}

std::optional<int> Playback::meanVolume() const
{
    int sum = 0;
    int count = 0;
    for (const int deviceId : deviceList) {
        if (const Device* const device = Data::getDeviceById(deviceId)) {
            sum += device->getVolume();
            ++count;
        }
    }
    return count > 0 ? std::optional(sum / count) : std::nullopt;
}

void Playback::addToPage() const
{
    const Playlist* const list = Data::getPlaylistById(playlistId);
    const Track* const track = Data::getTrackById(trackId);
    Page::call("wrapperInput_playback_add", id, getPlaybackType(),
               list ? list->getTitle() : QString(), track ? track->getTitle() : QString(), volume,
               timeShift, track ? track->getDuration() : 0);
}

void Playback::showTimeShift() const
{
    const Track* const track = Data::getTrackById(trackId);
    if (track && track->getDuration() != 0) {
        Page::call("wrapperInput_playback_setTimeshift", id, timeShift, track->getDuration());
    }
}
