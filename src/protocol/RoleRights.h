#pragma once

class QJsonObject;
class Role;

/// Takes the management rights over, and asks for what a new one opens.
void protocolRoleCommandGetServer(const QJsonObject& reply);
void protocolRoleCommandSetServer(const QJsonObject& reply);
void protocolRoleCommandGetRedirection(const QJsonObject& reply);
void protocolRoleCommandSetRedirection(const QJsonObject& reply);
/// Takes over all that the role page stores at once, and goes on with its saving.
void protocolRoleCommandSetPermissions(const QJsonObject& reply);

/// The role that a request named, the operator's own if it named none; null, with a log line, if it
/// has gone.
Role* roleOfReply(const QJsonObject& reply);
/// Opens the dialog of a refused change of rights.
void showRightsRefusal(const QJsonObject& reply);
