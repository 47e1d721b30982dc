#pragma once

#include "fleet/Fleet.h"

#include "model/Playback.h"
#include "model/Playlist.h"
#include "model/Track.h"

/// Short ways to say what the tests of the library and the playbacks say most.
namespace Sound
{

Playlist& addPlaylist(int id, const QString& title, int parent = 0, int group = 2);
Track& addTrack(int id, int playlistId, const QString& title, int duration = 100);
/// A running playback of the category of its folder.
Playback& addPlayback(int id, int playlistId, int trackId);
/// A unit that carries the playback.
Device& addCarrier(int id, const Playback& playback);

/// Root 2 "Плейлист" with folder 20 "Morning", which holds 30 "Birds" and 31 "Rain" around 40 of
/// root 7 "Гонг".
void addLibrary();

/// What the mirror says: `4=20/30 2 +1.5` for playback, folder and track, category, a minus while
/// paused, position; and `5=4/2` for a unit, its playback and its category.
QStringList playbacks();
QStringList devices();
/// The ids of the library, in order.
QVector<int> playlists();
QVector<int> tracks();

} // namespace Sound
