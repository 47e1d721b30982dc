#pragma once

class QJsonObject;

/// Makes the playback that has been started, and leads to it.
void protocolPresetCommandPlay(const QJsonObject& reply);
/// Makes the mirror's presets those of the list.
void protocolPresetCommandList(const QJsonObject& reply);
void protocolPresetCommandAdd(const QJsonObject& reply);
void protocolPresetCommandEdit(const QJsonObject& reply);
void protocolPresetCommandRemove(const QJsonObject& reply);
