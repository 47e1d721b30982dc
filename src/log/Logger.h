#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

class LogSettings;
class QFile;
class QSettings;

/// The console's log: one text file per calendar day in the folder of `path/log`, every line also
/// on standard output. Used from the main thread only. Logging never fails towards its caller: a
/// file that can't be opened leaves standard output as the only one.
class Logger
{
public:
    Logger();
    ~Logger();

    /// The objects that decide about a line. Each may be null: no port bracket, the standard
    /// folder, no debug lines, all switched levels off.
    void setSettings(const LogSettings* switches);
    void setPort(const int* localPort);
    void setConfig(const QSettings* configuration);
    void setDebug(const bool* debugMode);
    /// Takes the time, in milliseconds since the epoch, from `now` in place of the system.
    void setClock(std::function<qint64()> now);

    /// Writes one line, if `level` (see `LogLevel`) is switched on. A level without a switch of its
    /// own is always written.
    void message(const QString& text, int level = 0);
    void message(const QByteArray& text, int level = 0);
    void message(const char* text, int level = 0);

    /// Whether a line of that level would be written; for texts that are dear to build.
    bool isWritten(int level) const;

    /// Brings the open file in line with today's date, and writes the path line into a new one.
    void dateCheck();

private:
    void takeTime();
    void openFile();
    void writeLine();

    QString line;
    const LogSettings* settings = nullptr;
    const int* port = nullptr;
    const QSettings* config = nullptr;
    std::unique_ptr<QFile> file;
    const bool* debug = nullptr;
    QString date;

    std::function<qint64()> clock;

    // The clock's text changes once a second and is dear to format, so it is kept.
    qint64 second = -1;
    int millisecond = 0;
    QString today;
    QString timeToSecond;
};
