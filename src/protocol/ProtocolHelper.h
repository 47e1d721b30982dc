#pragma once

class QJsonObject;

void protocolHelperCommandCheckInternet(const QJsonObject& reply);
void protocolHelperCommandCheckServerUpdate(const QJsonObject& reply);
void protocolHelperCommandGetCurrentServerVersion(const QJsonObject& reply);
/// Sets the clock of the header.
void protocolHelperCommandGetDateTime(const QJsonObject& reply);
