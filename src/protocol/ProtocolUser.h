#pragma once

class QJsonObject;

/// Starts the session, or says why not.
void protocolUserCommandLogin(const QJsonObject& reply);
/// Ends the session, or the program where that was asked.
void protocolUserCommandLogout(const QJsonObject& reply);
/// Makes the current user at the end of the login, refreshes it later, and ends the session of a
/// user whose role has changed.
void protocolUserCommandGetInfo(const QJsonObject& reply);
/// Opens what the password was asked for, or says that it was wrong.
void protocolUserCommandCheckAccess(const QJsonObject& reply);

/// What waits for the answer about the alarm password, see `Data::waitForAlarm`.
enum WaitForAlarm : int {
    WaitForNothing = 0,
    WaitForAlarmMessages = 1,
    WaitForAlarmMicrophone = 2,
};
