#include "rights/Rights.h"

#include <memory>

namespace Rights
{

namespace
{

template <class Item> QStringList idsAndNames(const ModelList<Item>& list)
{
    QStringList result;
    for (const Item& item : list) {
        result.append(QStringLiteral("%1 %2").arg(item.getId()).arg(item.getName()));
    }
    return result;
}

template <class Item> std::unique_ptr<Item> make(int id, const QString& name)
{
    auto item = std::make_unique<Item>();
    item->setId(id);
    item->setName(name);
    return item;
}

QVector<QJsonValue> spoiltValues(const QJsonValue& good)
{
    QVector<QJsonValue> values{QJsonValue::Undefined, QJsonValue::Null, QJsonArray{"x", 7.5},
                               QJsonObject{{"a", 1}}, 1e300};
    values.append(good.isString() ? QJsonValue(7) : QJsonValue("seven"));
    values.append(good.isBool() ? QJsonValue(1) : QJsonValue(true));
    return values;
}

} // namespace

Role& addRole(int id, const QString& name)
{
    return *Data::roleList.append(make<Role>(id, name));
}

Role& addOwnRole()
{
    Role& role = addRole(0, "guard");
    role.setCurrent(true);
    return role;
}

User& addUser(int id, const QString& name, const QString& role)
{
    auto user = make<User>(id, name);
    user->setRole(role);
    return *Data::userList.append(std::move(user));
}

User& addOwnUser()
{
    User& user = addUser(0, "anna", "guard");
    user.setTitle("Anna");
    user.setCurrent(true);
    return user;
}

QStringList roles()
{
    return idsAndNames(Data::roleList);
}

QStringList users()
{
    return idsAndNames(Data::userList);
}

QVector<QJsonObject> spoiltVersions(const QJsonObject& message)
{
    QVector<QJsonObject> result;
    for (const QString& field : message.keys()) {
        const QJsonValue good = message.value(field);
        const auto spoil = [&](const QJsonValue& value) {
            QJsonObject spoilt = message;
            spoilt.insert(field, value); // an undefined value takes the field out
            result.append(spoilt);
        };
        for (const QJsonValue& value : spoiltValues(good)) {
            spoil(value);
        }
        const QJsonArray elements = good.toArray();
        for (int index = 0; index < elements.size(); ++index) {
            QVector<QJsonValue> values = spoiltValues(elements.at(index));
            for (const QJsonObject& object : spoiltVersions(elements.at(index).toObject())) {
                values.append(object);
            }
            for (const QJsonValue& value : values) {
                QJsonArray spoiltElements = elements;
                spoiltElements.replace(index, value);
                spoil(spoiltElements);
            }
        }
    }
    return result;
}

} // namespace Rights
