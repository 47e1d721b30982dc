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
    QLatin1String text;
};

constexpr std::array<Word<Link>, 3> linkWords{{
    {Link::No, QLatin1String("no")},
    {Link::Incoming, QLatin1String("incoming")},
    {Link::Bidirectional, QLatin1String("bidirectional")},
}};

constexpr std::array<Word<Battery>, 6> batteryWords{{
    {Battery::Ok, QLatin1String("ok")},
    {Battery::Charge, QLatin1String("charge")},
    {Battery::AcPowerMissing, QLatin1String("acPowerMissing")},
    {Battery::Missing, QLatin1String("missing")},
    {Battery::Error, QLatin1String("error")},
    {Battery::Unknown, QLatin1String("unknown")},
}};

constexpr std::array<Word<Case>, 3> caseWords{{
    {Case::Close, QLatin1String("close")},
    {Case::Open, QLatin1String("open")},
    {Case::Unknown, QLatin1String("unknown")},
}};

constexpr std::array<Word<Level>, 4> levelWords{{
    {Level::Unavailable, QLatin1String("unavailable")},
    {Level::Read, QLatin1String("read")},
    {Level::Control, QLatin1String("control")},
    {Level::Administration, QLatin1String("administration")},
}};

/// The word of a value; every value of the enumeration stands in its table.
template <typename Value, std::size_t count>
QString wordOf(const std::array<Word<Value>, count>& table, Value value)
{
    for (const Word<Value>& row : table) {
        if (row.value == value) {
            return row.text;
        }
    }
    return {};
}

/// The value of a word, nothing for a word that the table does not know.
template <typename Value, std::size_t count>
std::optional<Value> valueOf(const std::array<Word<Value>, count>& table, const QString& text)
{
    for (const Word<Value>& row : table) {
        if (text == row.text) {
            return row.value;
        }
    }
    return std::nullopt;
}

} // namespace simulator
