#pragma once

#include <QString>

/// One folder of the audio library. Ids 1 to 7 are the fixed category roots.
class Playlist
{
public:
    int getId() const { return id; }
    void setId(int playlistId) { id = playlistId; }
    int getParent() const { return parent; }
    void setParent(int playlistId) { parent = playlistId; }
    const QString& getTitle() const { return title; }
    void setTitle(const QString& newTitle) { title = newTitle; }
    /// The place among its siblings, as the server keeps it.
    int getPosition() const { return position; }
    void setPosition(int place) { position = place; }

private:
    int id = 0;
    int parent = 0;
    int position = 0;
    QString title;
};
