#include "files/FileSender.h"
#include "files/FolderBrowser.h"
#include "support/PageRecorder.h"

#include <QDir>
#include <QTcpServer>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

/// A file on its way and a folder on show, when disk or server don't behave.
class TransferTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void transfer_data();
    void transfer();
    void deafServer();
    void folder();

private:
    QString makeFile(const QString& name, int size) const;

    QTemporaryDir disk;
};

namespace
{

constexpr int size = 300 * 1024;

/// A server for one file that stops listening, reading or living after so many bytes.
struct Receiver {
    explicit Receiver(int closesAt) : closeAt(closesAt)
    {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
            socket = server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this] {
                bytes += socket->readAll();
                if (bytes.size() >= closeAt) {
                    socket->abort();
                }
            });
        });
    }
    QTcpServer server;
    QTcpSocket* socket = nullptr;
    QByteArray bytes;
    int closeAt;
};

} // namespace

QString TransferTest::makeFile(const QString& name, int bytes) const
{
    QFile file(disk.filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(QByteArray(bytes, 'x')) == bytes
               ? file.fileName()
               : QString();
}

void TransferTest::transfer_data()
{
    QTest::addColumn<int>("onDisk"); // bytes, -1 for no file
    QTest::addColumn<int>("announced");
    QTest::addColumn<int>("closesAt");
    QTest::addColumn<int>("arrives"); // -1 for a part
    QTest::addColumn<bool>("isWhole");
    const int never = 2 * size;
    QTest::newRow("whole") << size << size << never << size << true;
    QTest::newRow("a last chunk of one byte") << 1025 << 1025 << never << 1025 << true;
    QTest::newRow("empty") << 0 << 0 << never << 0 << true;
    QTest::newRow("gone") << -1 << size << never << 0 << false;
    QTest::newRow("shorter than announced") << size / 2 << size << never << size / 2 << false;
    QTest::newRow("longer than announced") << size << size / 2 << never << size / 2 << true;
    QTest::newRow("cut by the server") << size << size << size / 2 << -1 << false;
    QTest::newRow("refused port") << size << size << -1 << 0 << false;
}

void TransferTest::transfer()
{
    QFETCH(int, onDisk);
    QFETCH(int, announced);
    QFETCH(int, closesAt);
    QFETCH(int, arrives);
    QFETCH(bool, isWhole);
    const QString path =
        onDisk < 0 ? disk.filePath("none") : makeFile("some 'odd' \"name\"", onDisk);
    Receiver receiver(closesAt);
    const quint16 port = receiver.server.serverPort();
    if (closesAt < 0) {
        receiver.server.close();
    }
    FileSender sender(path, announced, "127.0.0.1", port);
    QSignalSpy ends(&sender, &FileSender::finished);
    sender.start();
    QTRY_COMPARE_WITH_TIMEOUT(ends.size(), 1, 20000);
    QCOMPARE(ends.first().first().toString().isEmpty(), isWhole);
    if (arrives >= 0) {
        QTRY_COMPARE(receiver.bytes.size(), arrives);
    }
}

/// A server that takes nothing: patience ends, or the session before.
void TransferTest::deafServer()
{
    const int large = 20 * 1024 * 1024;
    QTcpServer deaf;
    QVERIFY(deaf.listen(QHostAddress::LocalHost));
    deaf.pauseAccepting(); // the system connects all the same
    FileSender sender(makeFile("large", large), large, "127.0.0.1", deaf.serverPort(),
                      std::chrono::milliseconds(500));
    FileSender patient(disk.filePath("large"), large, "127.0.0.1", deaf.serverPort());
    QSignalSpy ends(&sender, &FileSender::finished);
    QSignalSpy patientEnds(&patient, &FileSender::finished);
    sender.start();
    patient.start();
    QTRY_COMPARE_WITH_TIMEOUT(ends.size(), 1, 20000);
    QCOMPARE(ends.first().first().toString(), QString("the server takes no bytes"));
    QVERIFY(patientEnds.isEmpty());
    patient.abort();
    patient.abort();
    QCOMPARE(patientEnds.size(), 1);
}

/// Whatever stands in a folder, its list comes, and the one asked for last counts.
void TransferTest::folder()
{
    const QString path = disk.filePath("folder");
    QVERIFY(QDir().mkpath(path + "/below") && QDir().mkpath(path + "/closed") &&
            QDir().mkpath(path + "/.hidden"));
    QVERIFY(QFile::setPermissions(path + "/closed", {}));
    QVERIFY(QFile::link(path, path + "/itself") && QFile::link(path + "/no", path + "/broken.mp3"));
    QVERIFY(!makeFile("folder/\"q\" 'a'.MP3", 2048).isEmpty());
    QVERIFY(!makeFile("folder/text.txt", 1).isEmpty());
    QVERIFY(!makeFile("folder/two\nlines\\.mp3", 1).isEmpty());
    QVERIFY(QDir().mkpath(path + "/line\nand \"quote\""));
    const int odd = ::open((path.toLocal8Bit() + "/\xff\xfe.mp3").constData(), O_CREAT, 0600);
    QVERIFY(odd >= 0 && ::close(odd) == 0);
    PageRecorder page;
    FolderBrowser browser;
    browser.loadPath("/", "/", {});
    browser.loadPath(path, "/", "track");
    QTRY_VERIFY(page.calls().join("").contains("2048,0"));
    const QString shown = page.calls().join('\n');
    for (const char* row : {"\"below\"", "\"itself\"", "\"..\"", "2048,0", "two\\nlines\\\\.mp3\"",
                            "\"line\\nand 'quote'\""}) {
        QVERIFY2(shown.contains(row), qPrintable(shown));
    }
    for (const char* row : {"hidden", "text.txt", "broken", "\"/etc\""}) {
        QVERIFY2(!shown.contains(row), qPrintable(shown));
    }
}

QTEST_GUILESS_MAIN(TransferTest)
#include "TransferTest.moc"
