#pragma once

#include "support/LogRecorder.h"
#include "support/PageRecorder.h"

#include <QJsonObject>
#include <QStringList>

class TestServer;

/// The console below its window, joined as in the program and empty: make one a test. The end of a
/// session clears the mirror, as the window's hook does, and is counted.
class SessionFixture
{
public:
    SessionFixture();
    ~SessionFixture();
    SessionFixture(const SessionFixture&) = delete;
    SessionFixture& operator=(const SessionFixture&) = delete;

    bool connectTo(const TestServer& server);
    /// How often a session has ended.
    int endCount() const { return ends; }
    /// Gives the console one object as if it had come from the server.
    static void receive(const QJsonObject& message);
    /// The messages that wait in the queue, as "user/getInfo 3" or "ack 7".
    static QStringList queued();

    PageRecorder page;
    LogRecorder log;

private:
    static void reset();

    int ends = 0;
};
