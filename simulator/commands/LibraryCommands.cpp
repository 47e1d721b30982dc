#include "simulator/EventLog.h"
#include "simulator/UploadReceiver.h"
#include "simulator/commands/CommandTable.h"
#include "simulator/commands/Definitions.h"

#include <QUrl>

#include <algorithm>

namespace simulator
{

namespace
{

constexpr int lastRoot = 7;
constexpr int recordings = 5; // nobody but the server puts anything there

/// The folder that a request puts something into, null when there is none that the asker may fill.
const Playlist* parentIn(Context& context, const QJsonObject& request)
{
    const Playlist* folder = context.installation().playlist(request.value("parentId").toInt());
    const bool isOpen = folder && context.access().sees(*folder) && folder->group != recordings;
    return isOpen ? folder : nullptr;
}

/// Whether a folder but `own` of that name lies in a folder.
bool isFolderIn(const Installation& installation, int parent, const QString& title, int own)
{
    return std::any_of(installation.playlists.begin(), installation.playlists.end(),
                       [&](const Playlist& other) {
                           return other.parent == parent && other.title == title && other.id != own;
                       });
}

bool isTrackIn(const Installation& installation, int folder, const QString& title, int own)
{
    return std::any_of(
        installation.tracks.begin(), installation.tracks.end(), [&](const Track& other) {
            return other.playlist == folder && other.title == title && other.id != own;
        });
}

/// Folders and tracks are numbered together: a new title names one of them by its number alone.
int freeId(const Installation& installation)
{
    return std::max(nextId(installation.playlists), nextId(installation.tracks));
}

QJsonObject addPlaylist(Context& context, const QJsonObject& request)
{
    Installation& installation = context.installation();
    const Playlist* parent = parentIn(context, request);
    Playlist folder;
    folder.title = request.value("title").toString();
    if (!parent || !isTitle(folder.title)) {
        return refusal("error");
    }
    if (isFolderIn(installation, parent->id, folder.title, 0)) {
        return refusal("titleExists");
    }
    folder.id = freeId(installation);
    folder.parent = parent->id;
    folder.group = parent->group;
    folder.position = request.value("position").toInt();
    folder.volume = request.value("volume").toInt();
    installation.playlists.append(folder);
    // Who makes a folder sees it.
    installation.role(context.role()->name)->playlistIds.append(folder.id);
    context.pushToOthers(makePush("playback", "addPlaylist", {{"id", folder.id}}));
    return success({{"newId", folder.id}});
}

void append(Context& context, Track& track)
{
    track.id = freeId(context.installation());
    context.installation().tracks.append(track);
    context.pushToOthers(makePush("playback", "addTrack", {{"id", track.id}}));
}

QJsonObject addStream(Context& context, Track& track)
{
    constexpr int endless = -1;
    const QUrl url(track.file, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() || !url.scheme().startsWith("http")) {
        return refusal("error");
    }
    track.duration = endless;
    append(context, track);
    return success({{"newId", track.id}});
}

/// Opens the port for a file. Of two consoles the second has to wait.
QJsonObject announceFile(Context& context, const Track& track, qint64 size)
{
    const QVector<Track>& known = context.installation().tracks;
    const int owner = context.uploadReceiver().current().session;
    if (owner != 0 && owner != context.session().number()) {
        return refusal("busy");
    }
    if (std::any_of(known.begin(), known.end(),
                    [&track](const Track& other) { return other.file == track.file; })) {
        return refusal("fileNameExist");
    }
    const quint16 port = context.uploadReceiver().open(context.session().localAddress(),
                                                       {context.session().number(), track, size});
    return port == 0 ? refusal("error") : success({{"port", port}});
}

QJsonObject addTrack(Context& context, const QJsonObject& request)
{
    const Playlist* parent = parentIn(context, request);
    const auto size = qint64(request.value("size").toDouble(-1));
    Track track;
    track.title = request.value("title").toString();
    track.file = request.value("track").toString();
    track.position = request.value("position").toInt();
    if (!parent || !isTitle(track.title) || track.file.isEmpty() || size < 0) {
        return refusal("error");
    }
    track.playlist = parent->id;
    return request.value("method") == "binary" ? announceFile(context, track, size)
                                               : addStream(context, track);
}

QJsonObject endTrack(Context& context, const QJsonObject&)
{
    UploadReceiver& receiver = context.uploadReceiver();
    Announcement announced = receiver.current();
    if (announced.session != context.session().number()) {
        return refusal("error");
    }
    receiver.close();
    if (receiver.bytes() == 0) {
        return refusal("empty");
    }
    if (receiver.bytes() != announced.size) {
        return refusal("incorrectSize");
    }
    if (!context.installation().playlist(announced.track.playlist)) {
        return refusal("error"); // the folder has been deleted meanwhile
    }
    announced.track.duration = receiver.seconds();
    append(context, announced.track);
    return success({{"newId", announced.track.id}, {"duration", announced.track.duration}});
}

/// A folder goes before a track of the same number.
QJsonObject setTitle(Context& context, const QJsonObject& request)
{
    Installation& installation = context.installation();
    const int id = request.value("id").toInt();
    const QString title = request.value("title").toString();
    Playlist* folder = installation.playlist(id);
    Track* track = folder ? nullptr : installation.track(id);
    const bool isKnown = folder ? id > lastRoot && context.access().sees(*folder)
                                : track && context.access().sees(*track);
    if (!isKnown || !isTitle(title)) {
        return refusal("error");
    }
    if (folder ? isFolderIn(installation, folder->parent, title, id)
               : isTrackIn(installation, track->playlist, title, id)) {
        return refusal("titleExists");
    }
    (folder ? folder->title : track->title) = title;
    context.pushToOthers(makePush("playback", "setTitle", {{"id", id}}));
    return success();
}

template <class List, class Test> bool holds(const List& list, Test test)
{
    return std::any_of(list.begin(), list.end(), test);
}

/// Why a track may not go; null when it may.
const char* objectionTo(const Installation& installation, const Track& track)
{
    if (holds(installation.playbacks,
              [&](const Playback& run) { return run.playlist == track.playlist; })) {
        return "busy";
    }
    if (holds(installation.tasks,
              [&](const Task& task) { return task.play && task.track == track.id; })) {
        return "usedInTask";
    }
    return holds(installation.presets,
                 [&](const Preset& preset) { return preset.track == track.id; })
               ? "usedInPreset"
               : nullptr;
}

/// The same for a folder, which has to be empty.
const char* objectionTo(const Installation& installation, const Playlist& folder)
{
    const int id = folder.id;
    if (holds(installation.playbacks, [id](const Playback& run) { return run.playlist == id; })) {
        return "busy";
    }
    if (holds(installation.tasks,
              [id](const Task& task) { return task.play && task.target == id; })) {
        return "usedInTask";
    }
    if (holds(installation.presets, [id](const Preset& preset) { return preset.playlist == id; })) {
        return "usedInPreset";
    }
    const bool isFull =
        holds(installation.playlists, [id](const Playlist& below) { return below.parent == id; }) ||
        holds(installation.tracks, [id](const Track& track) { return track.playlist == id; });
    return id <= lastRoot || isFull ? "error" : nullptr;
}

template <class Record> void removeById(QVector<Record>& list, int id)
{
    list.erase(std::remove_if(list.begin(), list.end(),
                              [id](const Record& record) { return record.id == id; }),
               list.end());
}

QJsonObject excludeTrack(Context& context, const QJsonObject& request)
{
    Installation& installation = context.installation();
    const Track* track = installation.track(request.value("trackId").toInt());
    if (!track || track->playlist != request.value("parentId").toInt() ||
        !context.access().sees(*track)) {
        return refusal("error");
    }
    if (const char* objection = objectionTo(installation, *track)) {
        return refusal(objection);
    }
    const int id = track->id;
    removeById(installation.tracks, id);
    context.pushToOthers(makePush("playback", "excludeTrack", {{"id", id}}));
    return success();
}

QJsonObject remove(Context& context, const QJsonObject& request)
{
    Installation& installation = context.installation();
    const int id = request.value("id").toInt();
    const Playlist* folder = installation.playlist(id);
    if (!folder || !context.access().sees(*folder)) {
        return refusal("error");
    }
    if (const char* objection = objectionTo(installation, *folder)) {
        return refusal(objection);
    }
    removeById(installation.playlists, id);
    for (Role& role : installation.roles) {
        role.playlistIds.removeAll(id);
    }
    context.pushToOthers(makePush("playback", "remove", {{"id", id}}));
    return success();
}

} // namespace

Commands libraryCommands()
{
    const QLatin1String playback("playback");
    const Need management{Right::Playback, Level::Administration};
    return {
        {playback, QLatin1String("addPlaylist"), management, addPlaylist},
        {playback, QLatin1String("addTrack"), management, addTrack},
        {playback, QLatin1String("endTrack"), management, endTrack},
        {playback, QLatin1String("setTitle"), management, setTitle},
        {playback, QLatin1String("excludeTrack"), management, excludeTrack},
        {playback, QLatin1String("remove"), management, remove},
    };
}

} // namespace simulator
