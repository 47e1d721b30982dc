#pragma once

class QJsonObject;

void inputProtocolTaskCommandAdd(const QJsonObject& message);
void inputProtocolTaskCommandEnable(const QJsonObject& message);
void inputProtocolTaskCommandEdit(const QJsonObject& message);
void inputProtocolTaskCommandStart(const QJsonObject& message);
void inputProtocolTaskCommandDelete(const QJsonObject& message);
