#include "view/WebView.h"

#include "app/Data.h"
#include "files/FolderBrowser.h"
#include "log/Log.h"
#include "page/ScriptCall.h"
#include "view/SlotLog.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryFile>

namespace
{

/// Whether files can be kept there: an absolute path of a folder that takes one.
bool isUsable(const QString& path)
{
    const QDir folder(path);
    QTemporaryFile trial(folder.filePath(QStringLiteral("trial.XXXXXX")));
    return QDir::isAbsolutePath(path) && folder.exists() && trial.open();
}

QString stored(const char* key, const QString& fallback)
{
    return Data::settings->value(QLatin1String(key), fallback).toString();
}

/// Refuses by itself, too, whatever the page has asked before.
void store(const char* slot, const char* key, const QString& path)
{
    const SlotLog log(slot, QStringLiteral(": ") + path, LogLevel::ClientSettings);
    if (isUsable(path)) {
        Data::settings->setValue(QLatin1String(key), path);
    } else {
        Log::message(QStringLiteral("No folder for files: ") + path);
    }
}

} // namespace

void WebView::settings_files_init()
{
    const SlotLog log("settings_files_init", {}, LogLevel::ClientSettings);
    Page::call("loadFilesMessage", stored("path/message", QStringLiteral("message")));
    Page::call("loadFilesLog", stored("path/log", QStringLiteral("log")));
    Page::call("loadFilesFirmware", stored("path/firmware", QStringLiteral("firmware")));
}

QStringList WebView::settings_files_unusable(const QStringList& paths)
{
    const SlotLog log("settings_files_unusable", {}, LogLevel::ClientSettings);
    QStringList result;
    for (const QString& path : paths) {
        if (!isUsable(path)) {
            result.append(path);
        }
    }
    return result;
}

void WebView::settings_file_selectFirmwareDir(const QString& path)
{
    store("settings_file_selectFirmwareDir", "path/firmware", path);
}

void WebView::settings_file_selectLogDir(const QString& path)
{
    store("settings_file_selectLogDir", "path/log", path);
}

void WebView::settings_file_selectMessageDir(const QString& path)
{
    store("settings_file_selectMessageDir", "path/message", path);
}

void WebView::settings_loadDrives(const QString& type)
{
    admin_loadDrives(type);
}

void WebView::settings_loadPath(const QString& path, const QString& drive, const QString& type)
{
    admin_loadPath(path, drive, type);
}
