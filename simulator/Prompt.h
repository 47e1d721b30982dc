#pragma once

#include "simulator/state/Records.h"

#include <QString>
#include <QStringList>

namespace simulator
{

class Server;

/// The commands that a person types to make something happen now. What they set stays until it is
/// set back.
class Prompt
{
public:
    /// The server must outlive it.
    explicit Prompt(Server& commanded);

    /// Carries out one line and gives the answer for the person, empty for an empty line.
    QString execute(const QString& line);

    /// One kind of line: its first word, its arguments for the help, and what it does. The handler
    /// gets words that have the form of their kind and name what there is; it gives the answer,
    /// empty for "ok".
    struct Row {
        const char* name;
        const char* arguments;
        const char* effect;
        QString (Prompt::*handle)(const QStringList& arguments);
    };

private:
    /// Looks at the words of a line before its handler gets them.
    QString carryOut(const Row& row, const QStringList& typed);

    QString link(const QStringList& arguments);
    QString mains(const QStringList& arguments);
    QString battery(const QStringList& arguments);
    QString housing(const QStringList& arguments);
    QString line(const QStringList& arguments);
    QString terminal(const QStringList& arguments);
    QString fail(const QStringList& arguments);
    QString right(const QStringList& arguments);
    QString role(const QStringList& arguments);
    QString zone(const QStringList& arguments);
    QString unit(const QStringList& arguments);
    QString remove(const QStringList& arguments);
    QString restore(const QStringList& arguments);
    QString storm(const QStringList& arguments);
    QString due(const QStringList& arguments);
    QString internet(const QStringList& arguments);
    QString update(const QStringList& arguments);
    QString log(const QStringList& arguments);
    QString memory(const QStringList& arguments);
    QString drop(const QStringList& arguments);
    QString slow(const QStringList& arguments);
    QString silent(const QStringList& arguments);
    QString list(const QStringList& arguments);
    QString quit(const QStringList& arguments);

    template <typename Change> QString changeUnits(const QString& ids, Change change);

    /// A unit that was taken away, and where it stood.
    struct Removed {
        Unit unit;
        QVector<int> zones;
    };

    Server& server;
    QVector<Removed> removed;
};

} // namespace simulator
