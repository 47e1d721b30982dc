#include "files/FileSender.h"

#include <QThread>

namespace
{

constexpr qint64 chunkBytes = 1024;              // as the servers are built for
constexpr int bufferBytes = 1024;                // of the socket
constexpr unsigned long sleepMicroseconds = 100; // behind each chunk
constexpr int pictureMilliseconds = 16;

} // namespace

FileSender::FileSender(const QString& filePath, qint64 announcedSize, const QString& server,
                       quint16 serverPort, std::chrono::milliseconds patience)
    : path(filePath), size(announcedSize), address(server), port(serverPort), longestWait(patience)
{
}

void FileSender::start()
{
    file = new QFile(path, this);
    socket = new QTcpSocket(this);
    waiting = new QTimer(this);
    waiting->setSingleShot(true);
    waiting->setInterval(longestWait);
    connect(waiting, &QTimer::timeout, this, [this] { fail("the server takes no bytes"); });
    connect(socket, &QTcpSocket::connected, this, [this] {
        // Only a socket that the system knows has a buffer; binding it first would take a port that
        // the file before may still hold.
        socket->setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, bufferBytes);
        sendChunk();
    });
    connect(socket, &QTcpSocket::bytesWritten, this, &FileSender::taken);
    connect(socket, &QTcpSocket::disconnected, this, [this] {
        if (written < size) {
            fail("the server has closed the connection");
        }
        end();
    });
    connect(socket, &QAbstractSocket::errorOccurred, this, [this] { fail(socket->errorString()); });
    if (!file->open(QIODevice::ReadOnly)) {
        problemText = file->errorString(); // the server is told by the end of the connection
    }
    sinceShown.start();
    waiting->start();
    socket->connectToHost(address, port);
}

void FileSender::abort()
{
    if (socket) {
        fail("called off");
    }
    end();
}

void FileSender::sendChunk()
{
    const QByteArray chunk =
        file->isOpen() ? file->read(qMin(chunkBytes, size - written)) : QByteArray();
    if (!chunk.isEmpty()) {
        written += chunk.size();
        socket->write(chunk);
        return;
    }
    if (written < size && problemText.isEmpty()) {
        problemText = QStringLiteral("the file has become shorter, or can't be read");
    }
    written = size;
    socket->disconnectFromHost();
}

void FileSender::taken(qint64 bytes)
{
    waiting->start();
    handedOver += bytes;
    const int percent = size > 0 ? static_cast<int>(100 * handedOver / size) : 100;
    if (percent != shownPercent && sinceShown.elapsed() >= pictureMilliseconds) {
        shownPercent = percent;
        sinceShown.start();
        Q_EMIT progressed(percent);
    }
    if (socket->bytesToWrite() == 0) {
        QThread::usleep(sleepMicroseconds);
        sendChunk();
    }
}

void FileSender::fail(const QString& problem)
{
    if (isOver) {
        return;
    }
    problemText = problemText.isEmpty() ? problem : problemText;
    written = size;
    socket->abort();
    end();
}

void FileSender::end()
{
    if (!isOver) {
        isOver = true;
        if (waiting) {
            waiting->stop();
        }
        Q_EMIT finished(problemText);
    }
}
