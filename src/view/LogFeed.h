#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

/// Feeds the log of a day into the page, a piece a turn of the event loop, exact to the character:
/// a log may have tens of megabytes. The day asked for last counts; what comes of another is
/// dropped.
class LogFeed : public QObject
{
    Q_OBJECT
public:
    LogFeed();

    void expect(const QString& date);
    /// Nothing is waited for any more.
    void stop();
    void take(const QString& date, const QByteArray& logFile);
    void refuse(const QString& date);

private:
    void showPiece();
    void end();

    QString wanted;  ///< the day; null while none is waited for
    QByteArray text; ///< in UTF-8; what isn't becomes U+FFFD
    int shown = 0;   ///< bytes that the page has
    QTimer pieces;
};
