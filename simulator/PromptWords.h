#pragma once

#include "simulator/state/Installation.h"

#include <QJsonValue>

namespace simulator
{

// The words that are typed at the prompt, by their kind as the help writes it: "<units>", "<zone>",
// "<role>", "<user>", "<right>", "<percent>", "<milliseconds>", "<count>", "on|off|<level>", …

/// Whether a word has the form of its kind; names are not looked up.
bool isFormed(const QString& kind, const QString& word);

/// What to say when a word of sound form names something that the installation doesn't have, empty
/// when it does.
QString unknownName(const Installation& installation, const QString& kind, const QString& word);

/// The units of a list such as "3,7-9", each once, in its order; empty for anything else.
QVector<int> unitsIn(const QString& word);

/// A minute such as "2026-03-02T05:30", in UTC; invalid for anything else.
QDateTime minuteIn(const QString& word);

/// A right's value: a bool for "on" and "off", else the word of a level.
QJsonValue rightValue(const QString& word);

/// Everything that can be named at the prompt, as lines for the person.
QString inventory(const Installation& installation);

} // namespace simulator
