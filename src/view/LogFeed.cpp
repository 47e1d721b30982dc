#include "view/LogFeed.h"

#include "page/ScriptCall.h"

namespace
{

/// Characters of one piece, ended at a line. Measured: the page takes some 10 ms for it.
constexpr int pieceLength = 64 * 1024;

} // namespace

LogFeed::LogFeed()
{
    pieces.setInterval(0);
    connect(&pieces, &QTimer::timeout, this, &LogFeed::showPiece);
}

void LogFeed::expect(const QString& date)
{
    stop();
    wanted = date;
}

void LogFeed::stop()
{
    pieces.stop();
    wanted = QString();
    text = QString();
    shown = 0;
}

void LogFeed::take(const QString& date, const QString& logFile)
{
    if (date == wanted && !wanted.isNull()) {
        stop(); // the same day may have been asked for twice, and is shown once
        text = logFile;
        pieces.start();
    }
}

void LogFeed::refuse(const QString& date)
{
    if (date == wanted && !wanted.isNull()) {
        Page::call("wrapperInput_log_refuse");
        end();
    }
}

void LogFeed::showPiece()
{
    int length = text.size() - shown;
    if (length > pieceLength) {
        const int line = text.lastIndexOf(QLatin1Char('\n'), shown + pieceLength);
        length = line > shown ? line + 1 - shown : pieceLength;
        const bool cutsPair = text.at(shown + length - 1).isHighSurrogate();
        length -= cutsPair ? 1 : 0;
    }
    if (length > 0) {
        Page::call("wrapperInput_log_addLogString", text.mid(shown, length));
        shown += length;
    }
    if (shown >= text.size()) {
        end();
    }
}

void LogFeed::end()
{
    stop();
    Page::call("modalAdminLogEndLoading");
}
