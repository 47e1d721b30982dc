#pragma once

#include <QLatin1String>
#include <QString>

#include <array>
#include <optional>

namespace simulator
{

/// Connection of a unit to the server.
enum class Link { No, Incoming, Bidirectional };

/// Supply of a unit as it reports it; the level in percent travels beside it.
enum class Battery { Ok, Charge, AcPowerMissing, Missing, Error, Unknown };

/// Housing switch of a unit.
enum class Case { Close, Open, Unknown };

/// How far a right goes. Each level includes the ones before it.
enum class Level { Unavailable, Read, Control, Administration };

/// One value of an enumeration and its word on the wire.
template <typename Value> struct Word {
    Value value;
    const char* text;
};

constexpr std::array<Word<Link>, 3> linkWords{{
    {Link::No, "no"},
    {Link::Incoming, "incoming"},
    {Link::Bidirectional, "bidirectional"},
}};

constexpr std::array<Word<Battery>, 6> batteryWords{{
    {Battery::Ok, "ok"},
    {Battery::Charge, "charge"},
    {Battery::AcPowerMissing, "acPowerMissing"},
    {Battery::Missing, "missing"},
    {Battery::Error, "error"},
    {Battery::Unknown, "unknown"},
}};

constexpr std::array<Word<Case>, 3> caseWords{{
    {Case::Close, "close"},
    {Case::Open, "open"},
    {Case::Unknown, "unknown"},
}};

constexpr std::array<Word<Level>, 4> levelWords{{
    {Level::Unavailable, "unavailable"},
    {Level::Read, "read"},
    {Level::Control, "control"},
    {Level::Administration, "administration"},
}};

/// The word of a value; every value of the enumeration stands in its table.
template <typename Value, std::size_t count>
QString wordOf(const std::array<Word<Value>, count>& table, Value value)
{
    for (const Word<Value>& row : table) {
        if (row.value == value) {
            return QLatin1String(row.text);
        }
    }
    return {};
}

/// The value of a word, nothing for a word that the table does not know.
template <typename Value, std::size_t count>
std::optional<Value> valueOf(const std::array<Word<Value>, count>& table, const QString& text)
{
    for (const Word<Value>& row : table) {
        if (text == QLatin1String(row.text)) {
            return row.value;
        }
    }
    return std::nullopt;
}

} // namespace simulator
