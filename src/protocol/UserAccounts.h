#pragma once

class QJsonObject;
class QString;

void protocolUserCommandAdd(const QJsonObject& reply);
void protocolUserCommandEdit(const QJsonObject& reply);
void protocolUserCommandDelete(const QJsonObject& reply);
/// Takes users out, in or over, whichever the number of entries tells.
void protocolUserCommandList(const QJsonObject& reply);
/// Takes over who is connected; every user is told to the page afresh.
void protocolUserCommandGetConnected(const QJsonObject& reply);
void protocolUserCommandSaveValue(const QJsonObject& reply);
void protocolUserCommandLoadValue(const QJsonObject& reply);

/// Asks for a role for a user that the server knows.
void includeInRole(const QString& name, const QString& role);
/// The same as soon as the server has taken the user in; if it refuses, nobody's role is moved.
void includeInRoleOnceAdded(const QString& name, const QString& role);

/// An id that no user has: ids tell the page's rows apart, also after deletions.
int nextUserId();
