#include "media/PlaybackUpdater.h"

#include "app/Data.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Track.h"

namespace
{

constexpr int periodInMilliseconds = 500;
constexpr double periodInSeconds = periodInMilliseconds / 1000.0;
constexpr int endless = -1;

bool moves(const Playback& playback)
{
    const Track* const track =
        playback.getPlaying() ? Data::getTrackById(playback.getTrackId()) : nullptr;
    return track && track->getDuration() != endless && playback.getTimeShift() >= 0;
}

} // namespace

PlaybackUpdater::PlaybackUpdater()
{
    connect(&timer, &QTimer::timeout, this, &PlaybackUpdater::update);
    timer.start(periodInMilliseconds);
}

void PlaybackUpdater::update()
{
    onUpdate(true);
    for (Playback& playback : Data::playbackList) {
        if (moves(playback)) {
            playback.setTimeShift(playback.getTimeShift() + periodInSeconds);
        }
    }
    onUpdate(false);
    timer.start(periodInMilliseconds);
}
