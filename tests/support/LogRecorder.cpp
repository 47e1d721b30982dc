#include "support/LogRecorder.h"

#include "app/Data.h"
#include "log/Log.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>

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
    QByteArray text() const
    {
        QByteArray result;
        const QDir directory(folder.path());
        for (const QString& name : directory.entryList({QStringLiteral("*.txt")}, QDir::Files)) {
            QFile file(directory.filePath(name));
            file.open(QIODevice::ReadOnly);
            result += file.readAll();
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
    start = logFolder().text().size();
}

QStringList LogRecorder::lines() const
{
    static const QRegularExpression prefix(QStringLiteral("^(\\[\\d+\\] )?\\[[-0-9:. ]+\\] "));
    QStringList result;
    const QByteArray text = logFolder().text().mid(static_cast<int>(start));
    for (const QByteArray& line : text.split('\n')) {
        result.append(QString::fromUtf8(line).remove(prefix));
    }
    return result;
}
