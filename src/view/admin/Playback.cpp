#include "view/WebView.h"

#include "app/Data.h"
#include "files/FolderBrowser.h"
#include "files/Upload.h"
#include "log/LogSettings.h"
#include "model/Library.h"
#include "model/ModelList.h"
#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/PlaylistWords.h"
#include "model/Track.h"
#include "page/ScriptCall.h"
#include "protocol/Request.h"
#include "view/ScriptPipe.h"
#include "view/SlotLog.h"

namespace
{

QVector<int> foldersIn(int parentId)
{
    QVector<int> ids;
    for (const Playlist& playlist : Data::playlistList) {
        if (playlist.getParent() == parentId) {
            ids.append(playlist.getId());
        }
    }
    return ids;
}

QVector<int> tracksIn(int playlistId)
{
    QVector<int> ids;
    for (const Track& track : Data::trackList) {
        if (track.parentId == playlistId) {
            ids.append(track.id);
        }
    }
    return ids;
}

void showTrack(int id)
{
    if (const Track* const track = Data::getTrackById(id)) {
        track->addToPage();
    }
}

/// Whether a playback stands at what is to be deleted; the operator is told of it then.
template <class IsIt> bool isPlaying(int id, const QString& title, IsIt isIt)
{
    for (const Playback& playback : Data::playbackList) {
        if (isIt(playback)) {
            Page::call("modalAdminDeleteItemBusyShow", id, title);
            return true;
        }
    }
    return false;
}

void excludeTrack(int id, int parentId)
{
    send(PlaybackCommand::ExcludeTrack,
         {{QStringLiteral("trackId"), id}, {QStringLiteral("parentId"), parentId}});
}

} // namespace

void WebView::admin_loadPlaybackWithPlaylist(int id)
{
    const SlotLog log("admin_loadPlaybackWithPlaylist", QStringLiteral(": %1").arg(id),
                      LogLevel::PlaylistSettings);
    const Playlist* const folder = Data::getPlaylistById(id);
    if (!folder) {
        return;
    }
    if (folder->getParent() != 0) {
        Page::call("wrapperInput_playback_addItem", folder->getParent(), id, QStringLiteral(".."),
                   PlaylistWords::folderRow, 0);
    }
    scripts.replay("folders", foldersIn(id), [](int folderId) {
        if (const Playlist* const playlist = Data::getPlaylistById(folderId)) {
            playlist->addToPage();
        }
    });
    scripts.replay("tracks", tracksIn(id), showTrack);
}

void WebView::admin_loadPlaylistList(bool isFull)
{
    const SlotLog log("admin_loadPlaylistList", QStringLiteral(": %1").arg(isFull),
                      LogLevel::PlaylistSettings);
    QVector<int> indexes;
    for (int group = Playlist::firstRoot; group <= (isFull ? Playlist::lastRoot : 5); ++group) {
        for (int index = 0; index < Data::playlistList.size(); ++index) {
            if (Data::playlistList.at(index)->getGroup() == group) {
                indexes.append(index);
            }
        }
    }
    scripts.replay("folders", indexes, [](int index) {
        if (index < Data::playlistList.size()) {
            const Playlist& playlist = *Data::playlistList.at(index);
            Page::call("wrapperInput_playback_addItem", playlist.getId(), playlist.getParent(),
                       Library::getPlaylistName(index), PlaylistWords::folderRow,
                       playlist.getDuration());
        }
    });
}

void WebView::admin_loadPlaylistTracks(int id)
{
    const SlotLog log("admin_loadPlaylistTracks", QStringLiteral(": %1").arg(id),
                      LogLevel::PlaylistSettings);
    scripts.replay("tracks", tracksIn(id), showTrack);
}

void WebView::admin_addPlaylist(int parentId, const QString& name)
{
    const SlotLog log("admin_addPlaylist", QStringLiteral(": %1, ").arg(parentId) + name,
                      LogLevel::PlaylistSettings);
    send(PlaybackCommand::AddPlaylist,
         {{QStringLiteral("parentId"), parentId},
          {QStringLiteral("title"), Library::cleanTitle(name)},
          {QStringLiteral("volume"), 0},
          {QStringLiteral("position"), Library::getPlaylistNewPositionId(parentId)},
          {QStringLiteral("repetition"), true}});
}

void WebView::admin_addTrack(int parentId, const QString& name, const QString& url)
{
    const SlotLog log("admin_addTrack", QStringLiteral(": %1, ").arg(parentId) + name,
                      LogLevel::PlaylistSettings);
    send(PlaybackCommand::AddTrack,
         {{QStringLiteral("title"), Library::cleanTitle(name)},
          {QStringLiteral("track"), url},
          {QStringLiteral("parentId"), parentId},
          {QStringLiteral("method"), QStringLiteral("text")},
          {QStringLiteral("data"), QString()},
          {QStringLiteral("size"), 0},
          {QStringLiteral("position"), Library::getTrackNewPositionId(parentId)}});
}

void WebView::admin_editTrackOrPlaylist(int id, const QString& name)
{
    const SlotLog log("admin_editTrackOrPlaylist", QStringLiteral(": %1, ").arg(id) + name,
                      LogLevel::PlaylistSettings);
    send(PlaybackCommand::SetTitle,
         {{QStringLiteral("id"), id}, {QStringLiteral("title"), Library::cleanTitle(name)}});
}

void WebView::admin_deleteTrack(int id, int parentId)
{
    const SlotLog log("admin_deleteTrack", QStringLiteral(": %1, %2").arg(id).arg(parentId),
                      LogLevel::PlaylistSettings);
    const Track* const track = Data::getTrackById(id);
    if (!isPlaying(id, track ? track->getTitle() : QString(),
                   [id](const Playback& playback) { return playback.getTrackId() == id; })) {
        excludeTrack(id, parentId);
    }
}

void WebView::admin_deletePlaylist(int id)
{
    const SlotLog log("admin_deletePlaylist", QStringLiteral(": %1").arg(id),
                      LogLevel::PlaylistSettings);
    const Playlist* const folder = Data::getPlaylistById(id);
    if (isPlaying(id, folder ? folder->getTitle() : QString(),
                  [id](const Playback& playback) { return playback.getPlaylistId() == id; })) {
        return;
    }
    const QVector<int> children = foldersIn(id);
    for (const int below : children) {
        admin_deletePlaylist(below);
    }
    const QVector<int> tracks = tracksIn(id);
    for (const int track : tracks) {
        excludeTrack(track, id);
    }
    send(PlaybackCommand::Remove, {{QStringLiteral("id"), id}});
}

void WebView::admin_loadDrives(const QString& type)
{
    const SlotLog log("admin_loadDrives", QStringLiteral(": ") + type, LogLevel::PlaylistSettings);
    folders.loadDriverList(type);
}

void WebView::admin_loadPath(const QString& path, const QString& drive, const QString& type)
{
    const SlotLog log("admin_loadPath", QStringLiteral(": ") + path, LogLevel::PlaylistSettings);
    folders.loadPath(path, drive, type);
}

void WebView::admin_uploadList(int parent, const QStringList& paths)
{
    const SlotLog log("admin_uploadList", QStringLiteral(": %1, %2").arg(parent).arg(paths.size()),
                      LogLevel::PlaylistSettings);
    upload.uploadList(parent, paths);
}

void WebView::admin_finishUpload()
{
    const SlotLog log("admin_finishUpload", {}, LogLevel::PlaylistSettings);
    upload.finishEarly();
}
