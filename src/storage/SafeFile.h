#pragma once

#include <QByteArray>
#include <QLockFile>
#include <QString>

/// The program's own small files: nobody but their owner reads them, and no failure costs what they
/// held before.
namespace SafeFile
{

/// Puts `content` in the place of the file, which is written beside it and moved there once all of
/// it is on the disk. False, with a log line that begins with `what`, and the old file as it was,
/// where that fails.
bool replace(const QString& path, const QByteArray& content, const char* what);

/// Takes everybody else's rights to a file or a folder. One that isn't there stays so.
void keepPrivate(const QString& path);

/// Makes a folder, with its parents, that its owner alone can enter; one that is there is left as
/// it is. One that can't be made is not reported.
void makePrivateFolder(const QString& path);

/// Keeps other instances of the program from changing a file while it lives. One that holds it
/// longer than a moment is logged and no longer waited for.
class Lock
{
public:
    static constexpr int patienceMilliseconds = 300;

    explicit Lock(const QString& path);

private:
    QLockFile file;
};

} // namespace SafeFile
