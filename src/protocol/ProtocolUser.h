#pragma once

class QJsonObject;

/// Starts the session, or says why not.
void protocolUserCommandLogin(const QJsonObject& reply);
/// Ends the session, or the program where that was asked.
void protocolUserCommandLogout(const QJsonObject& reply);
/// Makes the current user at the end of the login, refreshes it later, and ends the session of a
/// user whose role has changed.
void protocolUserCommandGetInfo(const QJsonObject& reply);
/// Opens the screen lock or an alarm page, or tells that the password was wrong.
void protocolUserCommandCheckAccess(const QJsonObject& reply);
