#include "log/Logger.h"

#include "log/LogSettings.h"

#include <QDateTime>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTextStream>

#include <cstdio>
#include <utility>

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
    dateCheck();
    if (!isWritten(level)) {
        return;
    }
    if (port && *port != 0) {
        line += QLatin1Char('[') + QString::number(*port) + QLatin1String("] ");
    }
    line += timeToSecond;
    line += QString::number(millisecond).rightJustified(3, QLatin1Char('0')) + QLatin1String("] ");
    line += text;
    writeLine();
}

void Logger::message(const QByteArray& text, int level)
{
    message(QString::fromUtf8(text), level);
}

void Logger::message(const char* text, int level)
{
    message(QString::fromUtf8(text), level);
}

void Logger::takeTime()
{
    const qint64 now = clock();
    millisecond = static_cast<int>(now % 1000);
    if (now / 1000 == second) {
        return;
    }
    second = now / 1000;
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(now);
    today = local.toString(QStringLiteral("dd-MM-yyyy"));
    timeToSecond = local.toString(QStringLiteral("[dd-MM-yyyy HH:mm:ss."));
}

void Logger::dateCheck()
{
    takeTime();
    if (!file || date != today) {
        openFile();
    }
}

void Logger::openFile()
{
    const QString standard = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                             QStringLiteral("/Quorlex/Vantordesk/log");
    const QString folder =
        config ? config->value(QStringLiteral("path/log"), standard).toString() : standard;
    file = std::make_unique<QFile>(folder + QLatin1Char('/') + today + QStringLiteral(".txt"));
    file->open(QIODevice::ReadWrite | QIODevice::Append | QIODevice::Text);
    date = today;
    line = timeToSecond + QString::number(millisecond).rightJustified(3, QLatin1Char('0')) +
           QLatin1String("] ") + file->fileName();
    writeLine();
}

void Logger::writeLine()
{
    const QByteArray echo = line.toUtf8() + '\n';
    std::fwrite(echo.constData(), 1, static_cast<std::size_t>(echo.size()), stdout);
    std::fflush(stdout);
    if (file->isOpen()) {
        QTextStream(file.get()) << line << '\n';
    }
    line.resize(0); // keeps the memory for the next line
}
