#include "model/Track.h"

#include "model/PlaylistWords.h"
#include "page/ScriptCall.h"

Track::Track(int trackId, int playlistId, const QString& trackTitle, int place, int seconds)
    : id(trackId), parentId(playlistId), position(place), title(trackTitle), duration(seconds)
{
}

void Track::setTitle(const QString& newTitle)
{
    if (title == newTitle) {
        return;
    }
    title = newTitle;
    Page::call("wrapperInput_playback_setTrackName", id, title);
}

void Track::setDuration(int seconds)
{
    duration = seconds;
    Page::call("wrapperInput_playback_setTrackDuration", id, duration);
}

void Track::addToPage() const
{
    Page::call("wrapperInput_playback_addItem", id, parentId, title, PlaylistWords::trackRow,
               duration);
}
