#include "files/FileName.h"

#include <QFile>

bool Files::isPlainName(const QString& name)
{
    constexpr int longest = 255;
    const QByteArray written = QFile::encodeName(name);
    return !name.isEmpty() && written.size() <= longest && !name.contains('/') &&
           !name.contains(QChar(0)) && name != "." && name != "..";
}
