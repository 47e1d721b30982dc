#pragma once

#include <QObject>
#include <QVector>

#include <functional>

class Device;

/// Shows the units of the mirror on a page, a portion at each turn of the event loop: a thousand
/// tiles take the web engine the better part of a second, and a click in between mustn't wait for
/// the last of them. A unit that goes meanwhile is left out; one that changes is shown as it is
/// when its turn comes.
class DeviceReplay : public QObject
{
    Q_OBJECT
public:
    using Show = std::function<void(const Device&)>;

    /// Units shown at once. Measured: some 0.4 ms a unit, so a click waits 15 ms.
    static constexpr int portion = 40;

    using QObject::QObject;

    /// Shows the first portion at once and the others later. Ends the replay that is under way:
    /// its page has gone.
    void start(const Show& show);
    void stop();

private:
    void showPortion();

    Show showDevice;
    QVector<int> waiting; ///< ids of the units still to show, the next one last
    int round = 0;        ///< tells a turn of this replay from one of a replay that was ended
};
