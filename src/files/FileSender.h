#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

#include <chrono>

/// Sends one file over a connection of its own, and nothing else, in a thread of its own. The next
/// chunk is written when the last has left, with a short sleep between: the pace that the servers
/// are built for. On any error, and after `patience` in which the server has taken nothing, it
/// closes; what has arrived is for the server to judge.
class FileSender : public QObject
{
    Q_OBJECT
public:
    /// `size` in bytes is what has been announced: no more is sent, also of a file that grows.
    FileSender(const QString& filePath, qint64 announcedSize, const QString& server,
               quint16 serverPort, std::chrono::milliseconds patience = std::chrono::seconds(30));

public Q_SLOTS:
    void start();
    /// Ends at once, wherever it stands.
    void abort();

Q_SIGNALS:
    /// How much of the announced bytes the socket has handed over, 0 to 100; at most once a
    /// picture.
    void progressed(int percent);
    /// The connection is closed. The problem is empty when the whole file has left.
    void finished(const QString& problem);

private:
    void sendChunk();
    void taken(qint64 bytes);
    void fail(const QString& problem);
    void end();

    QString path;
    qint64 size;
    QString address;
    quint16 port;
    std::chrono::milliseconds longestWait;
    QString problemText;
    qint64 written = 0;
    qint64 handedOver = 0;
    int shownPercent = 0;
    QElapsedTimer sinceShown;
    bool isOver = false;
    // Made in the thread that they work in.
    QFile* file = nullptr;
    QTcpSocket* socket = nullptr;
    QTimer* waiting = nullptr;
};
