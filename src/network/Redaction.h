#pragma once

#include <QByteArray>

/// A message's text for the log: the value of every key that names a password is three asterisks.
/// Takes JSON as `QJsonDocument::toJson` writes it.
QByteArray redacted(const QByteArray& json);
