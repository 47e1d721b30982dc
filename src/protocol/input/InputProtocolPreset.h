#pragma once

class QJsonObject;

void inputProtocolPresetCommandReloadChanges(const QJsonObject& message);
void inputProtocolPresetCommandStart(const QJsonObject& message);
void inputProtocolPresetCommandStop(const QJsonObject& message);
