#pragma once

class QJsonObject;

/// Takes the started playback in, on the units that the server names, and opens its page.
void protocolPlaybackCommandPlay(const QJsonObject& reply);
void protocolPlaybackCommandPlayNext(const QJsonObject& reply);
void protocolPlaybackCommandPause(const QJsonObject& reply);
/// Also ends a playback that the server has forgotten.
void protocolPlaybackCommandStop(const QJsonObject& reply);
/// Takes over the volume of the units that carry the playback.
void protocolPlaybackCommandSetVolume(const QJsonObject& reply);
void protocolPlaybackCommandGetTrack(const QJsonObject& reply);
