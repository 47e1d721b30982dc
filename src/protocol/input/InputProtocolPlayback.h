#pragma once

class QJsonObject;

void inputProtocolPlaybackCommandAddPlaylist(const QJsonObject& message);
void inputProtocolPlaybackCommandAddTrack(const QJsonObject& message);
void inputProtocolPlaybackCommandSetTitle(const QJsonObject& message);
void inputProtocolPlaybackCommandPlay(const QJsonObject& message);
void inputProtocolPlaybackCommandStop(const QJsonObject& message);
/// Pauses; what goes on is told by another push.
void inputProtocolPlaybackCommandPause(const QJsonObject& message);
void inputProtocolPlaybackCommandPlayNext(const QJsonObject& message);
void inputProtocolPlaybackCommandExcludeTrack(const QJsonObject& message);
void inputProtocolPlaybackCommandRemove(const QJsonObject& message);
void inputProtocolPlaybackCommandStartRedirection(const QJsonObject& message);
void inputProtocolPlaybackCommandStopRedirection(const QJsonObject& message);
