#pragma once

#include "model/Words.h"

/// How far a right goes; the numbers are those of the pages.
enum class RightLevel : int { Unavailable = 0, Read = 1, Control = 2, Administration = 3 };

/// Words of the wire for the rights of a role.
namespace RoleWords
{

inline constexpr std::array<Word<RightLevel>, 4> level{{
    {RightLevel::Unavailable, "unavailable"},
    {RightLevel::Read, "read"},
    {RightLevel::Control, "control"},
    {RightLevel::Administration, "administration"},
}};

} // namespace RoleWords
