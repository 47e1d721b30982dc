#pragma once

#include <QString>

#include <utility>

/// The text by which the pages name a server: ip, "/", port.
QString addressText(const QString& ip, int port);
/// The parts of such a text; the port is 0 where there is no number.
std::pair<QString, int> splitAddress(const QString& address);
/// Whether the text is four groups of digits; any single character passes between them.
bool isServerAddress(const QString& ip);
/// Whether the number can be a TCP port.
bool isPort(int port);
