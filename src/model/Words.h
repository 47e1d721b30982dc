#pragma once

#include <QLatin1String>
#include <QString>

#include <array>
#include <cstddef>
#include <optional>

/// One word of the wire and the value it stands for. A table of them stands beside its enum and is
/// the only place where the word is written.
template <class Value> struct Word {
    Value value;
    const char* word;
};

/// The value of a word, compared exactly; nothing for an unknown word.
template <class Value, std::size_t count>
std::optional<Value> valueOfWord(const std::array<Word<Value>, count>& table, const QString& word)
{
    for (const Word<Value>& row : table) {
        if (word == QLatin1String(row.word)) {
            return row.value;
        }
    }
    return std::nullopt;
}

/// The word of a value; empty for a value that the table doesn't hold.
template <class Value, std::size_t count>
QString wordOfValue(const std::array<Word<Value>, count>& table, Value value)
{
    for (const Word<Value>& row : table) {
        if (row.value == value) {
            return QLatin1String(row.word);
        }
    }
    return {};
}
