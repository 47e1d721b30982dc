#include "network/Fields.h"

#include <cmath>
#include <limits>

namespace Fields
{

std::optional<int> integer(const QJsonValue& value)
{
    if (!value.isDouble()) {
        return std::nullopt;
    }
    const double number = value.toDouble();
    if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max() ||
        std::trunc(number) != number) {
        return std::nullopt;
    }
    return static_cast<int>(number);
}

std::optional<int> integer(const QJsonObject& object, const char* name)
{
    return integer(object.value(QLatin1String(name)));
}

std::optional<double> number(const QJsonObject& object, const char* name)
{
    const QJsonValue value = object.value(QLatin1String(name));
    return value.isDouble() ? std::optional(value.toDouble()) : std::nullopt;
}

std::optional<bool> boolean(const QJsonObject& object, const char* name)
{
    const QJsonValue value = object.value(QLatin1String(name));
    return value.isBool() ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<QString> text(const QJsonObject& object, const char* name)
{
    const QJsonValue value = object.value(QLatin1String(name));
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

std::optional<QJsonArray> array(const QJsonObject& object, const char* name)
{
    const QJsonValue value = object.value(QLatin1String(name));
    return value.isArray() ? std::optional(value.toArray()) : std::nullopt;
}

std::optional<QJsonObject> object(const QJsonObject& object, const char* name)
{
    const QJsonValue value = object.value(QLatin1String(name));
    return value.isObject() ? std::optional(value.toObject()) : std::nullopt;
}

} // namespace Fields
