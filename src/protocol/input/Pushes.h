#pragma once

class QJsonObject;

/// Gives a push, acknowledged already, to its handler. One that the console doesn't know is logged
/// and dropped.
void routePush(const QJsonObject& message);
