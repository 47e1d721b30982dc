#include "protocol/input/ProtocolPlayback.h"

#include "protocol/Request.h"

void inputProtocolPlaybackCommandAddPlaylist(const QJsonObject&)
{
    send(PlaybackCommand::List);
}

void inputProtocolPlaybackCommandAddTrack(const QJsonObject&)
{
    send(PlaybackCommand::List);
}

void inputProtocolPlaybackCommandSetTitle(const QJsonObject&)
{
    send(PlaybackCommand::List);
}

void inputProtocolPlaybackCommandPlay(const QJsonObject&)
{
    send(PlaybackCommand::GetPlays);
}

void inputProtocolPlaybackCommandStartRedirection(const QJsonObject&)
{
    send(PlaybackCommand::GetRedirection);
}
