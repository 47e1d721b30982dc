#include "model/Playlist.h"

#include "app/Data.h"
#include "model/ModelList.h"
#include "model/PlaylistWords.h"
#include "page/ScriptCall.h"

Playlist::Playlist(int playlistId, const QString& playlistTitle, int parentId, int place,
                   int seconds, int reportedVolume, int category)
    : id(playlistId),
      title(playlistTitle),
      parent(parentId),
      position(place),
      duration(seconds),
      volume(reportedVolume),
      group(category)
{
}

void Playlist::setId(int playlistId)
{
    id = playlistId;
    if (id == alarmRoot) {
        Page::call("wrapperInput_playbackGlobal_editAlarm", 1);
    }
}

void Playlist::setTitle(const QString& newTitle)
{
    if (title == newTitle) {
        return;
    }
    title = newTitle;
    Page::call("wrapperInput_playback_setPlaylistName", id, title);
}

int Playlist::getParent() const
{
    if (parent == 0 || Data::getPlaylistById(parent)) {
        return parent;
    }
    return group;
}

void Playlist::setDuration(int seconds)
{
    duration = seconds;
    Page::call("wrapperInput_playback_setPlaylistDuration", id, duration);
}

void Playlist::addToPage() const
{
    Page::call("wrapperInput_playback_addItem", id, getParent(), title, PlaylistWords::folderRow,
               duration);
}
