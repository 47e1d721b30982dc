#pragma once

class QJsonObject;
class Role;
struct RoleList;

void protocolRoleCommandGetZones(const QJsonObject& reply);
void protocolRoleCommandGetPlaylist(const QJsonObject& reply);
void protocolRoleCommandGetPreset(const QJsonObject& reply);
void protocolRoleCommandGetTasks(const QJsonObject& reply);
void protocolRoleCommandSetZones(const QJsonObject& reply);
void protocolRoleCommandSetPlaylist(const QJsonObject& reply);
void protocolRoleCommandSetPreset(const QJsonObject& reply);
void protocolRoleCommandSetTasks(const QJsonObject& reply);

/// Takes one of a role's lists from a message, and tells the role page. False, with a log line and
/// no change, if the message has no such list; an element without an id is left out.
bool fillList(Role& role, const QJsonObject& source, const RoleList& list);
/// Opens the dialog of a refused change of lists, and puts the page's boxes back in order.
void showListRefusal(const QJsonObject& reply);
