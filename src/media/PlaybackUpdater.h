#pragma once

#include <QObject>
#include <QTimer>

#include <functional>
#include <utility>

/// The position clock: estimates, twice a second, how far each running playback is, until the
/// server says. It doesn't stop at the end of a track: what follows is the server's to say.
class PlaybackUpdater : public QObject
{
    Q_OBJECT
public:
    PlaybackUpdater();

    /// Is called with true before the positions of one turn go to the page, and with false behind.
    void setUpdateHook(std::function<void(bool)> hook) { onUpdate = std::move(hook); }

public Q_SLOTS:
    /// Moves every running playback on by half a second, but streams without an end.
    void update();

private:
    QTimer timer;
    std::function<void(bool)> onUpdate = [](bool) {};
};
