#pragma once

#include <QString>
#include <QVector>

#include <optional>

/// One audio run on the server: what plays, where, how far it is and how it goes on. The server
/// moves it on; between two of its messages the position clock estimates the position.
class Playback
{
public:
    int getId() const { return id; }
    /// Only before the playback is in the mirror's list, or with the id that it has.
    void setId(int playbackId) { id = playbackId; }
    /// The folder that plays.
    int getPlaylistId() const { return playlistId; }
    void setPlaylistId(int folderId) { playlistId = folderId; }
    /// The current track of the folder.
    int getTrackId() const { return trackId; }
    /// Tells the page if the track is known.
    void setTrackId(int currentTrackId);
    /// False while paused.
    bool getPlaying() const { return playing; }
    /// Tells the page on every call.
    void setPlaying(bool running);
    int getVolume() const { return volume; }
    void setVolume(int reportedVolume) { volume = reportedVolume; }
    /// Seconds into the current track; the estimate may pass the track's end.
    double getTimeShift() const { return timeShift; }
    /// Tells the page if the track and its length are known.
    void setTimeShift(double seconds);
    /// The category, 1 to 7, while it runs; 0 while it's paused.
    int getPlaybackType() const { return playing ? playbackType : 0; }
    void setPlaybackType(int category);
    /// The category, paused or not: that of the units which carry it.
    int getCategory() const { return playbackType; }
    /// The id of the task that has started it, 0 for none.
    int getTaskId() const { return taskId; }
    /// Passes the task on to the units that carry the playback.
    void setTaskId(int startingTaskId);
    /// What is repeated: "list" the folder, "track" the one track.
    const QString& getTargetPlaying() const { return targetPlaying; }
    void setTargetPlaying(const QString& target) { targetPlaying = target; }
    /// Repeats after the first pass, so that 0 plays once.
    int getRepeats() const { return repeats; }
    void setRepeats(int count) { repeats = count; }
    /// What the server does after the last pass: "pause" or "stop".
    const QString& getActionIfEnd() const { return actionIfEnd; }
    void setActionIfEnd(const QString& action) { actionIfEnd = action; }

    /// Ids of the units that carried it when the server last told; which ones do now, the units
    /// say themselves.
    QVector<int>& getDeviceList() { return deviceList; }
    const QVector<int>& getDeviceList() const { return deviceList; }
    void setDeviceList(const QVector<int>& deviceIds) { deviceList = deviceIds; }

    /// The integer mean of their volumes; nothing if none of them is known.
    std::optional<int> meanVolume() const;

    /// Adds its card to the page. Titles and length are empty and 0 while the mirror doesn't know
    /// the folder or the track.
    void addToPage() const;
    /// Tells the page the position, if the track and its length are known.
    void showTimeShift() const;

private:
    int id = 0;
    int playlistId = 0;
    int trackId = 0;
    bool playing = false;
    QVector<int> deviceList;
    int volume = 0;
    double timeShift = 0.0;
    int playbackType = 0;
    int taskId = 0;
    QString targetPlaying;
    int repeats = 0;
    QString actionIfEnd;
};
