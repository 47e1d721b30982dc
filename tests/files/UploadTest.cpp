#include "files/Upload.h"
#include "app/Data.h"
#include "network/TcpClient.h"
#include "support/SessionFixture.h"
#include "support/TestServer.h"

#include <QDir>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

/// Batches of uploads over a session, where the server, its data port or the operator breaks in.
class UploadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void many();
    void refusals_data();
    void refusals();
    void folderCalledOff();
    void sessionEnds();

private:
    QStringList makeFiles(int count, int bytes) const;
    bool connect();
    bool waitForEnd();
    int countOf(const QString& name) const { return server->receivedNames().filter(name).size(); }

    std::unique_ptr<QTemporaryDir> disk;
    std::unique_ptr<TestServer> server;
    std::unique_ptr<SessionFixture> session;
    std::unique_ptr<QTcpServer> dataPort;
    std::unique_ptr<Upload> upload;
    bool hasEnded = false;
};

void UploadTest::init()
{
    upload.reset();
    session.reset(); // the recorders replace each other
    disk = std::make_unique<QTemporaryDir>();
    server = std::make_unique<TestServer>();
    dataPort = std::make_unique<QTcpServer>();
    session = std::make_unique<SessionFixture>();
    upload = std::make_unique<Upload>();
    upload->join();
    Data::tcpClient.setSessionEndHook([this] {
        upload->stop();
        hasEnded = true;
    });
    QVERIFY(dataPort->listen(QHostAddress::LocalHost));
    QObject::connect(dataPort.get(), &QTcpServer::newConnection, dataPort.get(), [this] {
        dataPort->nextPendingConnection()->setReadBufferSize(1); // the rest stays with the system
    });
    QVERIFY(connect());
    server->answerAll();
    server->answer("playback/addTrack",
                   {{"response", "success"}, {"port", dataPort->serverPort()}});
    server->answer("playback/addPlaylist", {{"response", "success"}, {"newId", 50}});
    server->answer("playback/endTrack", {{"response", "success"}, {"newId", 60}, {"duration", 3}});
}

bool UploadTest::connect()
{
    Data::ip = QStringLiteral("127.0.0.1");
    return session->connectTo(*server);
}

/// Files in a folder of their own, "box".
QStringList UploadTest::makeFiles(int count, int bytes) const
{
    QStringList paths;
    QDir(disk->path()).mkdir("box");
    for (int index = 0; index < count; ++index) {
        QFile file(disk->filePath(QStringLiteral("box/%1.mp3").arg(index)));
        if (file.open(QIODevice::WriteOnly) && file.resize(bytes)) {
            paths.append(file.fileName());
        }
    }
    return paths;
}

bool UploadTest::waitForEnd()
{
    return QTest::qWaitFor(
        [this] { return session->page.calls().contains("modalAdminTrackLoadingUnlock();"); },
        20000);
}

void UploadTest::many()
{
    const int files = 100;
    const QStringList paths = makeFiles(files, 10);
    upload->uploadList(3, paths.mid(0, 1));
    upload->uploadList(3, paths.mid(1));
    QVERIFY(waitForEnd());
    const QStringList calls = session->page.calls();
    QCOMPARE(calls.filter("endLoadingTrack(").size(), files);
    QCOMPARE(calls.filter("modalAdminTrackLoadingShow").size(), 1);
    QVERIFY(calls.contains("wrapperInput_playback_currentAddedTrack(100,100);"));
    const QStringList asked = server->receivedNames();
    for (int index = 0; index + 1 < asked.size(); index += 2) {
        QVERIFY(asked.at(index).startsWith("playback/addTrack") &&
                asked.at(index + 1).startsWith("playback/endTrack"));
    }
}

void UploadTest::refusals_data()
{
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("word");  // empty: the data port refuses
    QTest::addColumn<int>("announced"); // files, of three behind an own folder
    QTest::addColumn<int>("red");
    QTest::addColumn<QString>("dialog");
    QTest::newRow("busy") << "addTrack"
                          << "busy" << 1 << 0 << "modalAdminPortBusy();";
    QTest::newRow("no right to announce") << "addTrack"
                                          << "forbidden" << 1 << 1 << "";
    QTest::newRow("no right to close") << "endTrack"
                                       << "forbidden" << 1 << 1 << "";
    QTest::newRow("no right to a folder") << "addPlaylist"
                                          << "forbidden" << 0 << 1 << "";
    QTest::newRow("unlisted word, file") << "addTrack"
                                         << "tired" << 3 << 3 << "";
    QTest::newRow("unlisted word, end") << "endTrack"
                                        << "tired" << 3 << 3 << "";
    QTest::newRow("unlisted word, folder") << "addPlaylist"
                                           << "busy" << 3 << 1 << "";
    QTest::newRow("refused port") << "endTrack"
                                  << "empty" << 3 << 3 << "";
}

void UploadTest::refusals()
{
    QFETCH(QString, request);
    QFETCH(QString, word);
    QFETCH(int, announced);
    QFETCH(int, red);
    QFETCH(QString, dialog);
    const QStringList paths = makeFiles(3, 2000);
    QVERIFY(QDir(disk->path()).mkdir("empty"));
    server->answer("playback/" + request, {{"response", word}});
    if (word == "empty") {
        dataPort->close();
    }
    upload->uploadList(3, QStringList(disk->filePath("empty")) + paths);
    QVERIFY(waitForEnd());
    QCOMPARE(countOf("addTrack"), announced);
    const QStringList calls = session->page.calls();
    QCOMPARE(calls.filter("errorLoadingTrack(").size(), red);
    QCOMPARE(calls.filter("addLoadingTrack(").size() >= red, true);
    QVERIFY(dialog.isEmpty() || calls.contains(dialog));
    // The next batch begins at its first row.
    session->page.take();
    server->answer("playback/" + request, {{"response", "success"}, {"port", 1}, {"newId", 61}});
    upload->uploadList(3, paths.mid(0, 1));
    QVERIFY(waitForEnd());
    QCOMPARE(session->page.calls().first(),
             QString("wrapperInput_playback_currentAddedTrack(0,1);"));
}

void UploadTest::folderCalledOff()
{
    makeFiles(3, 10);
    upload->uploadList(3, {disk->filePath("box"), disk->filePath("box/1.mp3")});
    upload->finishEarly();
    QVERIFY(waitForEnd());
    QCOMPARE(countOf("addPlaylist"), 1);
    QCOMPARE(countOf("addTrack"), 0);
}

/// The server takes nothing when the session ends in the middle of the first file.
void UploadTest::sessionEnds()
{
    const QStringList paths = makeFiles(2, 3 * 1024 * 1024);
    upload->uploadList(3, paths);
    QTRY_VERIFY(!session->page.calls().filter("setLoadingTrack").isEmpty());
    server->hangUp();
    QTRY_VERIFY(hasEnded);
    const QByteArray opened = "/proc/self/fd";
    const auto isOpen = [&] {
        const QFileInfoList files = QDir(opened).entryInfoList(QDir::Files | QDir::System);
        return std::any_of(files.begin(), files.end(), [&](const QFileInfo& file) {
            return file.symLinkTarget() == paths.first();
        });
    };
    QTRY_VERIFY_WITH_TIMEOUT(!isOpen(), 1000);
    QCOMPARE(countOf("endTrack"), 0);
    QVERIFY(connect());
    session->page.take();
    upload->uploadList(3, makeFiles(1, 10));
    QVERIFY(waitForEnd());
    QCOMPARE(session->page.calls().filter("endLoadingTrack(0)").size(), 1);
}

QTEST_GUILESS_MAIN(UploadTest)
#include "UploadTest.moc"
