#pragma once

#include <QJsonObject>
#include <QObject>
#include <QThread>
#include <QVector>

class FileSender;

/// Brings files and folders of this computer into the server's library, one at a time: a request
/// announces a file, its bytes go over a connection of their own, a second request closes it. A
/// batch is all that passes from a start until the queue runs dry. A refused file turns red, and
/// the rest goes on; a missing right, a busy server and a name that exists drop the rest.
class Upload : public QObject
{
    Q_OBJECT
public:
    Upload();
    ~Upload() override;

    /// Installs what the replies of an upload cause; taken away with the object.
    void join();
    /// Appends files and folders for a playlist; begins a batch where none is under way.
    void uploadList(int parent, const QStringList& paths);
    /// The file in work is finished, the rest dropped; of a folder in work only the folder is made.
    void finishEarly();
    /// The session has ended: the transfer ends at once, the queue is empty.
    void stop();

private:
    /// What is to be uploaded: a file or a folder, and the playlist that gets it.
    struct Uploads {
        int parent;
        QString path;
    };

    void uploadDirectory(int parent, const QString& path);
    void loadStart();
    void announceFile(const Uploads& item);
    void makeFolder(const Uploads& item);
    void fileAnnounced(const QJsonObject& reply);
    void transfer(const QJsonObject& reply);
    void loadEnd(const QJsonObject& announced, const QString& problem);
    void fileClosed(const QJsonObject& reply);
    void folderMade(const QJsonObject& reply);
    /// The item in work gets its row, and turns red.
    void refuse(const QString& title);
    void turnRed();
    /// Shows how far the batch has come, at so many items behind the current one.
    void showCount(int behind);
    void openDialog();
    /// Drops the item in work, and goes on.
    void loadNext();
    void goOn();
    void endBatch();
    /// Whether the server has refused what drops the rest of a batch: a right that is missing, and
    /// with a file the words that have a dialog of their own.
    bool dropsBatch(const QJsonObject& reply);
    bool lacksRight(const QJsonObject& reply);

    QVector<Uploads> listForUpload; ///< entry 0 is in work
    int currentTrackId = 0; ///< files of this batch that are done; the row of the one in work
    bool isUploading = false;
    bool endsEarly = false; ///< a folder in work doesn't get its files any more
    bool isClosing = false; ///< a file has been sent and waits for its end: entry 0 is the next one
    QThread thread;
    FileSender* sender = nullptr; ///< while bytes travel
};
