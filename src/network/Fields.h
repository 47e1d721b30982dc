#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>

/// Readers of message fields by name and type. A field that is missing or of another type gives
/// nothing; none is ever converted.
namespace Fields
{

/// A whole number in the range of `int`; 12.5, 1e300 and "12" are none.
std::optional<int> integer(const QJsonValue& value);
std::optional<int> integer(const QJsonObject& object, const char* name);
std::optional<double> number(const QJsonObject& object, const char* name);
std::optional<bool> boolean(const QJsonObject& object, const char* name);
std::optional<QString> text(const QJsonObject& object, const char* name);
std::optional<QJsonArray> array(const QJsonObject& object, const char* name);
std::optional<QJsonObject> object(const QJsonObject& object, const char* name);

} // namespace Fields
