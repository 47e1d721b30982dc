#pragma once

class QString;

/// What the mirror's folders and tracks say together.
namespace Library
{

/// The class by which the pages mark what carries a playback.
QString getPlaybackClass(int playbackId);
/// The category, 1 to 7, below which a playlist hangs; 0 for one that hangs below none, or that
/// isn't known.
int getPlaybackType(int playlistId);
/// The path of the playlist at an index of `Data::playlistList`, cut to its last two steps; empty
/// for an index that the list doesn't have.
QString getPlaylistName(int index);

/// The position for a new entry: one behind the last sibling in list order, 0 without any.
int getPlaylistNewPositionId(int parentId);
int getTrackNewPositionId(int playlistId);

/// A title as the server takes it: without the characters that it refuses, "&" as "and".
QString cleanTitle(QString title);

} // namespace Library
