#pragma once

#include "support/LogRecorder.h"
#include "support/PageRecorder.h"

#include <QJsonObject>
#include <QStringList>
#include <QTest>

#include <cstdio>
#include <functional>
#include <memory>

/// The console that a scenario is played on. A new one is an empty one.
class Rig
{
public:
    virtual ~Rig() = default;
    virtual PageRecorder& page() = 0;
    virtual LogRecorder& log() = 0;
    /// How often a session has ended.
    virtual int endCount() const = 0;
    /// Runs "name(1, 'text')" as a page does.
    virtual void runSlot(const QString& call) = 0;
};

/// Plays the lines of one scenario. At first, what the mirror holds:
///
///   unit 5 {link:2,volume:30}         an object of a kind, its id, its fields; see `Mirror`
///   session {gong:4}                  variables of the session
///
/// Then what happens,
///
///   device/getTitle {id:5} > {title:"Hall"}      a request and its reply, "success"
///   zone/delete {id:9} > nestedZones             or another word
///   push device/setState {deviceId:5}
///   set unit 5 {volume:30}                       setters
///   slot playback_stop(4)
///
/// and what comes of it, all of it and in order:
///
///   page wrapperInput_device_setName(5,"Hall");  a call; "..." for any number of them
///   asks device/getState {id:5}, zone/list       requests; with "*" whatever their fields
///   ends                                         the session
///
/// and behind these, as they are needed:
///
///   is unit 5 {name:"Hall"}           fields, of the object or of the session
///   has unit 5 6                      the ids of a kind
///   log Deleted device: 5             a line of the log that holds this
///   silent secret                     no line does
///
/// Two things hold without being written: a push is acknowledged first, and a refused request
/// changes nothing of the mirror, unless "!" is behind its word. "~" at the end of a message keeps
/// it out of the comparison of `spoil`, "~~" out of `spoil` altogether: it is broken already.
class RulePlayer
{
public:
    explicit RulePlayer(std::function<std::unique_ptr<Rig>()> make) : makeRig(std::move(make)) {}

    /// What is wrong with the first line that fails, empty when all hold.
    QString play(const QStringList& lines);
    /// Gives each message of the scenario with one field after the other missing, or of another
    /// type, or beyond what any field holds. Nothing of the spoilt value may come anywhere, and
    /// where the good message has come before, nothing is told but what that one tells.
    QString spoil(const QStringList& lines);

private:
    struct Outcome {
        QStringList calls;
        QStringList requests;
        int ends = 0;
    };

    void begin(const QStringList& lines);
    Outcome perform(const QString& line);
    Outcome give(const QString& line, const QJsonObject& message);
    Outcome takeOutcome();
    QString check(const Outcome& outcome, const QStringList& expectations);
    QString lookAt(const QString& line);
    static QString leakOf(const Outcome& outcome);
    QString spoilLine(const QStringList& before, const QString& line);

    std::function<std::unique_ptr<Rig>()> makeRig;
    std::unique_ptr<Rig> rig;
    QString fault; ///< of the last line itself
    int endsBefore = 0;
};

/// Writes all of what is wrong, of which a failed comparison shows the beginning alone.
inline void report(const QString& problem)
{
    if (!problem.isEmpty()) {
        std::fprintf(stderr, "--- %s\n%s\n---\n", QTest::currentDataTag(), qPrintable(problem));
    }
}
