#include "protocol/input/InputProtocolPlayback.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "page/ScriptCall.h"
#include "protocol/FieldSetter.h"
#include "protocol/PlaybackLibrary.h"
#include "protocol/PlaybackState.h"
#include "protocol/Redirection.h"
#include "protocol/Request.h"

namespace
{

void logPush(const char* what, const std::optional<int>& id)
{
    Log::message(QLatin1String(what) + (id ? QString::number(*id) : QStringLiteral("no id")));
}

/// What a unit plays from its own memory or its inputs goes on when the server's playback ends.
void freeDevices(int playbackId)
{
    for (Device& device : Data::deviceList) {
        if (device.getPlayback() == playbackId &&
            device.getPlaybackCategory() >= PlaybackCategory::None) {
            PlaybackState::setPlayback(device, 0, PlaybackCategory::None);
            device.setPlaybackGroupId(0);
        }
    }
}

} // namespace

void inputProtocolPlaybackCommandAddPlaylist(const QJsonObject&)
{
    send(PlaybackCommand::List);
}

void inputProtocolPlaybackCommandAddTrack(const QJsonObject&)
{
    send(PlaybackCommand::List);
}

void inputProtocolPlaybackCommandSetTitle(const QJsonObject&)
{
    send(PlaybackCommand::List);
}

void inputProtocolPlaybackCommandPlay(const QJsonObject&)
{
    send(PlaybackCommand::GetPlays);
}

void inputProtocolPlaybackCommandStop(const QJsonObject& message)
{
    logPush("Stop playback: ", Fields::integer(message, "id"));
    const Playback* const playback = PlaybackState::named(message, "id");
    if (!playback) {
        return;
    }
    const int id = playback->getId();
    freeDevices(id);
    PlaybackState::forgetGong(*playback);
    Data::playbackList.remove(playback);
    Page::call("wrapperInput_playback_stop", id);
}

void inputProtocolPlaybackCommandPause(const QJsonObject& message)
{
    logPush("Pause playback: ", Fields::integer(message, "id"));
    if (Playback* const playback = PlaybackState::named(message, "playbackId")) {
        playback->setPlaying(false);
    }
}

void inputProtocolPlaybackCommandPlayNext(const QJsonObject& message)
{
    logPush("PlayNext playback: ", Fields::integer(message, "playbackId"));
    if (Playback* const playback = PlaybackState::named(message, "playbackId")) {
        FieldSetter set(*playback, message, "playNext");
        set.integer("trackId", &Playback::setTrackId, 0);
        set.integer("playlistId", &Playback::setPlaylistId);
        set.integer("timeshift", &Playback::setTimeShift);
        set.boolean("playing", &Playback::setPlaying);
    }
}

void inputProtocolPlaybackCommandExcludeTrack(const QJsonObject& message)
{
    PlaybackLibrary::removeTrack(Fields::integer(message, "id"));
}

void inputProtocolPlaybackCommandRemove(const QJsonObject& message)
{
    PlaybackLibrary::removePlaylist(Fields::integer(message, "id"));
}

void inputProtocolPlaybackCommandStartRedirection(const QJsonObject&)
{
    send(PlaybackCommand::GetRedirection);
}

void inputProtocolPlaybackCommandStopRedirection(const QJsonObject&)
{
    if (redirectionHooks().endedElsewhere && redirectionHooks().endedElsewhere()) {
        Page::call("modalAudioTranslationHide");
        Page::call("modalAudioTranslationEndedByAnotherUser");
    }
    unmarkRedirection();
}
