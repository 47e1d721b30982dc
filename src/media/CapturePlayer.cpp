#include "media/CapturePlayer.h"

#include "media/CaptureOptions.h"

#include <vlc/vlc.h>

#include <cstdio>
#include <vector>

namespace
{

/// What ends a capture: a microphone that is pulled out counts as its end.
constexpr libvlc_event_e failures[] = {libvlc_MediaPlayerEncounteredError,
                                       libvlc_MediaPlayerEndReached};

} // namespace

std::unique_ptr<CapturePlayer> CapturePlayer::open(const CaptureOptions& options, int volume)
{
    std::unique_ptr<CapturePlayer> capture(new CapturePlayer);
    if (!capture->prepare(options) || !capture->play(volume)) {
        std::fputs("libvlc new media error\n", stderr);
        return nullptr;
    }
    return capture;
}

bool CapturePlayer::prepare(const CaptureOptions& options)
{
    std::vector<const char*> arguments;
    for (const QByteArray& argument : options.arguments) {
        arguments.push_back(argument.constData());
    }
    instance = libvlc_new(static_cast<int>(arguments.size()), arguments.data());
    player = instance ? libvlc_media_player_new(instance) : nullptr;
    media = player ? libvlc_media_new_location(instance, options.location.constData()) : nullptr;
    if (!media) {
        return false;
    }
    for (const QByteArray& option : options.mediaOptions) {
        libvlc_media_add_option(media, option.constData());
    }
    return true;
}

bool CapturePlayer::play(int volume)
{
    libvlc_event_manager_t* const events = libvlc_media_player_event_manager(player);
    for (const libvlc_event_e failure : failures) {
        libvlc_event_attach(events, failure, &CapturePlayer::reportFailure, this);
    }
    libvlc_audio_set_volume(player, volume);
    libvlc_media_player_set_media(player, media);
    return libvlc_media_player_play(player) == 0;
}

CapturePlayer::~CapturePlayer()
{
    if (player) {
        libvlc_event_manager_t* const events = libvlc_media_player_event_manager(player);
        for (const libvlc_event_e failure : failures) {
            libvlc_event_detach(events, failure, &CapturePlayer::reportFailure, this);
        }
        libvlc_media_player_stop(player);
        libvlc_media_player_release(player);
    }
    if (media) {
        libvlc_media_release(media);
    }
    if (instance) {
        libvlc_release(instance);
    }
}

void CapturePlayer::reportFailure(const libvlc_event_t*, void* capture)
{
    auto* const self = static_cast<CapturePlayer*>(capture);
    QMetaObject::invokeMethod(
        self, [self] { self->failOnce(); }, Qt::QueuedConnection);
}

void CapturePlayer::failOnce()
{
    if (!hasFailed) {
        hasFailed = true;
        Q_EMIT failed();
    }
}
