#include "storage/SafeFile.h"

#include "log/Log.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace SafeFile
{

bool replace(const QString& path, const QByteArray& content, const char* what)
{
    QSaveFile file(path);
    // The commit itself says nothing of a full disk, and would put an empty file into place.
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
                         file.write(content) == content.size() && file.flush();
    if (!written) {
        file.cancelWriting();
    }
    if (!written || !file.commit()) {
        Log::message(QLatin1String(what) + QStringLiteral(" not saved: ") + file.errorString());
        return false;
    }
    return true;
}

void keepPrivate(const QString& path)
{
    const QFile::Permissions entering =
        QFileInfo(path).isDir() ? QFile::ExeOwner : QFile::Permissions();
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | entering);
}

void makePrivateFolder(const QString& path)
{
    if (!QFileInfo::exists(path) && QDir().mkpath(path)) {
        keepPrivate(path);
    }
}

Lock::Lock(const QString& path) : file(path + QStringLiteral(".lock"))
{
    if (!file.tryLock(patienceMilliseconds)) {
        Log::message(QStringLiteral("Not locked: ") + path);
    }
}

} // namespace SafeFile
