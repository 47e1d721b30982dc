#include "protocol/ProtocolPlayback.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "log/Log.h"
#include "model/Device.h"
#include "model/Library.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Track.h"
#include "protocol/Commands.h"
#include "protocol/FieldSetter.h"
#include "protocol/Forbidden.h"
#include "protocol/LibraryEditing.h"
#include "protocol/PlaybackLibrary.h"
#include "protocol/PlaybackList.h"
#include "protocol/PlaybackState.h"
#include "protocol/Protocols.h"
#include "protocol/Redirection.h"
#include "protocol/Reply.h"

namespace
{

constexpr CommandRow commands[] = {
    {"addPlaylist", protocolPlaybackCommandAddPlaylist},
    {"addTrack", protocolPlaybackCommandAddTrack},
    {"endTrack", protocolPlaybackCommandEndTrack},
    {"includeTrack", protocolPlaybackCommandIncludeTrack},
    {"excludeTrack", protocolPlaybackCommandExcludeTrack},
    {"setPosition", protocolPlaybackCommandSetPosition},
    {"setRepetition", protocolPlaybackCommandSetRepetition},
    {"setVolume", protocolPlaybackCommandSetVolume},
    {"setTitle", protocolPlaybackCommandSetTitle},
    {"remove", protocolPlaybackCommandRemove},
    {"list", protocolPlaybackCommandList},
    {"getTrack", protocolPlaybackCommandGetTrack},
    {"play", protocolPlaybackCommandPlay},
    {"playNext", protocolPlaybackCommandPlayNext},
    {"pause", protocolPlaybackCommandPause},
    {"getPlays", protocolPlaybackCommandGetPlays},
    {"stop", protocolPlaybackCommandStop},
    {"startRedirection", protocolPlaybackCommandStartRedirection},
    {"getRedirection", protocolPlaybackCommandGetRedirection},
    {"stopRedirection", protocolPlaybackCommandStopRedirection},
};

constexpr Refusal playRefusals[] = {
    {"lowPriority", "modalLowPriorityShow"}, {"noDevices", "modalNoDevicesShow"},
    {"required", "modalRequiredUpdateShow"}, {"busyPorts", "modalBusyPortsShow"},
    {"overlap", "modalOverlapShow"},         {"playbackError", "modalPlayError"},
};

/// Seconds into the track at which a start is shown: the reply takes some time.
double startOf(const QJsonObject& asked)
{
    constexpr double started = 1.0;
    const auto trackId = Fields::integer(asked, "trackId");
    const Track* const track = trackId ? Data::getTrackById(*trackId) : nullptr;
    return track && track->getDuration() != 0 ? started : 0.0;
}

void readStart(Playback& playback, const QJsonObject& reply)
{
    const QJsonObject asked = request(reply);
    FieldSetter told(playback, reply, "play");
    FieldSetter wanted(playback, asked, "play");
    wanted.integer("playlistId", &Playback::setPlaylistId);
    told.integer("trackId", &Playback::setTrackId);
    playback.setPlaybackType(Library::getPlaybackType(playback.getPlaylistId()));
    playback.setPlaying(true);
    wanted.text("targetPlaying", &Playback::setTargetPlaying);
    wanted.integer("repeats", &Playback::setRepeats);
    wanted.text("actionIfEnd", &Playback::setActionIfEnd);
    if (playback.getPlaylistId() == Playlist::gongRoot) {
        playback.setTimeShift(1.0);
        Data::gongPlaybackId = playback.getId();
    } else {
        playback.setTimeShift(startOf(asked));
    }
    playback.setDeviceList(PlaybackState::readActiveDevices(reply));
}

/// Takes a playback out of the mirror that no unit carries any more.
void removeAbandoned(int playbackId)
{
    const Device* const carrier = Data::deviceList.findIf(
        [=](const Device& device) { return device.getPlayback() == playbackId; });
    const Playback* const playback = Data::getPlaybackById(playbackId);
    if (playback && !carrier) {
        Log::message("Playback destroed");
        PlaybackState::forgetGong(*playback);
        Data::playbackList.remove(playback);
    }
}

void putOnDevices(const Playback& playback)
{
    for (const int deviceId : playback.getDeviceList()) {
        Device* const device = Data::getDeviceById(deviceId);
        if (!device) {
            Log::message(QStringLiteral("Started on unknown device %1").arg(deviceId));
            continue;
        }
        const int oldId = device->getPlayback();
        Log::message(QStringLiteral("Old playback: ") + QString::number(oldId));
        PlaybackState::setPlayback(*device, playback.getId(), playback.getCategory());
        removeAbandoned(oldId);
    }
}

void showGong(Playback& playback)
{
    if (const Track* const first = Data::getFirstTrackInPlaylist(Playlist::gongRoot)) {
        playback.setTrackId(first->id);
    }
    Page::call("gongStart", playback.getId());
}

void openPlaybackPage()
{
    Page::call("loadTopMenu", "device_list");
    Page::call("loadSideMenu", "playback");
    Page::call("loadBotMenu", "playback_list");
    Page::call("loadMainBody", "playback_list");
    Page::call("changeMenu", "playlist");
}

/// Puts the page's slider back to where the units are.
void showVolume(const Playback& playback)
{
    const auto volume = playback.meanVolume();
    if (volume && PlaybackState::mayBeShown(playback)) {
        Page::call("playback_setVolume", *volume);
    }
}

} // namespace

void initProtocolPlayback(NetworkParser* parser)
{
    registerProtocol<PlaybackCommand>(parser, "playback", commands);
}

void protocolPlaybackCommandPlay(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        showRefusal(reply, playRefusals);
        return;
    }
    const auto id = Fields::integer(reply, "playbackId");
    if (!id) {
        Log::dropped(QStringLiteral("Ignored start: no playback"));
        return;
    }
    Playback* const known = Data::getPlaybackById(*id);
    Playback& playback = known ? *known : PlaybackState::append(*id);
    readStart(playback, reply);
    putOnDevices(playback);
    if (playback.getPlaybackType() == Playlist::gongRoot) {
        showGong(playback);
    } else {
        openPlaybackPage();
    }
}

void protocolPlaybackCommandPlayNext(const QJsonObject& reply)
{
    const QJsonObject asked = request(reply);
    Playback* const playback =
        succeeded(reply) ? PlaybackState::named(asked, "playbackId") : nullptr;
    if (!playback) {
        return;
    }
    // A negative track left the choice to the server, whose push says what plays.
    const int trackId = Fields::integer(asked, "trackId").value_or(-1);
    if (trackId >= 0) {
        playback->setTrackId(trackId);
    }
    FieldSetter set(*playback, asked, "playNext");
    set.integer("timeshift", &Playback::setTimeShift);
    playback->setPlaying(true);
    if (trackId >= 0 && PlaybackState::mayBeShown(*playback)) {
        Page::call("playlist_selectTrack", trackId);
    }
}

void protocolPlaybackCommandPause(const QJsonObject& reply)
{
    const QJsonObject asked = request(reply);
    Playback* const playback =
        succeeded(reply) ? PlaybackState::named(asked, "playbackId") : nullptr;
    if (playback) {
        FieldSetter set(*playback, asked, "pause");
        set.boolean("pause", [=](bool paused) { playback->setPlaying(!paused); });
    }
}

void protocolPlaybackCommandStop(const QJsonObject& reply)
{
    if (!succeeded(reply) && response(reply) != QLatin1String("unknownId")) {
        return;
    }
    if (const Playback* const playback = PlaybackState::named(request(reply), "playbackId")) {
        PlaybackState::finish(*playback);
    }
}

void protocolPlaybackCommandSetVolume(const QJsonObject& reply)
{
    const QJsonObject asked = request(reply);
    const bool isForbidden = Forbidden::isAnswer(reply);
    // The microphone's volume names no playback, and idle units have playback 0.
    const Playback* const playback =
        succeeded(reply) || isForbidden ? PlaybackState::named(asked, "id") : nullptr;
    if (!playback) {
        return;
    }
    if (isForbidden) {
        showVolume(*playback);
        return;
    }
    for (Device& device : Data::deviceList) {
        if (device.getPlayback() == playback->getId()) {
            FieldSetter set(device, asked, "setVolume");
            set.integer("volume", &Device::setVolume, 0, 100);
        }
    }
}

void protocolPlaybackCommandGetTrack(const QJsonObject&)
{
    Log::message("Get track");
}
