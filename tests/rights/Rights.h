#pragma once

#include "fleet/Fleet.h"

#include "model/Role.h"
#include "model/User.h"

/// Short ways to say what the tests of roles and users say most.
namespace Rights
{

Role& addRole(int id, const QString& name);
/// The operator's own role, "guard", with the id 0.
Role& addOwnRole();
User& addUser(int id, const QString& name, const QString& role = {});
/// The logged-in user, "anna", with the id 0.
User& addOwnUser();

/// The ids and names of the mirror, as `0 guard`.
QStringList roles();
QStringList users();

/// The message with one field after the other replaced by what it can't be: missing, of another
/// type, out of range. An array is spoilt as a whole, and by one such element after the other.
QVector<QJsonObject> spoiltVersions(const QJsonObject& message);

} // namespace Rights
