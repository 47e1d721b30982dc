#pragma once

class QJsonObject;

void protocolServerCommandGetSettings(const QJsonObject& reply);
void protocolServerCommandGetNetworkInterfaceList(const QJsonObject& reply);
void protocolServerCommandSetNetworkInterface(const QJsonObject& reply);
void protocolServerCommandSetMulticastIp(const QJsonObject& reply);
/// The last of the three that a save sends: it reports for all of them.
void protocolServerCommandSetCommandPort(const QJsonObject& reply);
/// Ends the session: the server goes down.
void protocolServerCommandRestart(const QJsonObject& reply);
