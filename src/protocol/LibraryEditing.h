#pragma once

#include <QJsonObject>

#include <functional>

/// What the replies to the requests of an upload cause. Installed once at start; a hook that isn't
/// set does nothing.
struct UploadHooks {
    /// A file has been announced, or refused.
    std::function<void(const QJsonObject& reply)> fileAnnounced;
    /// A file has been closed, or refused at its end.
    std::function<void(const QJsonObject& reply)> fileClosed;
    /// Its track stands on the page: the next one may come.
    std::function<void()> next;
    /// A folder has been made for its files, or refused.
    std::function<void(const QJsonObject& reply)> folderMade;
};

/// The installed hooks.
UploadHooks& uploadHooks();

void protocolPlaybackCommandAddPlaylist(const QJsonObject& reply);
/// A radio link; a file is the upload's.
void protocolPlaybackCommandAddTrack(const QJsonObject& reply);
void protocolPlaybackCommandEndTrack(const QJsonObject& reply);
void protocolPlaybackCommandSetTitle(const QJsonObject& reply);
/// These two ask for the library again, behind the last of their kind under way, if the server has
/// refused one of them: what it kept then shows.
void protocolPlaybackCommandExcludeTrack(const QJsonObject& reply);
void protocolPlaybackCommandRemove(const QJsonObject& reply);
// Nothing sends these; a reply only leaves its line.
void protocolPlaybackCommandIncludeTrack(const QJsonObject& reply);
void protocolPlaybackCommandSetPosition(const QJsonObject& reply);
void protocolPlaybackCommandSetRepetition(const QJsonObject& reply);
