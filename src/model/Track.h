#pragma once

#include <QString>

/// One audio item of a playlist.
class Track
{
public:
    Track() = default;
    /// Stores alone; the page hears nothing.
    Track(int trackId, int playlistId, const QString& trackTitle, int place, int seconds);

    int getId() const { return id; }
    const QString& getTitle() const { return title; }
    /// Tells the page of a change.
    void setTitle(const QString& newTitle);
    /// Seconds; -1 for a stream without an end, 0 while nobody has measured it.
    int getDuration() const { return duration; }
    /// Tells the page on every call.
    void setDuration(int seconds);

    /// Adds its row to the page, which takes it where its playlist is open.
    void addToPage() const;

    int id = 0;
    int parentId = 0; ///< the playlist that holds it
    int position = 0; ///< place within the playlist, as the server keeps it

private:
    QString title;
    int duration = 0;
};
