#include "protocol/LibraryEditing.h"

#include "app/Data.h"
#include "log/Dropped.h"
#include "log/Log.h"
#include "model/ModelList.h"
#include "model/Playlist.h"
#include "model/Role.h"
#include "model/Track.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/PlaybackLibrary.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"

namespace
{

/// Whether a deletion has been refused since the library was asked for last.
bool isRefused = false;

void call(const std::function<void(const QJsonObject&)>& hook, const QJsonObject& reply)
{
    if (hook) {
        hook(reply);
    }
}

bool isUpload(const QJsonObject& reply)
{
    return request(reply).value(QLatin1String("method")) == QLatin1String("binary");
}

/// What a reply says of a new folder or track: the ids and the title that were asked for.
struct NewEntry {
    int id;
    int parentId;
    int position;
    QString title;
};

std::optional<NewEntry> readNew(const QJsonObject& reply)
{
    const QJsonObject asked = request(reply);
    const auto id = Fields::integer(reply, "newId");
    const auto parentId = Fields::integer(asked, "parentId");
    if (!id || !parentId) {
        Log::dropped(QStringLiteral("Ignored new entry of the library: no id"));
        return std::nullopt;
    }
    return NewEntry{*id, *parentId, Fields::integer(asked, "position").value_or(0),
                    Fields::text(asked, "title").value_or(QString())};
}

/// Null where a push has brought the track before the reply came.
const Track* addTrack(const NewEntry& entry, int duration)
{
    return Data::getTrackById(entry.id)
               ? nullptr
               : Data::trackList.append(std::make_unique<Track>(
                     entry.id, entry.parentId, entry.title, entry.position, duration));
}

void addPlaylist(const NewEntry& entry, int volume)
{
    const Playlist* const parent = Data::getPlaylistById(entry.parentId);
    if (!Data::getPlaylistById(entry.id)) {
        const Playlist& playlist = *Data::playlistList.append(
            std::make_unique<Playlist>(entry.id, entry.title, entry.parentId, entry.position, 0,
                                       volume, parent ? parent->getGroup() : 0));
        Page::call("wrapperInput_playback_addItem", entry.id, entry.parentId, playlist.getTitle(),
                   1, 0);
    }
}

void changeDuration(int playlistId, int seconds)
{
    if (Playlist* const playlist = Data::getPlaylistById(playlistId)) {
        playlist->setDuration(playlist->getDuration() + seconds);
    }
}

void noteDeletion(const QJsonObject& reply)
{
    isRefused = isRefused || !succeeded(reply);
    const bool isLast =
        !isWaiting(PlaybackCommand::ExcludeTrack) && !isWaiting(PlaybackCommand::Remove);
    if (isRefused && isLast) {
        isRefused = false;
        send(PlaybackCommand::List);
    }
}

void logCommand(const char* name)
{
    Log::message(QStringLiteral("Command ") + QLatin1String(name) + QLatin1Char(' '));
}

} // namespace

UploadHooks& uploadHooks()
{
    static UploadHooks hooks;
    return hooks;
}

void protocolPlaybackCommandAddPlaylist(const QJsonObject& reply)
{
    const auto entry = succeeded(reply) ? readNew(reply) : std::nullopt;
    if (entry) {
        addPlaylist(*entry, Fields::integer(request(reply), "volume").value_or(0));
    }
    if (request(reply).value(QLatin1String("fullPath")).isString()) {
        call(uploadHooks().folderMade, reply);
    }
}

void protocolPlaybackCommandAddTrack(const QJsonObject& reply)
{
    if (isUpload(reply)) {
        call(uploadHooks().fileAnnounced, reply);
        return;
    }
    static constexpr Refusal refusals[] = {{"error", "modalAdminRadioTrackError"},
                                           {"busy", "modalAdminPortBusy"},
                                           {"fileNameExist", "modalAdminTrackNameExist"}};
    showRefusal(reply, refusals);
    if (const auto entry = succeeded(reply) ? readNew(reply) : std::nullopt) {
        const Track* const track = addTrack(*entry, 0);
        if (track) {
            track->addToPage();
        }
    }
}

void protocolPlaybackCommandEndTrack(const QJsonObject& reply)
{
    const auto entry = succeeded(reply) ? readNew(reply) : std::nullopt;
    const int duration = Fields::integer(reply, "duration").value_or(0);
    const Track* const track = entry ? addTrack(*entry, duration) : nullptr;
    if (track) {
        changeDuration(entry->parentId, duration);
    }
    call(uploadHooks().fileClosed, reply);
    if (track) {
        track->addToPage();
    }
    if (uploadHooks().next) {
        uploadHooks().next();
    }
}

void protocolPlaybackCommandSetTitle(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "id");
    const auto title = Fields::text(request(reply), "title");
    if (!succeeded(reply) || !id || !title) {
        return;
    }
    if (Playlist* const playlist = Data::getPlaylistById(*id)) {
        playlist->setTitle(*title);
    } else if (Track* const track = Data::getTrackById(*id)) {
        track->setTitle(*title);
    }
}

void protocolPlaybackCommandExcludeTrack(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "trackId");
    const Track* const track = id ? Data::getTrackById(*id) : nullptr;
    if (response(reply) == QLatin1String("busy") && id) {
        Page::call("modalAdminDeleteItemBusyShow", *id, track ? track->getTitle() : QString());
    }
    static constexpr Refusal refusals[] = {{"usedInTask", "modalAdminDeleteItemInTaskShow"},
                                           {"usedInPreset", "modalAdminDeleteItemInPresetShow"}};
    showRefusal(reply, refusals);
    if (succeeded(reply)) {
        const int parentId = track ? track->parentId : 0;
        const int duration = track ? track->getDuration() : 0;
        PlaybackLibrary::removeTrack(id);
        changeDuration(parentId, -duration);
    }
    noteDeletion(reply);
}

void protocolPlaybackCommandRemove(const QJsonObject& reply)
{
    const auto id = Fields::integer(request(reply), "id");
    if (succeeded(reply) && id) {
        PlaybackLibrary::removePlaylist(id);
        for (Role& role : Data::roleList) {
            role.playlists.removeAll(*id);
        }
    }
    noteDeletion(reply);
}

void protocolPlaybackCommandIncludeTrack(const QJsonObject&)
{
    logCommand("IncludeTrack");
}

void protocolPlaybackCommandSetPosition(const QJsonObject&)
{
    logCommand("SetPosition");
}

void protocolPlaybackCommandSetRepetition(const QJsonObject&)
{
    logCommand("SetRepetition");
}
