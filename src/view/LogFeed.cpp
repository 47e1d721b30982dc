#include "view/LogFeed.h"

#include "page/ScriptCall.h"

namespace
{

/// Bytes of one piece, ended at a line. Measured: the page takes some 10 ms for it.
constexpr int pieceLength = 64 * 1024;

/// `length` bytes from `begin` on, without the bytes of a character that goes on behind them.
int wholeCharacters(const QByteArray& utf8, int begin, int length)
{
    constexpr int longestCharacter = 4;
    for (int cut = 0; cut < longestCharacter; ++cut) {
        const bool isContinued = (utf8.at(begin + length - cut) & 0xC0) == 0x80;
        if (!isContinued) {
            return length - cut;
        }
    }
    return length;
}

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
    text.clear();
    shown = 0;
}

void LogFeed::take(const QString& date, const QByteArray& logFile)
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
        const int line = text.lastIndexOf('\n', shown + pieceLength);
        length = line > shown ? line + 1 - shown : wholeCharacters(text, shown, pieceLength);
    }
    if (length > 0) {
        Page::call("wrapperInput_log_addLogString",
                   QString::fromUtf8(text.constData() + shown, length));
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
