#include "log/Logger.h"

#include "log/LogSettings.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTextCodec>

#include <cstdio>
#include <utility>

namespace
{

constexpr int utf8Mib = 106; // the registered number of the code page UTF-8

char digit(int number)
{
    return static_cast<char>('0' + number % 10);
}

} // namespace

Logger::Logger() : clock(QDateTime::currentMSecsSinceEpoch)
{
}
Logger::~Logger() = default;

void Logger::setSettings(const LogSettings* switches)
{
    settings = switches;
}

void Logger::setPort(const int* localPort)
{
    port = localPort;
}

void Logger::setConfig(const QSettings* configuration)
{
    config = configuration;
    file.reset(); // it may name another folder
}

void Logger::setDebug(const bool* debugMode)
{
    debug = debugMode;
}

void Logger::setClock(std::function<qint64()> now)
{
    clock = std::move(now);
}

bool Logger::isWritten(int level) const
{
    if (level == LogLevel::Debug) {
        return debug && *debug;
    }
    if (level >= LogLevel::Connect && level < LogLevel::End) {
        return settings && settings->isOn(level);
    }
    return true;
}

void Logger::message(const QString& text, int level)
{
    if (accepts(level)) {
        writeMessage(text);
    }
}

void Logger::message(const QByteArray& text, int level)
{
    if (accepts(level)) {
        writeMessage(QString::fromUtf8(text));
    }
}

void Logger::message(const char* text, int level)
{
    if (accepts(level)) {
        writeMessage(QString::fromUtf8(text));
    }
}

bool Logger::accepts(int level)
{
    dateCheck();
    return isWritten(level);
}

void Logger::writeMessage(const QString& text)
{
    const int shownPort = port ? *port : 0;
    if (shownPort != bracketPort) {
        bracketPort = shownPort;
        portBracket =
            shownPort == 0 ? QString() : QStringLiteral("[%1] ").arg(QString::number(shownPort));
    }
    line += portBracket;
    appendTime();
    line += text;
    writeLine();
}

bool Logger::takeTime()
{
    const qint64 now = clock();
    millisecond = static_cast<int>(now % 1000);
    if (now / 1000 == second) {
        return false;
    }
    second = now / 1000;
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(now);
    today = local.toString(QStringLiteral("dd-MM-yyyy"));
    timeToSecond = local.toString(QStringLiteral("[dd-MM-yyyy HH:mm:ss."));
    return true;
}

void Logger::dateCheck()
{
    const bool isNewSecond = takeTime();
    // Somebody may tidy up: what is written into a file without a name is lost.
    const bool vanished = isNewSecond && file && file->isOpen() && !file->exists();
    if (!file || date != today || vanished) {
        openFile();
    }
}

void Logger::openFile()
{
    const QString standard = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                             QStringLiteral("/Quorlex/Vantordesk/log");
    const QString folder =
        config ? config->value(QStringLiteral("path/log"), standard).toString() : standard;
    QDir().mkpath(folder);
    file = std::make_unique<QFile>(folder + QLatin1Char('/') + today + QStringLiteral(".txt"));
    file->open(QIODevice::ReadWrite | QIODevice::Append | QIODevice::Text);
    file->setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    date = today;
    appendTime();
    line += file->fileName();
    writeLine();
}

void Logger::appendTime()
{
    const char rest[] = {digit(millisecond / 100), digit(millisecond / 10), digit(millisecond), ']',
                         ' '};
    line += timeToSecond;
    line += QLatin1String(rest, sizeof(rest));
}

void Logger::writeLine()
{
    line += QLatin1Char('\n');
    const QByteArray echo = line.toUtf8();
    std::fwrite(echo.constData(), 1, static_cast<std::size_t>(echo.size()), stdout);
    if (file->isOpen()) {
        const QTextCodec* const local = QTextCodec::codecForLocale();
        file->write(local->mibEnum() == utf8Mib ? echo : local->fromUnicode(line));
    }
    flush();
    line.resize(0); // keeps the memory for the next line
}

void Logger::flush()
{
    if (openBursts > 0) {
        return;
    }
    if (heldEchoes == 0) {
        std::fflush(stdout);
    }
    if (file && file->isOpen()) {
        file->flush(); // whoever follows the file sees the line, and no crash takes it away
    }
}

Logger::Burst::Burst(Logger& burstLogger, Held whatIsHeld) : logger(burstLogger), held(whatIsHeld)
{
    ++(held == Held::Everything ? logger.openBursts : logger.heldEchoes);
}

Logger::Burst::~Burst()
{
    --(held == Held::Everything ? logger.openBursts : logger.heldEchoes);
    logger.flush();
}
