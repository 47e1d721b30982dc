#pragma once

class QJsonObject;

void inputProtocolTaskCommandAdd(const QJsonObject& message);
void inputProtocolTaskCommandEnable(const QJsonObject& message);
void inputProtocolTaskCommandEdit(const QJsonObject& message);
