#pragma once

#include <QString>

/// A password as the wire carries it: the MD5 digest of its UTF-8 bytes, in 32 lower-case
/// hexadecimal digits.
QString passwordDigest(const QString& password);
