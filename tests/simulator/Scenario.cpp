#include "simulator/Scenario.h"

#include "simulator/Playout.h"
#include "simulator/fiction/Samples.h"
#include "support/Rules.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QTcpSocket>
#include <QtTest>

namespace
{

/// The object of a line's text, with its digests and long texts made.
QJsonObject objectOf(QString text)
{
    static const QRegularExpression digest(R"(md5:(\w+))");
    for (auto match = digest.match(text); match.hasMatch(); match = digest.match(text)) {
        text.replace(match.capturedStart(), match.capturedLength(), digestOf(match.captured(1)));
    }
    static const QRegularExpression many(R"((\w)\*(\d+))");
    for (auto match = many.match(text); match.hasMatch(); match = many.match(text)) {
        text.replace(match.capturedStart(), match.capturedLength(),
                     QString(match.captured(2).toInt(), match.captured(1).at(0)));
    }
    return Rules::object(text);
}

} // namespace

QString Scenario::play(const QStringList& lines)
{
    if (!witness.logIn("admin") || !logInAll(lines)) {
        return "no login";
    }
    for (const QString& line : lines) {
        // What the line before has caused and nobody expected comes to light at the next one.
        const QString extra = line.contains(" < ") ? QString() : unexpectedPush();
        const QString problem = extra.isEmpty() ? playLine(line) : extra;
        if (!problem.isEmpty()) {
            return line + "\n  " + problem;
        }
    }
    return unexpectedPush();
}

bool Scenario::logInAll(const QStringList& lines)
{
    static const QRegularExpression name(R"(^(\w+?)(\d?) (?:<|\w+/))");
    for (const QString& line : lines) {
        const auto match = name.match(line);
        std::unique_ptr<Client>& console = consoles[match.captured(1) + match.captured(2)];
        if (!match.hasMatch() || console) {
            continue;
        }
        console = std::make_unique<Client>(server->port());
        if (!console->isConnected() ||
            (match.captured(1) != "guest" && !console->logIn(match.captured(1)))) {
            return false;
        }
    }
    consoles.erase(QString());
    unexpectedPush(); // the logins themselves
    return true;
}

QString Scenario::playLine(const QString& line)
{
    static const QRegularExpression asked(R"(^(\w+) (\w+/\w+) ?(\{.*\})? > (\w+) ?(\{.*\})?$)");
    static const QRegularExpression heard(R"(^(\w+) < (\S+) ?(\{.*\})?$)");
    if (const auto match = asked.match(line); match.hasMatch()) {
        return request(match.captured(1), match.captured(2), objectOf(match.captured(3)),
                       match.captured(4), objectOf(match.captured(5)));
    }
    if (const auto match = heard.match(line); match.hasMatch()) {
        return push(match.captured(1), match.captured(2), objectOf(match.captured(3)));
    }
    const QString rest = line.section(' ', 1);
    if (line.startsWith("type ")) {
        const QString said = prompt.execute(rest.section(" > ", 0, 0));
        return said.contains(rest.section(" > ", 1)) ? QString() : "said: " + said;
    }
    if (line.startsWith("time ")) {
        letTimePass(rest.toInt());
        return {};
    }
    if (line.startsWith("sound ")) {
        return sendSound(rest.section(' ', 0, 0).toInt(), rest.section(' ', 1).toInt());
    }
    return line.startsWith("end ") ? end(rest) : "what is this?";
}

QString Scenario::request(const QString& who, const QString& names, const QJsonObject& fields,
                          const QString& word, const QJsonObject& expected)
{
    const QJsonObject before = picture(fields.value("id"));
    const QJsonObject reply =
        consoles[who]->ask(names.section('/', 0, 0), names.section('/', 1), fields);
    filePort = quint16(reply.value("port").toInt(filePort));
    if (reply.value("response") != word || !Rules::fits(reply, expected)) {
        return "answered: " + Rules::show(reply);
    }
    return word == "success" || picture(fields.value("id")) == before
               ? QString()
               : "changed in spite of the refusal";
}

QString Scenario::push(const QString& who, const QString& names, const QJsonObject& expected)
{
    Client& console = *consoles[who];
    console.ask("user", "getInfo"); // its answer is behind all earlier pushes
    if (names == "...") {
        console.pushes.clear();
        return {};
    }
    const QJsonObject push = console.pushes.isEmpty() ? QJsonObject() : console.takePush();
    const bool named =
        push.value("request").toString() + '/' + push.value("action").toString() == names;
    return named && Rules::fits(push, expected) ? QString() : "heard: " + Rules::show(push);
}

QString Scenario::end(const QString& who)
{
    const int before = server->sessionCount();
    consoles.erase(who);
    const bool noticed = QTest::qWaitFor([&] { return server->sessionCount() < before; });
    return noticed ? QString() : "nobody noticed";
}

QString Scenario::sendSound(int seconds, int samplingRate)
{
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, filePort);
    if (!socket.waitForConnected()) {
        return "no connection to port " + QString::number(filePort);
    }
    socket.write(simulator::silentSound(seconds, samplingRate));
    socket.disconnectFromHost();
    return socket.state() == QAbstractSocket::UnconnectedState || socket.waitForDisconnected()
               ? QString()
               : "not all was taken";
}

/// The clocks of everything that plays are set back.
void Scenario::letTimePass(int seconds)
{
    simulator::Installation& installation = server->installation();
    for (simulator::Playback& playback : installation.playbacks) {
        playback.since = playback.since.addSecs(-seconds);
    }
    const QVector<simulator::Unit> units = installation.allUnits();
    for (const simulator::Unit& known : units) {
        simulator::Unit& unit = *installation.unit(known.id);
        for (QDateTime* since : {unit.memoryRun ? &unit.memoryRun->since : nullptr,
                                 unit.applying ? &unit.applying->since : nullptr,
                                 unit.upgrade ? &unit.upgrade->work.since : nullptr}) {
            if (since) {
                *since = since->addSecs(-seconds);
            }
        }
    }
    simulator::Playout(*server).step();
}

/// A push that somebody has heard and no line has taken.
QString Scenario::unexpectedPush()
{
    QString extra;
    for (const auto& [who, console] : consoles) {
        console->ask("user", "getInfo");
        if (!console->pushes.isEmpty()) {
            extra = who + " heard, too: " + Rules::show(console->pushes.first());
        }
        console->pushes.clear();
    }
    return extra;
}

/// The whole installation as an administrator reads it, with the settings of one unit, but for what
/// moves of itself.
QJsonObject Scenario::picture(const QJsonValue& unit)
{
    QJsonObject all;
    for (const char* list : {"user", "role", "zone", "task", "preset"}) {
        all.insert(list, witness.ask(list, "list"));
    }
    for (const char* part : {"getTitle", "getConfig", "getEqualizer"}) {
        all.insert(part, witness.ask("device", part, {{"id", unit}}));
    }
    all.insert("units", witness.ask("device", "getDevices").value("devices"));
    all.insert("settings", witness.ask("server", "getSettings"));
    all.insert("level", witness.ask("log", "getLevel").value("maximumLevel"));
    all.insert("live", witness.ask("playback", "getRedirection").value("devices"));
    const QJsonArray playbacks = witness.ask("playback", "getPlays")["list"].toArray();
    for (const QJsonValue& playback : playbacks) {
        QJsonObject still = playback.toObject();
        still.remove("timeshift");
        all.insert("playback " + QString::number(playback["playbackId"].toInt()), still);
    }
    for (QJsonObject::iterator entry = all.begin(); entry != all.end(); ++entry) {
        QJsonObject plain = entry.value().toObject();
        plain.remove("order");
        entry.value() = entry.value().isObject() ? QJsonValue(plain) : QJsonValue(entry.value());
    }
    return all;
}
