#pragma once

#include <QString>

/// A password as the wire carries it: the MD5 digest of its UTF-8 bytes, in 32 lower-case
/// hexadecimal digits. The text itself is overwritten, where nobody else has a share in it: it has
/// no further use, and memory may end up in a file.
QString passwordDigest(const QString& password);
