#include "protocol/input/InputProtocolPreset.h"

#include "protocol/Request.h"

void inputProtocolPresetCommandReloadChanges(const QJsonObject&)
{
    send(PresetCommand::List);
}

void inputProtocolPresetCommandStart(const QJsonObject&)
{
    send(PlaybackCommand::GetPlays);
}

void inputProtocolPresetCommandStop(const QJsonObject&)
{
    send(PlaybackCommand::GetPlays);
}
