#pragma once

#include <QJsonObject>
#include <QString>

#include <functional>

/// One command of a protocol: its names and what its replies are given to.
class NetworkCommand
{
public:
    using Function = std::function<void(const QJsonObject&)>;

    const QString& getName() const { return name; }
    void setName(const QString& registeredName) { name = registeredName; }
    /// The value of `action` on the wire: the name, unless set to something else.
    const QString& getWireName() const { return wireName.isEmpty() ? name : wireName; }
    void setWireName(const QString& nameOnTheWire) { wireName = nameOnTheWire; }

    bool hasFunction() const { return static_cast<bool>(function); }
    void setFunction(Function replyHandler) { function = std::move(replyHandler); }
    /// Gives a reply, with its request under `requestReply`, to the handler. Only with one set.
    void operator()(const QJsonObject& reply) const { function(reply); }

private:
    QString name = QStringLiteral("None");
    QString wireName;
    Function function;
};
