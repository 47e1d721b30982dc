#pragma once

class QJsonObject;

void inputProtocolHelperCommandNotify(const QJsonObject& message);
void inputProtocolHelperCommandBrokenInternet(const QJsonObject& message);
void inputProtocolHelperCommandBrokenLink(const QJsonObject& message);
