#pragma once

#include <QJsonObject>

#include <functional>

/// What the messages about a live broadcast cause at the microphone. Installed once at start; a
/// hook that isn't set does nothing.
struct RedirectionHooks {
    /// The server has opened its port for us: the reply names it.
    std::function<void(const QJsonObject& reply)> started;
    /// The server has ended the broadcast because we asked; it need not be this console's.
    std::function<void()> stopped;
    /// Somebody else has ended a broadcast: whether it was this console's, which then is silent.
    std::function<bool()> endedElsewhere;
};

/// The installed hooks.
RedirectionHooks& redirectionHooks();

/// Marks the units that are spoken to, and opens the microphone.
void protocolPlaybackCommandStartRedirection(const QJsonObject& reply);
/// Marks the units that are spoken to, by whichever console.
void protocolPlaybackCommandGetRedirection(const QJsonObject& reply);
/// Closes the microphone, and takes the marks of all units away.
void protocolPlaybackCommandStopRedirection(const QJsonObject& reply);

/// Takes the marks of a broadcast away from all units.
void unmarkRedirection();
