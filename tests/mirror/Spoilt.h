#pragma once

#include <QJsonObject>
#include <QVector>

/// Messages that are not what they should be.
namespace Spoilt
{

/// The message with one field after the other, at any depth, replaced by what it can't be: missing,
/// of another type, beyond any range. Each element of an array is spoilt in turn.
QVector<QJsonObject> versions(const QJsonObject& message);

/// Whether a text has something of the values that were put in.
bool isIn(const QString& text);

} // namespace Spoilt
