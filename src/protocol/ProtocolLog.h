#pragma once

#include <QJsonObject>
#include <QString>

#include <functional>

/// What a day's log of the server causes. Installed once at start; a hook that isn't set does
/// nothing.
struct ServerLogHooks {
    /// The log of a day has come, whole, in UTF-8 as far as it is sound.
    std::function<void(const QString& date, const QByteArray& text)> arrived;
    /// The server doesn't give it.
    std::function<void(const QString& date)> refused;
};

/// The installed hooks.
ServerLogHooks& serverLogHooks();

void protocolLogCommandGetLevel(const QJsonObject& reply);
void protocolLogCommandSetLevel(const QJsonObject& reply);
/// The days that have a log; they come oldest first and are kept newest first.
void protocolLogCommandList(const QJsonObject& reply);
void protocolLogCommandGetServerLog(const QJsonObject& reply);
