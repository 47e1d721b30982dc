#pragma once

#include <QJsonObject>

/// The console's mirror as the rules' tests fill it and look at it, in JSON: kinds are "unit",
/// "zone", "role", "user", "playlist", "track", "playback" and "task", fields named as below.
namespace Mirror
{

/// Makes an object of the kind with these fields, "id" among them, and puts it into the mirror.
void add(const QString& kind, const QJsonObject& fields);
/// Calls the setters of the fields, in the order of the tables.
void set(const QString& kind, int id, const QJsonObject& fields);
/// Gives the variables of the session: "gong", "shownUnit", "shownPlayback", …
void setSession(const QJsonObject& fields);

/// All fields of one object; nothing if there is none.
QJsonValue one(const QString& kind, int id);
/// The ids of a kind, in their order.
QJsonArray ids(const QString& kind);
/// Everything.
QJsonObject picture();

} // namespace Mirror
