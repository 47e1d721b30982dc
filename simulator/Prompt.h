#pragma once

#include <QString>
#include <QStringList>

namespace simulator
{

class Server;

/// The commands that a person types to make something happen now.
class Prompt
{
public:
    /// The server must outlive it.
    explicit Prompt(Server& commanded);

    /// Carries out one line and gives the answer for the person, empty for an empty line.
    QString execute(const QString& line);

    /// One kind of line: its first word, its arguments for the help, and what it does.
    struct Row {
        const char* name;
        const char* arguments;
        const char* effect;
        bool (Prompt::*handle)(const QStringList& arguments); ///< false when they make no sense
    };

private:
    bool link(const QStringList& arguments);
    bool mains(const QStringList& arguments);
    bool battery(const QStringList& arguments);
    bool housing(const QStringList& arguments);
    bool line(const QStringList& arguments);
    bool right(const QStringList& arguments);
    bool role(const QStringList& arguments);
    bool zone(const QStringList& arguments);
    bool unit(const QStringList& arguments);
    bool remove(const QStringList& arguments);
    bool drop(const QStringList& arguments);
    bool slow(const QStringList& arguments);
    bool silent(const QStringList& arguments);
    bool quit(const QStringList& arguments);

    template <typename Change> bool changeUnit(const QString& id, Change change);

    Server& server;
};

} // namespace simulator
