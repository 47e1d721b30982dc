#include "app/Configuration.h"

#include "log/LogSettings.h"
#include "storage/SafeFile.h"

#include <QAudioDeviceInfo>
#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>

namespace Configuration
{

namespace
{

QString makerFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/Quorlex");
}

QString messageFolder()
{
    return dataFolder() + QStringLiteral("/message");
}

QString logFolder()
{
    return dataFolder() + QStringLiteral("/log");
}

QString firmwareFolder()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/firmware");
}

} // namespace

QString dataFolder()
{
    return makerFolder() + QStringLiteral("/Vantordesk");
}

QString configFile()
{
    return dataFolder() + QStringLiteral("/config.ini");
}

QString serverFile()
{
    return dataFolder() + QStringLiteral("/servers.json");
}

QString fingerprintFile()
{
    return dataFolder() + QStringLiteral("/fingerprints.json");
}

void makeFolders()
{
    for (const QString& path : {makerFolder(), messageFolder(), logFolder(), firmwareFolder()}) {
        SafeFile::makePrivateFolder(path);
    }
}

void completeSettings(QSettings& settings)
{
    SafeFile::keepPrivate(settings.fileName());
    if (settings.allKeys().isEmpty()) {
        writeFirstStartValues(settings);
    }
}

void writeFirstStartValues(QSettings& settings)
{
    settings.setValue(QStringLiteral("admin/block_enable"), true);
    settings.setValue(QStringLiteral("admin/block_time"), 600000);
    settings.setValue(QStringLiteral("path/message"), messageFolder());
    settings.setValue(QStringLiteral("path/log"), logFolder());
    settings.setValue(QStringLiteral("path/firmware"), firmwareFolder());
    settings.setValue(QStringLiteral("volume/warning"), 50.0);
    settings.setValue(QStringLiteral("volume/microphone"), 50.0);
    settings.setValue(QStringLiteral("audio/input"),
                      QAudioDeviceInfo::defaultInputDevice().deviceName());
    for (const char* const key : LogSettings::keys) {
        settings.setValue(QLatin1String(key), true);
    }
    settings.setValue(QStringLiteral("screen/ifFullScreen"), false);
    settings.setValue(QStringLiteral("screen/isMaximized"), false);
    settings.setValue(QStringLiteral("screen/width"), 1280);
    settings.setValue(QStringLiteral("screen/height"), 800);
}

void readLogSwitches(const QSettings& settings, LogSettings& switches)
{
    int level = LogLevel::Connect;
    for (const char* const key : LogSettings::keys) {
        switches.set(level++, settings.value(QLatin1String(key), false).toBool());
    }
}

} // namespace Configuration
