#pragma once

/// One audio run on the server.
class Playback
{
public:
    int getId() const { return id; }
    void setId(int playbackId) { id = playbackId; }

private:
    int id = 0;
};
