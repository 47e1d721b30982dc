#pragma once

#include <QFutureWatcher>
#include <QMap>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QVector>

/// Shows the local disks to a page: drives, and the content of one folder. For each of the four
/// kinds of files ("log", "firmware", "message", "track") it remembers the last folder, as long as
/// the program runs. A folder is read off the main thread and shown in portions; the folder asked
/// for last counts.
class FolderBrowser : public QObject
{
    Q_OBJECT
public:
    FolderBrowser();
    ~FolderBrowser() override;

    /// The drives, and the remembered folder of the kind, if there is one.
    void loadDriverList(const QString& type);
    /// The folders and the MP3 files of a folder, with the way up in front; nothing below a folder
    /// that isn't there. Any other `type` remembers nothing.
    void loadPath(const QString& path, const QString& drive, const QString& type);
    /// The page on show has gone: nothing more is shown.
    void stop();

    /// What a page shows of a folder or a file.
    struct Entry {
        QString name;
        QString path;
        qint64 size; ///< bytes
        int kind;    ///< 1 folder, 0 file
    };

private:
    void showPortion();

    QFutureWatcher<QVector<Entry>> reading;
    QVector<Entry> waiting; ///< still to be shown, the next one last
    QTimer portions;
};
