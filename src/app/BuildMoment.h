#pragma once

class QString;

/// The program file's own build, made anew each time that it is linked.
namespace Build
{

/// Version, date and time, such as "2.1.0.29 (22.01.2020 17:10:40)".
QString version();

} // namespace Build
