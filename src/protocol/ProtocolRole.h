#pragma once

#include <QString>

class QJsonObject;
class Role;

void protocolRoleCommandAdd(const QJsonObject& reply);
void protocolRoleCommandEdit(const QJsonObject& reply);
void protocolRoleCommandDelete(const QJsonObject& reply);
/// Makes the role of the logged-in user, and asks for what it may do.
void protocolRoleCommandGetInfo(const QJsonObject& reply);
/// Takes roles in or out, whichever the number of entries tells; as many as there are change
/// nothing.
void protocolRoleCommandList(const QJsonObject& reply);
void protocolRoleCommandInclude(const QJsonObject& reply);
void protocolRoleCommandExclude(const QJsonObject& reply);

/// Takes a role that isn't the operator's into the mirror, under the next id.
Role& appendRole(const QString& name, const QString& title = {});
