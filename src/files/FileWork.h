#pragma once

#include <QObject>
#include <QThreadPool>

#include <functional>

/// Reading, encoding and writing of files beside the main thread, one after the other in the order
/// in which they are asked for. What was asked for before a session's end is done, but not told any
/// more.
class FileWork : public QObject
{
    Q_OBJECT
public:
    /// A file whose text is longer isn't sent: the limit of one object of the stream, with room for
    /// the rest of a request. In bytes of the file.
    static constexpr qint64 longestFile = qint64(180) * 1024 * 1024;

    FileWork();
    ~FileWork() override;

    /// Runs `work`, and tells `done` its result in the main thread, unless the session has ended.
    void start(std::function<QByteArray()> work, std::function<void(const QByteArray&)> done);
    /// The session has ended.
    void stop() { ++session; }

    /// The content of a file as base64, read in pieces; null for one that can't be read, or is too
    /// long.
    static QByteArray readEncoded(const QString& path);
    /// Writes a decoded text beside the file and moves it into its place; false, and no half file,
    /// where text or disk don't allow it.
    static bool writeDecoded(const QString& path, QByteArray base64);

private:
    QThreadPool pool;
    int session = 0;
};
