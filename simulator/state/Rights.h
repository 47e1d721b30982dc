#pragma once

#include "simulator/state/Records.h"

namespace simulator
{

/// The account and the role that nobody can delete or weaken over the wire.
constexpr const char* administratorName = "admin";

/// A role's eight management rights by their wire keys.
QJsonObject managementRights(const Role& role);
/// A role's three rights to broadcast by their wire keys.
QJsonObject broadcastRights(const Role& role);

/// Sets one of these rights by its wire key. False, and nothing changed, for an unknown key or a
/// value that the key does not take: a bool, or a word for the rights with levels.
bool setRight(Role& role, const QString& key, const QJsonValue& value);

} // namespace simulator
