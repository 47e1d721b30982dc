#include "support/LogRecorder.h"

#include "app/Data.h"
#include "log/Log.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>

namespace
{

/// The folder of this process's log, and the configuration that names it.
struct LogFolder {
    LogFolder() { config.setValue(QStringLiteral("path/log"), folder.path()); }

    /// Has the log written here, wherever it went before.
    void take()
    {
        Log::logger().setConfig(&config);
        Log::logger().setPort(&Data::localPort);
        Log::logger().setDebug(&Data::debugMode);
        Log::logger().dateCheck();
    }

    /// All days' files, should midnight pass.
    QFileInfoList files() const
    {
        return QDir(folder.path()).entryInfoList({QStringLiteral("*.txt")}, QDir::Files);
    }

    qint64 size() const
    {
        qint64 sum = 0;
        for (const QFileInfo& info : files()) {
            sum += info.size();
        }
        return sum;
    }

    QByteArray textFrom(qint64 start) const
    {
        QByteArray result;
        for (const QFileInfo& info : files()) {
            QFile file(info.filePath());
            file.open(QIODevice::ReadOnly);
            if (start < info.size()) {
                file.seek(start);
                result += file.readAll();
            }
            start = std::max<qint64>(0, start - info.size());
        }
        return result;
    }

    QTemporaryDir folder;
    QSettings config{folder.filePath(QStringLiteral("config.ini")), QSettings::IniFormat};
};

LogFolder& logFolder()
{
    static LogFolder folder;
    return folder;
}

} // namespace

LogRecorder::LogRecorder()
{
    logFolder().take();
    start = logFolder().size();
}

QStringList LogRecorder::lines() const
{
    static const QRegularExpression prefix(QStringLiteral("^(\\[\\d+\\] )?\\[[-0-9:. ]+\\] "));
    QStringList result;
    for (const QByteArray& line : logFolder().textFrom(start).split('\n')) {
        result.append(QString::fromUtf8(line).remove(prefix));
    }
    return result;
}
