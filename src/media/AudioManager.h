#pragma once

#include <QObject>
#include <QTimer>

#include <memory>

class CapturePlayer;
class QJsonObject;
class QString;

/// The operator's microphone: the live stream to the server, and the sound test of the settings.
/// Each has a capture of its own. A source that can't be opened, at once or a moment later, ends
/// in the page's dialog.
class AudioManager : public QObject
{
    Q_OBJECT
public:
    AudioManager();
    ~AudioManager() override;

    /// Takes what the server says about live broadcasts from now on.
    void join();
    /// The reverse of `join`; closes what is open.
    void part();

    /// Streams to the port that the reply names, from the stored input, in place of a stream that
    /// runs. Where that fails the server is asked to end the broadcast it has begun.
    void start(const QJsonObject& reply);
    /// Ends the stream, and tells the page.
    void stop();
    /// Lets the operator hear the input `device`.
    void startTest(QString& device);
    void stopTest();

    /// Whether this console is the one that speaks.
    bool isPlayed() const { return played; }
    /// False also closes the microphone of a stream that runs; the page isn't told.
    void setPlayed(bool value);
    /// Closes stream and test, and tells nobody: the session is over.
    void release();

private:
    void watchInput(const QString& input);
    void streamFailed();
    void testFailed();

    std::unique_ptr<CapturePlayer> stream;
    std::unique_ptr<CapturePlayer> test;
    QTimer inputWatch; ///< runs with a stream of a named input
    bool played = false;
};
