#pragma once

class QString;

namespace Files
{

/// Whether a name stays in the folder it is put behind: no separators, neither "." nor "..", no
/// NUL, 1 to 255 bytes as the disk writes it (the bound of the usual file systems). Names come from
/// the operator and from the server.
bool isPlainName(const QString& name);

} // namespace Files
