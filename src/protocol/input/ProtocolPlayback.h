#pragma once

class QJsonObject;

void inputProtocolPlaybackCommandAddPlaylist(const QJsonObject& message);
void inputProtocolPlaybackCommandAddTrack(const QJsonObject& message);
void inputProtocolPlaybackCommandSetTitle(const QJsonObject& message);
void inputProtocolPlaybackCommandPlay(const QJsonObject& message);
void inputProtocolPlaybackCommandStartRedirection(const QJsonObject& message);
