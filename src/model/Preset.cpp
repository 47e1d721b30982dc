#include "model/Preset.h"

#include "app/Data.h"
#include "model/Playlist.h"
#include "model/Track.h"

const Track* Preset::track() const
{
    return target == firstTrack ? Data::getFirstTrackInPlaylist(playlist)
                                : Data::getTrackById(target);
}

void Preset::addToPage(int group) const
{
    const Playlist* const folder = Data::getPlaylistById(playlist);
    const Track* const first = track();
    if (folder && first) {
        Page::call("wrapperInput_preset_add", id, title, folder->getTitle(), first->getTitle(),
                   group);
    }
}

void Preset::addToPage() const
{
    const Playlist* const folder = Data::getPlaylistById(playlist);
    addToPage(folder ? folder->getGroup() : 0);
}
