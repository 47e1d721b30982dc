#pragma once

/// One audio run on the server.
class Playback
{
public:
    int getId() const { return id; }
    void setId(int playbackId) { id = playbackId; }
    int getPlaylistId() const { return playlistId; }
    void setPlaylistId(int folderId) { playlistId = folderId; }
    int getTrackId() const { return trackId; }
    void setTrackId(int currentTrackId) { trackId = currentTrackId; }

private:
    int id = 0;
    int playlistId = 0;
    int trackId = 0;
};
