#include "files/Upload.h"

#include "app/Data.h"
#include "files/FileSender.h"
#include "log/Log.h"
#include "model/Library.h"
#include "network/Fields.h"
#include "page/ScriptCall.h"
#include "protocol/Forbidden.h"
#include "protocol/LibraryEditing.h"
#include "protocol/Reply.h"
#include "protocol/Request.h"

#include <QDir>

namespace
{

constexpr int longestTitle = 32;

QString titleOf(const QString& baseName)
{
    return Library::cleanTitle(baseName).left(longestTitle);
}

QString askedTitle(const QJsonObject& reply)
{
    return request(reply).value(QLatin1String("title")).toString();
}

} // namespace

Upload::Upload()
{
    thread.start();
}

Upload::~Upload()
{
    stop();
    uploadHooks() = {};
    thread.quit();
    thread.wait();
}

void Upload::join()
{
    uploadHooks().fileAnnounced = [this](const QJsonObject& reply) { fileAnnounced(reply); };
    uploadHooks().fileClosed = [this](const QJsonObject& reply) { fileClosed(reply); };
    uploadHooks().next = [this] { goOn(); };
    uploadHooks().folderMade = [this](const QJsonObject& reply) { folderMade(reply); };
}

void Upload::uploadList(int parent, const QStringList& paths)
{
    Log::message("Start upload files");
    for (const QString& path : paths) {
        Log::message(QStringLiteral("Add file ") + path + QStringLiteral(" to send query"));
        listForUpload.append({parent, path});
    }
    if (!isUploading && !listForUpload.isEmpty()) {
        loadStart();
    }
}

void Upload::finishEarly()
{
    endsEarly = true;
    const int kept = isClosing ? 0 : 1;
    if (listForUpload.size() > kept) {
        listForUpload.resize(kept);
        showCount(kept == 0 ? 1 : 0);
    }
}

void Upload::stop()
{
    if (sender) {
        sender->disconnect(this);
        QMetaObject::invokeMethod(sender, &FileSender::abort, Qt::QueuedConnection);
        sender->deleteLater();
        sender = nullptr;
    }
    listForUpload.clear();
    currentTrackId = 0;
    isUploading = false;
    isClosing = false;
}

/// Only one folder deep.
void Upload::uploadDirectory(int parent, const QString& path)
{
    const QFileInfoList found = QDir(path).entryInfoList(
        {"*.mp3"}, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted);
    for (const QFileInfo& entry : found) {
        Log::message(QStringLiteral("Add directory ") + entry.absoluteFilePath() +
                     QStringLiteral(" to send query"));
        listForUpload.append({parent, entry.absoluteFilePath()});
    }
}

void Upload::loadStart()
{
    Log::message("FileLoadStart");
    isUploading = true;
    endsEarly = false;
    const Uploads item = listForUpload.first();
    const QFileInfo info(item.path);
    if (info.isFile()) {
        showCount(0);
        announceFile(item);
    } else if (info.isDir()) {
        makeFolder(item);
    } else {
        Log::message(QStringLiteral("Neither file nor folder: ") + item.path);
        openDialog();
        refuse(titleOf(info.completeBaseName()));
        loadNext();
    }
}

void Upload::announceFile(const Uploads& item)
{
    const QFileInfo info(item.path);
    send(PlaybackCommand::AddTrack,
         {{QStringLiteral("title"), titleOf(info.completeBaseName())},
          {QStringLiteral("track"), QString(info.completeBaseName() + QLatin1String(".mp3"))},
          {QStringLiteral("parentId"), item.parent},
          {QStringLiteral("method"), QStringLiteral("binary")},
          {QStringLiteral("data"), QString()},
          {QStringLiteral("position"), Library::getTrackNewPositionId(item.parent)},
          {QStringLiteral("fullPath"), item.path},
          {QStringLiteral("size"), info.size()}});
}

void Upload::makeFolder(const Uploads& item)
{
    send(PlaybackCommand::AddPlaylist,
         {{QStringLiteral("parentId"), item.parent},
          {QStringLiteral("title"), titleOf(QFileInfo(item.path).baseName())},
          {QStringLiteral("volume"), 0},
          {QStringLiteral("position"), Library::getPlaylistNewPositionId(item.parent)},
          {QStringLiteral("repetition"), true},
          {QStringLiteral("fullPath"), item.path}});
}

void Upload::fileAnnounced(const QJsonObject& reply)
{
    if (!isUploading || dropsBatch(reply)) {
        return;
    }
    openDialog();
    if (succeeded(reply)) {
        Page::call("wrapperInput_playback_addLoadingTrack", currentTrackId, askedTitle(reply));
        transfer(reply);
        return;
    }
    refuse(askedTitle(reply));
    loadNext();
}

bool Upload::dropsBatch(const QJsonObject& reply)
{
    const char* dialog = nullptr;
    if (response(reply) == QLatin1String("busy")) {
        dialog = "modalAdminPortBusy";
    } else if (response(reply) == QLatin1String("fileNameExist")) {
        dialog = "modalAdminTrackNameExist";
    } else {
        return lacksRight(reply);
    }
    showCount(1);
    Page::call(dialog);
    listForUpload.clear();
    endBatch();
    return true;
}

bool Upload::lacksRight(const QJsonObject& reply)
{
    if (!Forbidden::isAnswer(reply)) {
        return false;
    }
    openDialog();
    refuse(askedTitle(reply));
    listForUpload.clear();
    endBatch();
    return true;
}

void Upload::transfer(const QJsonObject& reply)
{
    const QJsonObject announced = request(reply);
    const int port = Fields::integer(reply, "port").value_or(0);
    const auto size = static_cast<qint64>(announced.value(QLatin1String("size")).toDouble());
    sender = new FileSender(announced.value(QLatin1String("fullPath")).toString(), size, Data::ip,
                            static_cast<quint16>(port));
    sender->moveToThread(&thread);
    connect(sender, &FileSender::progressed, this, [this](int percent) {
        Page::call("wrapperInput_playback_setLoadingTrack", currentTrackId, percent);
    });
    connect(sender, &FileSender::finished, this,
            [this, announced](const QString& problem) { loadEnd(announced, problem); });
    QMetaObject::invokeMethod(sender, &FileSender::start, Qt::QueuedConnection);
}

void Upload::loadEnd(const QJsonObject& announced, const QString& problem)
{
    Log::message("FileLoadEnd");
    if (!problem.isEmpty()) {
        Log::message(QStringLiteral("Not all of the file has been sent: ") + problem);
    }
    sender->deleteLater();
    sender = nullptr;
    listForUpload.removeFirst();
    isClosing = true;
    QJsonObject fields;
    for (const char* const name : {"parentId", "position", "title"}) {
        fields.insert(QLatin1String(name), announced.value(QLatin1String(name)));
    }
    send(PlaybackCommand::EndTrack, fields);
}

void Upload::fileClosed(const QJsonObject& reply)
{
    if (!isUploading) {
        return;
    }
    isClosing = false;
    if (!succeeded(reply)) {
        turnRed();
        if (Forbidden::isAnswer(reply)) {
            listForUpload.clear();
        }
        return;
    }
    Page::call("wrapperInput_playback_endLoadingTrack", currentTrackId);
    showCount(1);
    ++currentTrackId;
    if (listForUpload.isEmpty()) {
        endBatch();
    }
}

void Upload::folderMade(const QJsonObject& reply)
{
    if (!isUploading) {
        return;
    }
    const auto id = succeeded(reply) ? Fields::integer(reply, "newId") : std::nullopt;
    if (id && !endsEarly) {
        uploadDirectory(*id, request(reply).value(QLatin1String("fullPath")).toString());
    } else if (!id && !lacksRight(reply)) {
        openDialog();
        refuse(askedTitle(reply));
    }
    loadNext();
}

void Upload::refuse(const QString& title)
{
    Page::call("wrapperInput_playback_addLoadingTrack", currentTrackId, title);
    turnRed();
}

void Upload::turnRed()
{
    Page::call("wrapperInput_playback_errorLoadingTrack", currentTrackId);
    ++currentTrackId;
}

void Upload::showCount(int behind)
{
    const int current = currentTrackId + behind;
    Page::call("wrapperInput_playback_currentAddedTrack", current, listForUpload.size() + current);
}

void Upload::openDialog()
{
    if (currentTrackId == 0) {
        Page::call("modalAdminTrackLoadingShow");
    }
}

void Upload::loadNext()
{
    if (!listForUpload.isEmpty()) {
        listForUpload.removeFirst();
    }
    goOn();
}

void Upload::goOn()
{
    if (!isUploading) {
        return;
    }
    if (listForUpload.isEmpty()) {
        endBatch();
    } else {
        loadStart();
    }
}

void Upload::endBatch()
{
    currentTrackId = 0;
    isUploading = false;
    Page::call("modalAdminTrackLoadingUnlock");
}
