#pragma once

#include <QObject>

#include <memory>

struct CaptureOptions;
struct libvlc_event_t;
struct libvlc_instance_t;
struct libvlc_media_player_t;
struct libvlc_media_t;

/// One running capture: it holds the sound source from `open` until it is destroyed, which
/// releases everything.
class CapturePlayer : public QObject
{
    Q_OBJECT
public:
    /// Starts to capture, with a `volume` of 0 to 100 for what is heard locally. Null, with a line
    /// on standard error, where no source can be made of the options.
    static std::unique_ptr<CapturePlayer> open(const CaptureOptions& options, int volume);
    ~CapturePlayer() override;

Q_SIGNALS:
    /// The source couldn't be opened, or has ended; comes once, in the thread of this object, and
    /// its receiver may destroy it.
    void failed();

private:
    CapturePlayer() = default;
    bool prepare(const CaptureOptions& options);
    bool play(int volume);
    /// Called from a thread of the library.
    static void reportFailure(const libvlc_event_t* event, void* capture);
    void failOnce();

    libvlc_instance_t* instance = nullptr;
    libvlc_media_player_t* player = nullptr;
    libvlc_media_t* media = nullptr;
    bool hasFailed = false;
};
