#include "log/Logger.h"
#include "log/LogSettings.h"

#include <QDateTime>
#include <QDir>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace
{

/// A folder for logs and the configuration that names it.
struct Place {
    Place() { setFolder(folder.path()); }
    void setFolder(const QString& path) { config.setValue(QStringLiteral("path/log"), path); }
    QString pathOf(const QString& day) const
    {
        return folder.filePath(day + QStringLiteral(".txt"));
    }
    QStringList linesOf(const QString& day) const
    {
        QFile file(pathOf(day));
        if (!file.open(QIODevice::ReadOnly)) {
            return {};
        }
        QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
        lines.removeLast();
        return lines;
    }
    QStringList files() const
    {
        return QDir(folder.path()).entryList({QStringLiteral("*.txt")}, QDir::Files);
    }

    QTemporaryDir folder;
    QSettings config{folder.filePath(QStringLiteral("config.ini")), QSettings::IniFormat};
};

qint64 moment(const char* text)
{
    return QDateTime::fromString(QLatin1String(text), QStringLiteral("dd-MM-yyyy HH:mm:ss.zzz"))
        .toMSecsSinceEpoch();
}

const QString day = QStringLiteral("18-11-2026");

/// A logger whose clock stands where the test puts it.
struct ClockedLogger {
    explicit ClockedLogger(const Place& place)
    {
        logger.setClock([this] { return now; });
        logger.setConfig(&place.config);
        logger.setSettings(&switches);
        logger.setPort(&port);
        logger.setDebug(&debug);
    }

    qint64 now = moment("18-11-2026 09:05:01.042");
    int port = 0;
    bool debug = false;
    LogSettings switches;
    Logger logger;
};

} // namespace

class LoggerTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void levelFollowsItsOwnSwitch_data();
    void levelFollowsItsOwnSwitch();
    void otherLevelsAreAlwaysWritten();
    void debugLevelFollowsDebugMode();
    void lineHasPortTimeAndText();
    void filteredLineStillOpensTheDay();
    void secondRunContinuesTheFile();
    void dateChangeOpensAnotherFile();
    void textOfEveryKindArrivesWhole();
    void unopenableFolderStopsNobody();
    void vanishedFolderIsMadeAgain();
    void folderChangeWaitsForTheNextDay();
};

void LoggerTest::levelFollowsItsOwnSwitch_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("key");
    const char* const keys[] = {"log/connect",
                                "log/access_error",
                                "log/client_settings",
                                "log/playback",
                                "log/microphone_broadcasting",
                                "log/alarm_broadcasting",
                                "log/preset_start",
                                "log/device_control",
                                "log/memory_play",
                                "log/user_settings",
                                "log/role_settings",
                                "log/zone_settings",
                                "log/device_settings",
                                "log/playlist_settings",
                                "log/preset_settings",
                                "log/task_settings",
                                "log/server_settings",
                                "log/server_log_settings"};
    int level = 2;
    for (const char* const key : keys) {
        QTest::newRow(key) << level++ << QString::fromLatin1(key);
    }
}

void LoggerTest::levelFollowsItsOwnSwitch()
{
    QFETCH(int, level);
    QFETCH(QString, key);
    QCOMPARE(QLatin1String(LogSettings::keys[static_cast<std::size_t>(level - 2)]), key);
    const Place place;
    ClockedLogger log(place);
    for (int other = 2; other <= 19; ++other) {
        log.switches.set(other, other != level);
    }
    log.logger.message("dropped", level);
    log.switches.set(level, true);
    log.logger.message("kept", level);
    const QStringList lines = place.linesOf(day);
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines.at(1).endsWith(QLatin1String("] kept")));
}

void LoggerTest::otherLevelsAreAlwaysWritten()
{
    const Place place;
    ClockedLogger log(place);
    for (const int level : {0, -1, 20, 1000}) {
        log.logger.message("always", level);
    }
    QCOMPARE(place.linesOf(day).size(), 5);
}

void LoggerTest::debugLevelFollowsDebugMode()
{
    const Place place;
    ClockedLogger log(place);
    log.logger.message("dropped", LogLevel::Debug);
    QCOMPARE(place.linesOf(day).size(), 1);
    log.debug = true;
    log.logger.message("kept", LogLevel::Debug);
    QCOMPARE(place.linesOf(day).size(), 2);
}

void LoggerTest::lineHasPortTimeAndText()
{
    const Place place;
    ClockedLogger log(place);
    log.port = 51234;
    log.logger.message("admin_loadRoleList");
    log.port = 0;
    log.now += 20;
    log.logger.message("Program started");
    log.now += 1000;
    log.logger.message("");
    const QStringList expected{
        QStringLiteral("[18-11-2026 09:05:01.042] ") + place.pathOf(day),
        QStringLiteral("[51234] [18-11-2026 09:05:01.042] admin_loadRoleList"),
        QStringLiteral("[18-11-2026 09:05:01.062] Program started"),
        QStringLiteral("[18-11-2026 09:05:02.062] ")};
    QCOMPARE(place.linesOf(day), expected);
}

void LoggerTest::filteredLineStillOpensTheDay()
{
    const Place place;
    ClockedLogger log(place);
    log.logger.message("dropped", LogLevel::Playback);
    QCOMPARE(place.files(), QStringList{QStringLiteral("18-11-2026.txt")});
    QCOMPARE(place.linesOf(day).size(), 1);
}

void LoggerTest::secondRunContinuesTheFile()
{
    const Place place;
    for (const char* const run : {"first", "second"}) {
        ClockedLogger log(place);
        log.logger.message(run);
    }
    const QStringList lines = place.linesOf(day);
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines.at(1).endsWith(QLatin1String("first")));
    QVERIFY(lines.at(2).endsWith(place.pathOf(day)));
    QVERIFY(lines.at(3).endsWith(QLatin1String("second")));
}

void LoggerTest::dateChangeOpensAnotherFile()
{
    const Place place;
    ClockedLogger log(place);
    log.port = 51234;
    log.now = moment("18-11-2026 23:59:59.999");
    log.logger.message("evening");
    log.now += 1;
    log.logger.message("morning");
    const QStringList morning{QStringLiteral("[19-11-2026 00:00:00.000] ") +
                                  place.pathOf(QStringLiteral("19-11-2026")),
                              QStringLiteral("[51234] [19-11-2026 00:00:00.000] morning")};
    QCOMPARE(place.linesOf(QStringLiteral("19-11-2026")), morning);
    // A clock set back returns to the file of the earlier day and goes on there.
    log.now -= 1;
    log.logger.message("evening again");
    const QStringList evening = place.linesOf(day);
    QCOMPARE(evening.size(), 4);
    QVERIFY(evening.at(3).endsWith(QLatin1String("evening again")));
    QCOMPARE(place.linesOf(QStringLiteral("19-11-2026")), morning);
}

void LoggerTest::textOfEveryKindArrivesWhole()
{
    const Place place;
    ClockedLogger log(place);
    const QString text = QStringLiteral("Зал «А»");
    log.logger.message(text);
    log.logger.message(text.toUtf8());
    log.logger.message(text.toUtf8().constData());
    const QStringList lines = place.linesOf(day);
    QCOMPARE(lines.size(), 4);
    for (const QString& line : lines.mid(1)) {
        QVERIFY(line.endsWith(QStringLiteral("] ") + text));
    }
}

void LoggerTest::unopenableFolderStopsNobody()
{
    Place place;
    QFile file(place.folder.filePath(QStringLiteral("no folder")));
    file.open(QIODevice::WriteOnly);
    file.close();
    place.setFolder(file.fileName());
    ClockedLogger log(place);
    log.logger.message("only on standard output");
    QVERIFY(file.remove());
    QVERIFY(place.files().isEmpty());
    // The next day gets another chance.
    place.setFolder(place.folder.path());
    log.now = moment("19-11-2026 12:00:00.000");
    log.logger.message("in the file");
    QCOMPARE(place.linesOf(QStringLiteral("19-11-2026")).size(), 2);
}

void LoggerTest::vanishedFolderIsMadeAgain()
{
    Place place;
    const QString folder = place.folder.filePath(QStringLiteral("log"));
    place.setFolder(folder);
    ClockedLogger log(place);
    log.logger.message("before");
    QVERIFY(QDir(folder).removeRecursively());
    log.now += 1000;
    log.logger.message("after");
    const QString path = folder + QStringLiteral("/18-11-2026.txt");
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().endsWith("after\n"));
    QCOMPARE(QFile::permissions(path) & (QFile::ReadGroup | QFile::ReadOther),
             QFile::Permissions());
}

void LoggerTest::folderChangeWaitsForTheNextDay()
{
    Place place;
    const Place other;
    ClockedLogger log(place);
    log.logger.message("old folder");
    place.setFolder(other.folder.path());
    log.logger.message("still the old folder");
    QCOMPARE(place.linesOf(day).size(), 3);
    QVERIFY(other.files().isEmpty());
    log.now = moment("19-11-2026 12:00:00.000");
    log.logger.message("new folder");
    QCOMPARE(other.linesOf(QStringLiteral("19-11-2026")).size(), 2);
}

QTEST_GUILESS_MAIN(LoggerTest)
#include "LoggerTest.moc"
