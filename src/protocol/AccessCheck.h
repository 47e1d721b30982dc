#pragma once

#include <QString>

/// Which alarm dialog waits for the reply to its access check, as `Data::waitForAlarm` holds it.
namespace AlarmAccess
{
enum Dialog : int { None = 0, Messages = 1, Microphone = 2 };
} // namespace AlarmAccess

/// What leaves the console in place of a password: the MD5 digest of its UTF-8 bytes, as 32
/// lower-case hexadecimal digits.
QString passwordDigest(const QString& password);
