#pragma once

#include <QString>

/// One folder of the audio library. Ids 1 to 7 are the fixed category roots, see `PlaylistWords`.
class Playlist
{
public:
    static constexpr int firstRoot = 1;
    static constexpr int lastRoot = 7;
    static constexpr int alarmRoot = 6;
    static constexpr int gongRoot = 7;
    /// The microphone's recordings, which the console never lists.
    static constexpr int recordingRoot = 5;

    Playlist() = default;
    /// Stores alone; the page hears nothing.
    Playlist(int playlistId, const QString& playlistTitle, int parentId, int place, int seconds,
             int reportedVolume, int category);

    int getId() const { return id; }
    /// Only before the playlist is in the mirror's list, or with the id that it has. The root of
    /// the alarms shows the menu's entry of alarms and gongs.
    void setId(int playlistId);
    const QString& getTitle() const { return title; }
    /// Tells the page of a change.
    void setTitle(const QString& newTitle);
    /// The folder below which it hangs: the parent, its category while the mirror doesn't know the
    /// parent, which the operator may not see, or 0 without a parent.
    int getParent() const;
    void setParent(int playlistId) { parent = playlistId; }
    /// The place among its siblings, as the server keeps it.
    int getPosition() const { return position; }
    void setPosition(int place) { position = place; }
    /// Seconds in all.
    int getDuration() const { return duration; }
    /// Tells the page on every call.
    void setDuration(int seconds);
    int getVolume() const { return volume; }
    void setVolume(int reportedVolume) { volume = reportedVolume; }
    /// The category, 1 to 7.
    int getGroup() const { return group; }
    void setGroup(int category) { group = category; }

    /// Adds its row to the page, which takes it where that parent is open.
    void addToPage() const;

private:
    int id = 0;
    QString title;
    int parent = 0;
    int position = 0;
    int duration = 0;
    int volume = 0;
    int group = 0;
};
