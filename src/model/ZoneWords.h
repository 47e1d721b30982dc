#pragma once

#include "model/Words.h"

/// The words of the wire for the kinds of zones.
namespace ZoneWords
{

inline constexpr std::array<Word<int>, 2> type{{
    {0, "physical"},
    {1, "logic"},
}};

} // namespace ZoneWords
