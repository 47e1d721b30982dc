#include "view/WebView.h"

#include "app/Data.h"
#include "log/Log.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/PlaylistWords.h"
#include "model/Track.h"
#include "model/Zone.h"
#include "page/ScriptCall.h"
#include "protocol/Request.h"
#include "view/DeviceIds.h"
#include "view/SlotLog.h"

#include <QJsonArray>
#include <QSettings>

#include <algorithm>

namespace
{

/// The next track is the server's choice.
constexpr int serverDecides = -1;

/// The playback that a page names; null, with a log line, if it has gone.
const Playback* knownPlayback(int id)
{
    const Playback* const playback = Data::getPlaybackById(id);
    if (!playback) {
        Log::message(QStringLiteral("Ignored call: unknown playback %1").arg(id));
    }
    return playback;
}

void showTracks(int playlistId)
{
    for (const Track& track : Data::trackList) {
        if (track.parentId == playlistId) {
            track.addToPage();
        }
    }
}

/// The folder that the server is to play: the gong page names the category instead.
int folderToPlay(int playlistId, int trackId)
{
    const Track* const gong =
        playlistId == Playlist::gongRoot ? Data::getTrackById(trackId) : nullptr;
    return gong ? gong->parentId : playlistId;
}

int trackBehind(const Playback& playback)
{
    bool passed = false;
    for (const Track& track : Data::trackList) {
        if (passed && track.parentId == playback.getPlaylistId()) {
            return track.id;
        }
        passed = passed || track.id == playback.getTrackId();
    }
    return serverDecides;
}

int trackBefore(const Playback& playback)
{
    int before = playback.getTrackId();
    for (const Track& track : Data::trackList) {
        if (track.id == playback.getTrackId()) {
            break;
        }
        if (track.parentId == playback.getPlaylistId()) {
            before = track.id;
        }
    }
    return before;
}

void sendPlayNext(const Playback& playback, int trackId)
{
    send(PlaybackCommand::PlayNext, {{QStringLiteral("playbackId"), playback.getId()},
                                     {QStringLiteral("playlistId"), playback.getPlaylistId()},
                                     {QStringLiteral("trackId"), trackId},
                                     {QStringLiteral("targetPlaying"), playback.getTargetPlaying()},
                                     {QStringLiteral("repeats"), playback.getRepeats()},
                                     {QStringLiteral("actionIfEnd"), playback.getActionIfEnd()},
                                     {QStringLiteral("timeshift"), 0}});
}

} // namespace

void WebView::playback_loadList()
{
    const SlotLog log("playback_loadList");
    for (const Playback& playback : Data::playbackList) {
        playback.addToPage();
        playback.showTimeShift();
    }
    if (!Data::playbackList.isEmpty()) {
        const int first = Data::playbackList.at(0)->getId();
        Page::call("playback_selectDevice", first);
        playback_loadPlayback(first);
    }
}

void WebView::playback_loadPlayback(int id)
{
    const SlotLog log("playback_loadPlayback", QStringLiteral(": %1").arg(id));
    const Playback* const playback = knownPlayback(id);
    if (!playback) {
        return;
    }
    Data::shownPlaybackId = id;
    Page::call("playback_selectPlaylist", playback->getPlaylistId());
    showTracks(playback->getPlaylistId());
    Page::call("playlist_selectTrack", playback->getTrackId());
    if (const auto volume = playback->meanVolume()) {
        Page::call("playback_setVolume", *volume);
    }
}

void WebView::playback_loadPlaybackWithPlaylist(int id)
{
    const SlotLog log("playback_loadPlaybackWithPlaylist", QStringLiteral(": %1").arg(id));
    const Playlist* const folder = Data::getPlaylistById(id);
    if (folder && folder->getParent() != 0) {
        Page::call("wrapperInput_playback_addItem", folder->getParent(), id, "..",
                   PlaylistWords::folderRow, 0);
    }
    for (const Playlist& playlist : Data::playlistList) {
        if (playlist.getParent() == id) {
            playlist.addToPage();
        }
    }
    showTracks(id);
}

void WebView::playback_loadPlaybackType(int type)
{
    const SlotLog log("playback_loadPlaybackType", QStringLiteral(": %1").arg(type));
    for (const Track& track : Data::trackList) {
        const Playlist* const folder = Data::getPlaylistById(track.parentId);
        if (folder && folder->getGroup() == type) {
            track.addToPage();
        }
    }
    if (type == Playlist::gongRoot && Data::gongPlaybackId != 0) {
        Page::call("gongStart", Data::gongPlaybackId); // it sounds, whoever has started it
    }
}

void WebView::playback_loadZoneList()
{
    const SlotLog log("playback_loadZoneList");
    for (const Zone& zone : Data::zoneList) {
        if (zone.getId() != Zone::everything) {
            zone.addToPage();
        }
    }
}

void WebView::playback_play(int playlistId, int trackId, const QString& devices,
                            const QString& strategy, const QString& replayType, int replyCount,
                            const QString& action)
{
    const SlotLog log("playback_play_devices", QStringLiteral(": ") + devices, LogLevel::Playback);
    const QJsonArray targets = readDeviceIds(devices);
    if (targets.isEmpty()) {
        // To the server a start without targets means all units.
        Log::message("Ignored start: no units");
        return;
    }
    send(PlaybackCommand::Play, {{QStringLiteral("playlistId"), folderToPlay(playlistId, trackId)},
                                 {QStringLiteral("trackId"), trackId},
                                 {QStringLiteral("devices"), targets},
                                 {QStringLiteral("zones"), QJsonArray()},
                                 {QStringLiteral("strategy"), strategy},
                                 {QStringLiteral("targetPlaying"), replayType},
                                 {QStringLiteral("repeats"), std::max(replyCount, 1) - 1},
                                 {QStringLiteral("actionIfEnd"), action}});
}

void WebView::playback_stop(int id)
{
    const SlotLog log("playback_stop", QStringLiteral(": %1").arg(id), LogLevel::Playback);
    send(PlaybackCommand::Stop, {{QStringLiteral("playbackId"), id}});
}

void WebView::playback_pause(int id, bool value)
{
    const SlotLog log("playback_pause", QStringLiteral(": %1").arg(id), LogLevel::Playback);
    send(PlaybackCommand::Pause,
         {{QStringLiteral("playbackId"), id}, {QStringLiteral("pause"), value}});
}

void WebView::playback_next(int id)
{
    const SlotLog log("playback_next", QStringLiteral(": %1").arg(id), LogLevel::Playback);
    if (const Playback* const playback = knownPlayback(id)) {
        sendPlayNext(*playback, trackBehind(*playback));
    }
}

void WebView::playback_prev(int id)
{
    const SlotLog log("playback_prev", QStringLiteral(": %1").arg(id), LogLevel::Playback);
    if (const Playback* const playback = knownPlayback(id)) {
        sendPlayNext(*playback, trackBefore(*playback));
    }
}

void WebView::playback_nextById(int id, int trackId)
{
    const SlotLog log("playback_nextById", QStringLiteral(": %1").arg(id), LogLevel::Playback);
    if (const Playback* const playback = knownPlayback(id)) {
        sendPlayNext(*playback, trackId);
    }
}

void WebView::playback_setVolume(int id, int volume, const QString& target)
{
    const SlotLog log("playback_setVolume", QStringLiteral(": %1").arg(id), LogLevel::Playback);
    if (id == -1) {
        return;
    }
    if (target == QLatin1String("redirection")) {
        Data::settings->setValue(QStringLiteral("volume/microphone"), volume);
    }
    send(PlaybackCommand::SetVolume, {{QStringLiteral("target"), target},
                                      {QStringLiteral("id"), id},
                                      {QStringLiteral("volume"), volume}});
}
