#include "protocol/PlaybackLibrary.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "model/ModelList.h"
#include "model/Playlist.h"
#include "model/Track.h"
#include "page/ScriptCall.h"
#include "protocol/FieldSetter.h"
#include "protocol/Reply.h"

#include <QSet>
#include <QVector>

namespace
{

void readFields(Playlist& playlist, const QJsonObject& element)
{
    FieldSetter set(playlist, element, "playlist");
    set.text("title", &Playlist::setTitle);
    set.integer("parentId", &Playlist::setParent);
    set.integer("position", &Playlist::setPosition);
    set.integer("duration", &Playlist::setDuration);
    set.integer("volume", &Playlist::setVolume);
    set.integer("groupId", &Playlist::setGroup);
}

void readFields(Track& track, const QJsonObject& element)
{
    FieldSetter set(track, element, "track");
    set.integer("parentId", [&](int id) { track.parentId = id; });
    set.text("title", &Track::setTitle);
    set.integer("position", [&](int place) { track.position = place; });
    set.integer("duration", &Track::setDuration);
}

void setId(Playlist& playlist, int id)
{
    playlist.setId(id);
}

void setId(Track& track, int id)
{
    track.id = id;
}

/// Changes or adds what the elements name, and gives their ids. The page hears of the new ones when
/// all are in the mirror: a folder may come behind what hangs below it.
template <class Item> QSet<int> takeElements(ModelList<Item>& list, const QJsonArray& elements)
{
    QSet<int> ids;
    QVector<const Item*> added;
    for (const QJsonValue& value : elements) {
        const QJsonObject element = value.toObject();
        const auto id = Fields::integer(element, "id");
        if (!id) {
            Log::dropped(QStringLiteral("Dropped element of the library: no id"));
            continue;
        }
        if (std::is_same_v<Item, Playlist> && *id == Playlist::recordingRoot) {
            continue;
        }
        ids.insert(*id);
        if (Item* const known = list.find(*id)) {
            setId(*known, *id);
            readFields(*known, element);
            continue;
        }
        auto made = std::make_unique<Item>();
        setId(*made, *id);
        readFields(*made, element);
        added.append(list.append(std::move(made)));
    }
    for (const Item* const item : qAsConst(added)) {
        item->addToPage();
    }
    return ids;
}

void showRemoved(int playlistId)
{
    Page::call("wrapperInput_playback_deletePlaylist", playlistId);
    if (playlistId == Playlist::alarmRoot) {
        Page::call("wrapperInput_playbackGlobal_editAlarm", 0);
    }
}

void removePlaylistsExcept(const QSet<int>& named)
{
    QSet<int> gone;
    for (const Playlist& playlist : Data::playlistList) {
        if (named.contains(playlist.getId())) {
            continue;
        }
        gone.insert(playlist.getId());
        showRemoved(playlist.getId());
        for (const Track& track : Data::trackList) {
            if (track.parentId == playlist.getId()) {
                Page::call("wrapperInput_playback_deleteTrack", track.id);
            }
        }
    }
    if (!gone.isEmpty()) {
        Data::trackList.removeIf([&](const Track& track) { return gone.contains(track.parentId); });
        Data::playlistList.removeIf(
            [&](const Playlist& playlist) { return gone.contains(playlist.getId()); });
    }
}

void logUnknown(const char* what, const std::optional<int>& id)
{
    Log::dropped(QStringLiteral("Ignored removal: unknown %1 %2")
                     .arg(QLatin1String(what))
                     .arg(id.value_or(0)));
}

} // namespace

void protocolPlaybackCommandList(const QJsonObject& reply)
{
    if (!succeeded(reply)) {
        return;
    }
    if (const auto playlists = Fields::array(reply, "playlists")) {
        removePlaylistsExcept(takeElements(Data::playlistList, *playlists));
    } else {
        Log::dropped(QStringLiteral("Ignored playlists: no list"));
    }
    if (const auto tracks = Fields::array(reply, "tracks")) {
        takeElements(Data::trackList, *tracks);
    } else {
        Log::dropped(QStringLiteral("Ignored tracks: no list"));
    }
}

namespace PlaybackLibrary
{

void removeTrack(const std::optional<int>& id)
{
    const Track* const track = id ? Data::getTrackById(*id) : nullptr;
    if (!track) {
        logUnknown("track", id);
        return;
    }
    Page::call("wrapperInput_playback_deleteTrack", track->id);
    Data::trackList.remove(track);
}

void removePlaylist(const std::optional<int>& id)
{
    const Playlist* const playlist = id ? Data::getPlaylistById(*id) : nullptr;
    if (!playlist) {
        logUnknown("playlist", id);
        return;
    }
    showRemoved(playlist->getId());
    Data::playlistList.remove(playlist);
}

} // namespace PlaybackLibrary
