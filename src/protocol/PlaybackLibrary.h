#pragma once

#include <QJsonObject>

#include <optional>

/// Makes the library that of the reply: playlists that it doesn't name go with their tracks, and
/// the rest is changed or added in its order. Without an array of playlists none goes.
void protocolPlaybackCommandList(const QJsonObject& reply);

namespace PlaybackLibrary
{

// What the mirror doesn't know, and a message without an id, leave a log line alone.
void removeTrack(const std::optional<int>& id);
/// The playlist's tracks stay in the mirror.
void removePlaylist(const std::optional<int>& id);

} // namespace PlaybackLibrary
