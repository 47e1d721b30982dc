#pragma once

#include <QObject>
#include <QTimer>

/// The position clock: estimates, twice a second, how far each running playback is, until the
/// server says. It doesn't stop at the end of a track: what follows is the server's to say.
class PlaybackUpdater : public QObject
{
    Q_OBJECT
public:
    PlaybackUpdater();

public Q_SLOTS:
    /// Moves every running playback on by half a second, but streams without an end.
    void update();

private:
    QTimer timer;
};
