#include "app/Wiring.h"

#include "app/Data.h"
#include "media/AudioManager.h"
#include "protocol/Redirection.h"

namespace Wiring
{

void joinAudio()
{
    AudioManager* const audio = Data::audioManager;
    redirectionHooks().started = [audio](const QJsonObject& reply) { audio->start(reply); };
    redirectionHooks().stopped = [audio] {
        if (audio->isPlayed()) {
            audio->stop();
        }
    };
    redirectionHooks().endedElsewhere = [audio] {
        const bool spoke = audio->isPlayed();
        if (spoke) {
            audio->setPlayed(false);
        }
        return spoke;
    };
}

} // namespace Wiring
