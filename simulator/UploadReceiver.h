#pragma once

#include "simulator/state/Records.h"
#include "simulator/wire/Mp3Length.h"

#include <QHostAddress>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

namespace simulator
{

/// A file that a console is going to send.
struct Announcement {
    int session = 0; ///< number of the session that sends, 0 for none
    Track track;
    qint64 size = 0; ///< bytes
};

/// The port at which the bytes of one file arrive. They are counted and measured, and not kept:
/// what the server plays nobody hears.
class UploadReceiver : public QObject
{
    Q_OBJECT

public:
    UploadReceiver();

    /// The file under way; that of session 0 is none.
    const Announcement& current() const { return announced; }
    /// Opens a free TCP port for one connection, in place of what is under way. 0 when there is
    /// none.
    quint16 open(const QHostAddress& address, const Announcement& announcement);
    /// Takes up what the console has sent before it said that this was all, and ends the upload.
    void close();
    /// Bytes that have arrived, and the seconds of sound in them.
    qint64 bytes() const { return arrived; }
    int seconds() const { return length.seconds(); }

Q_SIGNALS:
    /// A line for the person who watches the server.
    void said(const QString& line);

private:
    void accept();
    void receive();
    void takeRest();

    QTcpServer listener;
    QPointer<QTcpSocket> socket;
    Announcement announced;
    Mp3Length length;
    qint64 arrived = 0;
};

} // namespace simulator
