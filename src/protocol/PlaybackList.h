#pragma once

class QJsonObject;

/// Makes the running playbacks, and what the units play, those of the reply.
void protocolPlaybackCommandGetPlays(const QJsonObject& reply);
