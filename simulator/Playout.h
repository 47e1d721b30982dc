#pragma once

#include <QObject>
#include <QTimer>

namespace simulator
{

class Server;

/// What the time does by the rules: tracks end and lead to the next, playbacks, gongs and messages
/// from a unit's memory end, and so does what a unit is busy with. It goes on where nothing else
/// happens of itself.
class Playout : public QObject
{
    Q_OBJECT

public:
    /// The server must outlive it.
    explicit Playout(Server& playing);

    /// Looks once a second what has ended.
    void start();
    /// Looks now.
    void step();

private:
    void endTracks();
    void endMessages();
    void endWork();

    Server& server;
    QTimer timer;
};

} // namespace simulator
