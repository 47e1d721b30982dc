#include "playback/Sound.h"

#include "model/Library.h"
#include <memory>

namespace Sound
{

namespace
{

template <class Item> QVector<int> ids(const ModelList<Item>& list)
{
    QVector<int> result;
    for (const Item& item : list) {
        result.append(item.getId());
    }
    return result;
}

} // namespace

Playlist& addPlaylist(int id, const QString& title, int parent, int group)
{
    return *Data::playlistList.append(
        std::make_unique<Playlist>(id, title, parent, 0, 200, 0, group));
}

Track& addTrack(int id, int playlistId, const QString& title, int duration)
{
    return *Data::trackList.append(std::make_unique<Track>(id, playlistId, title, 0, duration));
}

Playback& addPlayback(int id, int playlistId, int trackId)
{
    auto playback = std::make_unique<Playback>();
    playback->setId(id);
    playback->setPlaylistId(playlistId);
    playback->setTrackId(trackId);
    playback->setPlaybackType(Library::getPlaybackType(playlistId));
    playback->setPlaying(true);
    return *Data::playbackList.append(std::move(playback));
}

Device& addCarrier(int id, const Playback& playback)
{
    Device& device = Fleet::addDevice(id);
    device.setPlayback(playback.getId());
    device.setPlaybackCategory(playback.getCategory());
    return device;
}

void addLibrary()
{
    addPlaylist(2, QStringLiteral("Плейлист"));
    addPlaylist(20, QStringLiteral("Morning"), 2);
    addPlaylist(7, QStringLiteral("Гонг"), 0, 7);
    addTrack(30, 20, QStringLiteral("Birds"));
    addTrack(40, 7, QStringLiteral("Bell"));
    addTrack(31, 20, QStringLiteral("Rain"));
}

QStringList playbacks()
{
    QStringList result;
    for (const Playback& playback : Data::playbackList) {
        result.append(QStringLiteral("%1=%2/%3 %4 %5%6")
                          .arg(QString::number(playback.getId()),
                               QString::number(playback.getPlaylistId()),
                               QString::number(playback.getTrackId()),
                               QString::number(playback.getCategory()),
                               playback.getPlaying() ? QStringLiteral("+") : QStringLiteral("-"),
                               QString::number(playback.getTimeShift())));
    }
    return result;
}

QStringList devices()
{
    QStringList result;
    for (const Device& device : Data::deviceList) {
        result.append(QStringLiteral("%1=%2/%3")
                          .arg(device.getId())
                          .arg(device.getPlayback())
                          .arg(device.getPlaybackCategory()));
    }
    return result;
}

QVector<int> playlists()
{
    return ids(Data::playlistList);
}

QVector<int> tracks()
{
    return ids(Data::trackList);
}

} // namespace Sound
