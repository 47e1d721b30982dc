#include "session/ConsoleProcess.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

/// The program as a process: what it makes at its first start, what it logs, what it survives.
class ProcessTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void firstStartMakesFoldersAndConfiguration();
    void laterStartKeepsWhatIsThere();
    void interruptIsLoggedAndSurvived();
    void debugModeNeedsTheExactWord();

private:
    void start(const QStringList& arguments = {});
    QString path(const QString& name) const
    {
        return files->filePath("Quorlex/Vantordesk/" + name);
    }
    void write(const QString& name, const QByteArray& content) const;
    QByteArray read(const QString& name) const;

    std::unique_ptr<QTemporaryDir> files;
    std::unique_ptr<ConsoleProcess> program;
};

void ProcessTest::init()
{
    files = std::make_unique<QTemporaryDir>();
}

void ProcessTest::cleanup()
{
    program.reset();
}

void ProcessTest::start(const QStringList& arguments)
{
    program = std::make_unique<ConsoleProcess>();
    program->start(files->path(), arguments);
    QVERIFY(program->waitForLine("login_serverList"));
}

void ProcessTest::write(const QString& name, const QByteArray& content) const
{
    QVERIFY(QDir().mkpath(path(".")));
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray ProcessTest::read(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void ProcessTest::firstStartMakesFoldersAndConfiguration()
{
    start();
    QVERIFY(QDir(path("message")).exists());
    QVERIFY(QFile::exists(path("log/" + QDate::currentDate().toString("dd-MM-yyyy") + ".txt")));
    const QStringList lines = program->output().split('\n');
    QVERIFY(lines.at(0).endsWith(".txt"));
    QVERIFY(lines.at(1).contains("] Command line argument: "));
    QVERIFY(program->output().contains("] Program started\n"));
    // The moment of the program file's own build, and not of some source in it.
    static const QRegularExpression version(
        "Program version: 2\\.1\\.0\\.29 \\((\\d\\d\\.\\d\\d\\.\\d{4} \\d\\d:\\d\\d:\\d\\d)\\)");
    const QString built = version.match(program->output()).captured(1);
    const QDateTime moment = QDateTime::fromString(built, "dd.MM.yyyy hh:mm:ss");
    const qint64 age = moment.secsTo(QFileInfo(QStringLiteral(CONSOLE)).lastModified());
    QVERIFY2(age >= 0 && age < 600, qPrintable(built));
    QVERIFY(!program->output().contains("Program started debug"));

    QTRY_VERIFY(QFile::exists(path("config.ini")));
    QTRY_VERIFY(read("config.ini").contains("screen"));
    QSettings settings(path("config.ini"), QSettings::IniFormat);
    QCOMPARE(settings.value("admin/block_enable").toBool(), true);
    QCOMPARE(settings.value("admin/block_time").toInt(), 600000);
    QCOMPARE(settings.value("path/message").toString(), path("message"));
    QCOMPARE(settings.value("path/log").toString(), path("log"));
    QVERIFY(settings.value("path/firmware").toString().endsWith("/firmware"));
    QCOMPARE(settings.value("volume/warning").toDouble(), 50.0);
    QCOMPARE(settings.value("volume/microphone").toDouble(), 50.0);
    QVERIFY(settings.contains("audio/input"));
    settings.beginGroup("log");
    QCOMPARE(settings.childKeys().size(), 18);
    settings.endGroup();
    QCOMPARE(settings.value("screen/width").toInt(), 1280);
    QVERIFY(!settings.contains("screen/x"));
    QVERIFY(read("servers.json").contains("\"servers\""));
}

void ProcessTest::laterStartKeepsWhatIsThere()
{
    const QByteArray broken = "{\"servers\": [{\"ip\": 7}, nonsense";
    write("servers.json", broken);
    write("config.ini", "[admin]\nblock_time=120000\n");
    start();
    QCOMPARE(read("servers.json"), broken);
    QCOMPARE(read("config.ini"), QByteArray("[admin]\nblock_time=120000\n"));
}

void ProcessTest::interruptIsLoggedAndSurvived()
{
    start();
    for (int times = 1; times <= 2; ++times) {
        program->interrupt();
        QVERIFY(program->waitForLine("Error"));
    }
    QVERIFY(program->isRunning());
}

void ProcessTest::debugModeNeedsTheExactWord()
{
    start({"--DEBUG", "--debugging"});
    QVERIFY(!program->output().contains("Debug mode enabled"));
    QVERIFY(program->output().contains("Command line argument: --DEBUG"));
    cleanup();
    start({"--debug"});
    QVERIFY(program->output().contains("] Program started debug\n"));
}

QTEST_GUILESS_MAIN(ProcessTest)
#include "process_test.moc"
