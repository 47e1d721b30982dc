#pragma once

#include "simulator/Client.h"
#include "simulator/Prompt.h"
#include "simulator/ServerFixture.h"

#include <QJsonObject>
#include <QStringList>

#include <map>
#include <memory>

/// Plays the lines of one scenario against a fresh server. Lines:
///
///   guard device/setVolume {id:1,volume:9} > success {…}   a request, its word, fields of the
///   reply admin < device/setState {deviceId:1}                    the next push that a console
///   hears admin < ...                                             and whatever else it has heard
///   type link 3 no > ok                                     a line at the server's prompt
///   time 60                                                 so many seconds pass for what plays,
///   or
///                                                           is under way
///   end guard                                               a console's connection is cut
///   sound 3 44100                                           so many seconds of an MP3 file at that
///                                                           rate, to the port of the last reply
///
/// A console is named after its account, with a digit behind for a second one of the same; all of
/// them are logged in before the first line, but "guest". Keys need no quotes, "md5:x" stands for
/// the digest of x, x*9 for nine of them. An expected object needs the named fields only; an array
/// the same number of elements, with "some" as its first the named ones somewhere, with "none"
/// nowhere; "<number>",
/// "<text>", "<flag>" and "<list>" (not empty) stand for any value of the type.
///
/// Two things hold for every line without being written: a push that no line expects is a fault,
/// and so is a refused request after which the installation isn't what it was.
class Scenario
{
public:
    /// What is wrong with the first line that fails, empty when all hold.
    QString play(const QStringList& lines);

private:
    QString playLine(const QString& line);
    QString request(const QString& who, const QString& names, const QJsonObject& fields,
                    const QString& word, const QJsonObject& expected);
    QString push(const QString& who, const QString& names, const QJsonObject& expected);
    QString end(const QString& who);
    QString sendSound(int seconds, int samplingRate);
    void letTimePass(int seconds);
    bool logInAll(const QStringList& lines);
    QString unexpectedPush();
    QJsonObject picture(const QJsonValue& unit);

    ServerFixture server;
    simulator::Prompt prompt{*server};
    Client witness{server->port()};
    quint16 filePort = 0;
    std::map<QString, std::unique_ptr<Client>> consoles;
};
