#include "mirror/Spoilt.h"

#include <QJsonArray>

#include <cmath>

namespace
{

const QString wrongText = "seven";
constexpr double wrongNumber = 77777.25;

QVector<QJsonValue> otherTypes(const QJsonValue& good)
{
    QVector<QJsonValue> values{QJsonValue::Undefined, QJsonValue::Null,
                               QJsonObject{{"seven", wrongText}},
                               QJsonArray{wrongText, QJsonObject()}};
    if (!good.isString()) {
        values.append(wrongText);
    }
    if (!good.isBool()) {
        values.append(true);
    }
    if (!good.isDouble() || std::floor(good.toDouble()) == good.toDouble()) {
        values += {wrongNumber, 1e300, -77777e9}; // any number but a fraction is one of a whole
    }
    return values;
}

QVector<QJsonValue> versionsOf(const QJsonValue& good)
{
    QVector<QJsonValue> values = otherTypes(good);
    for (const QJsonObject& object : Spoilt::versions(good.toObject())) {
        values.append(object);
    }
    const QJsonArray elements = good.toArray();
    for (int index = 0; index < elements.size(); ++index) {
        for (const QJsonValue& value : versionsOf(elements.at(index))) {
            QJsonArray spoilt = elements;
            spoilt.replace(index, value);
            values.append(spoilt);
        }
    }
    return values;
}

} // namespace

QVector<QJsonObject> Spoilt::versions(const QJsonObject& message)
{
    QVector<QJsonObject> result;
    for (const QString& field : message.keys()) {
        if (field == "request" || field == "action" || field == "order" || field == "response") {
            continue;
        }
        for (const QJsonValue& value : versionsOf(message.value(field))) {
            QJsonObject spoilt = message;
            spoilt.insert(field, value); // an undefined value takes the field out
            result.append(spoilt);
        }
    }
    return result;
}

bool Spoilt::isIn(const QString& text)
{
    return text.contains(wrongText) || text.contains("7777");
}
