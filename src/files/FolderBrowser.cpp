#include "files/FolderBrowser.h"

#include "app/Data.h"
#include "log/Log.h"
#include "page/ScriptCall.h"

#include <QDir>
#include <QtConcurrent>

#include <algorithm>

namespace
{

constexpr int lastFolderIndex = 1000; ///< what lies behind it isn't looked at
/// Rows that are shown at once. Measured: some 0.03 ms each.
constexpr int portion = 500;

struct Remembered {
    QString* path;
    QString* drive;
};

Remembered remembered(const QString& type)
{
    const QMap<QString, Remembered> kinds{
        {"log", {&Data::currentLogPath, &Data::currentLogDrive}},
        {"firmware", {&Data::currentFirmwarePath, &Data::currentFirmwareDrive}},
        {"message", {&Data::currentMessagePath, &Data::currentMessageDrive}},
        {"track", {&Data::currentTrackPath, &Data::currentTrackDrive}}};
    return kinds.value(type, {nullptr, nullptr});
}

void appendFolders(QVector<FolderBrowser::Entry>& entries, const QDir& folder)
{
    const QFileInfoList found =
        folder.entryInfoList({"*"}, QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (int index = 0; index < found.size() && index <= lastFolderIndex; ++index) {
        const QFileInfo& info = found.at(index);
        if (!info.isHidden() && info.permissions() != 0) {
            entries.append(
                {info.fileName().replace('"', '\''), info.absoluteFilePath(), info.size(), 1});
        }
    }
}

/// The name always ends in small letters, whatever the disk has. A folder of such a name stands
/// here too.
void appendFiles(QVector<FolderBrowser::Entry>& entries, const QDir& folder)
{
    const QFileInfoList found = folder.entryInfoList(
        {"*.mp3"}, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QFileInfo& info : found) {
        entries.append({info.completeBaseName() + ".mp3", info.absoluteFilePath(), info.size(), 0});
    }
}

QVector<FolderBrowser::Entry> read(const QString& path)
{
    const QDir folder(path);
    QVector<FolderBrowser::Entry> entries;
    appendFolders(entries, folder);
    appendFiles(entries, folder);
    std::reverse(entries.begin(), entries.end());
    return entries;
}

void show(const FolderBrowser::Entry& entry)
{
    Page::call("wrapperInput_filesystem_addDriveItem", entry.name, entry.path, entry.size,
               entry.kind);
}

} // namespace

FolderBrowser::FolderBrowser()
{
    portions.setInterval(0);
    connect(&portions, &QTimer::timeout, this, &FolderBrowser::showPortion);
    connect(&reading, &QFutureWatcherBase::finished, this, [this] {
        if (!reading.isCanceled()) {
            waiting = reading.result();
            portions.start();
        }
    });
}

FolderBrowser::~FolderBrowser() = default;

void FolderBrowser::loadDriverList(const QString& type)
{
    const Remembered last = remembered(type);
    const QString path = last.path ? *last.path : QString();
    const bool isThere = !path.isEmpty() && QDir(path).exists();
    const QFileInfoList drives = QDir::drives();
    for (const QFileInfo& drive : drives) {
        const QString root = drive.absoluteFilePath();
        if (root != "A:/" && root != "B:/") {
            Log::message(QStringLiteral("BaseName: ") + drive.baseName());
            Log::message(QStringLiteral("Path: ") + root);
            Page::call("wrapperInput_filesystem_addDrive", root, isThere);
        }
    }
    if (!path.isEmpty()) {
        const QString drive = *last.drive;
        Page::call("wrapperInput_fileSystem_selectDrive", drive, type);
        loadPath(path, drive, type);
    }
}

void FolderBrowser::loadPath(const QString& path, const QString& drive, const QString& type)
{
    const Remembered last = remembered(type);
    if (last.path) {
        *last.path = path;
        *last.drive = drive;
    }
    stop();
    Page::call("wrapperInput_filesystem_clearDriveItems");
    Page::call("wrapperInput_filesystem_setPath", path);
    const QDir folder(path);
    if (!folder.isRoot()) {
        const QString up = folder.path().left(folder.path().size() - folder.dirName().size());
        show({QStringLiteral(".."), up, 0, 1});
    }
    reading.setFuture(QtConcurrent::run(read, path));
}

void FolderBrowser::stop()
{
    waiting.clear();
    portions.stop();
    reading.setFuture({});
}

void FolderBrowser::showPortion()
{
    const Page::Batch batch;
    for (int shown = 0; shown < portion && !waiting.isEmpty(); ++shown) {
        show(waiting.takeLast());
    }
    if (waiting.isEmpty()) {
        portions.stop();
    }
}
