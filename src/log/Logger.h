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

    /// What of the lines of a burst waits for its end.
    enum class Held {
        Everything, ///< lines logged in one go, with nothing between them that could fail
        Echo,       ///< standard output; the file has each line at once, should the program fail
    };

    /// While it lives, lines aren't flushed one by one but behind the last.
    class Burst
    {
    public:
        explicit Burst(Logger& burstLogger, Held whatIsHeld = Held::Everything);
        ~Burst();
        Burst(const Burst&) = delete;
        Burst& operator=(const Burst&) = delete;

    private:
        Logger& logger;
        const Held held;
    };

    /// Whether a line of that level would be written; for texts that are dear to build.
    bool isWritten(int level) const;

    /// Brings the open file in line with today's date, and writes the path line into a new one. The
    /// file and its folder are made again if somebody has taken them away; only their owner reads
    /// them.
    void dateCheck();

private:
    bool accepts(int level);
    void writeMessage(const QString& text);
    /// True once a second.
    bool takeTime();
    void openFile();
    void appendTime();
    void writeLine();
    void flush();

    QString line;
    const LogSettings* settings = nullptr;
    const int* port = nullptr;
    const QSettings* config = nullptr;
    std::unique_ptr<QFile> file;
    const bool* debug = nullptr;
    QString date;
    int openBursts = 0;
    int heldEchoes = 0;

    std::function<qint64()> clock;

    // These texts change seldom and are dear to format, so they are kept.
    int bracketPort = 0;
    QString portBracket;
    qint64 second = -1;
    int millisecond = 0;
    QString today;
    QString timeToSecond;
};
