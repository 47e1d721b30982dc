#include "model/Library.h"

#include "app/Data.h"
#include "model/ModelList.h"
#include "model/Playlist.h"
#include "model/PlaylistWords.h"
#include "model/Track.h"

QString Library::getPlaybackClass(int playbackId)
{
    return QStringLiteral("playback_%1").arg(playbackId);
}

int Library::getPlaybackType(int playlistId)
{
    int id = playlistId;
    // A way up that is longer than the list goes in a circle.
    for (int step = 0; step <= Data::playlistList.size(); ++step) {
        if (id >= Playlist::firstRoot && id <= Playlist::lastRoot) {
            return id;
        }
        const Playlist* const playlist = id > 0 ? Data::getPlaylistById(id) : nullptr;
        if (!playlist) {
            break;
        }
        id = playlist->getParent();
    }
    return 0;
}

QString Library::getPlaylistName(int index)
{
    constexpr int firstDeepParent = 9; // what hangs below it is shown without the steps above
    if (index < 0 || index >= Data::playlistList.size()) {
        return {};
    }
    const Playlist& playlist = *Data::playlistList.at(index);
    if (playlist.getId() <= Playlist::lastRoot) {
        return playlist.getTitle();
    }
    const QString separator = QStringLiteral(" / ");
    const Playlist* const parent = Data::getPlaylistById(playlist.getParent());
    const QString path =
        (parent ? parent->getTitle() : PlaylistWords::categoryTitle(playlist.getGroup())) +
        separator + playlist.getTitle();
    return playlist.getParent() < firstDeepParent ? path : QStringLiteral("..") + separator + path;
}

int Library::getPlaylistNewPositionId(int parentId)
{
    int position = 0;
    for (const Playlist& playlist : Data::playlistList) {
        if (playlist.getParent() == parentId) {
            position = playlist.getPosition() + 1;
        }
    }
    return position;
}

int Library::getTrackNewPositionId(int playlistId)
{
    int position = 0;
    for (const Track& track : Data::trackList) {
        if (track.parentId == playlistId) {
            position = track.position + 1;
        }
    }
    return position;
}

QString Library::cleanTitle(QString title)
{
    for (const char refused : {'\\', '/', '"', '\'', '@', '^', '<', '>'}) {
        title.remove(QLatin1Char(refused));
    }
    return title.replace(QLatin1Char('&'), QLatin1String("and"));
}
