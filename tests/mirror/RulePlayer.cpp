#include "mirror/RulePlayer.h"

#include "app/Data.h"
#include "mirror/Fleet.h"
#include "mirror/Mirror.h"
#include "mirror/Spoilt.h"
#include "support/Rules.h"

#include <QRegularExpression>

#include <algorithm>

namespace
{

const QRegularExpression reply(R"(^(\w+)/(\w+) ?(\{.*\})? > ?(\w*)(!?) ?(\{.*\})?~{0,2}$)");
const QRegularExpression push(R"(^push (\w+)/(\w+) ?(\{.*\})?~{0,2}$)");
const QRegularExpression object(R"(^(set |is )?(\w+) (\d+) ?(\{.*\})?$)");

bool isExpectation(const QString& line)
{
    return QStringList{"page", "asks", "ends", "is", "has", "log", "silent"}.contains(
        line.section(' ', 0, 0));
}

void request(const QString& protocol, const QString& name, const QJsonObject& fields)
{
    for (int index = 0; index < Data::parser.getProtocolCount(); ++index) {
        const NetworkProtocol& group = Data::parser.getProtocol(index);
        for (int command = 0; command < group.getCommandCount(); ++command) {
            if (group.getName() == protocol && group.getNetworkCommand(command).getName() == name) {
                sendRequest(static_cast<ProtocolId>(index), command, fields);
                return;
            }
        }
    }
    qFatal("No command: %s/%s", qPrintable(protocol), qPrintable(name));
}

/// The message of a line: a push as it comes, or a reply without its order.
QJsonObject messageOf(const QString& line)
{
    QJsonObject message;
    if (const auto pushed = push.match(line); pushed.hasMatch()) {
        message = Rules::object(pushed.captured(3));
        message.insert("request", pushed.captured(1));
        message.insert("action", pushed.captured(2));
        message.insert("order", 70);
    } else if (const auto answered = reply.match(line); answered.hasMatch()) {
        message = Rules::object(answered.captured(6));
        if (!message.contains("response")) {
            const QString word = answered.captured(4);
            message.insert("response", word.isEmpty() ? "success" : word);
        }
    }
    return message;
}

bool isLike(const QString& text, const QString& expected)
{
    const QString name = expected.section(' ', 0, 0);
    const QString fields = expected.section(' ', 1);
    if (fields.isEmpty() || fields == "*") {
        return fields.isEmpty() ? text == name : text.section(' ', 0, 0) == name;
    }
    return text == name + ' ' + Rules::show(Rules::object(fields));
}

/// Whether the texts are those expected, with "..." for any number of others.
bool isLike(const QStringList& texts, const QStringList& expected,
            const std::function<bool(const QString&, const QString&)>& equal)
{
    if (expected.isEmpty()) {
        return texts.isEmpty();
    }
    if (expected.first() != "...") {
        return !texts.isEmpty() && equal(texts.first(), expected.first()) &&
               isLike(texts.mid(1), expected.mid(1), equal);
    }
    for (int skipped = 0; skipped <= texts.size(); ++skipped) {
        if (isLike(texts.mid(skipped), expected.mid(1), equal)) {
            return true;
        }
    }
    return false;
}

/// The arguments of all lines of that kind.
QStringList all(const QStringList& lines, const QString& kind)
{
    QStringList result;
    for (const QString& line : lines) {
        if (line.startsWith(kind + ' ')) {
            result.append(line.mid(kind.size() + 1));
        }
    }
    return result;
}

QStringList split(const QStringList& requests)
{
    QStringList result;
    for (const QString& line : requests) {
        result += line.split(QRegularExpression(", (?=\\w+/|\\.\\.\\.)"));
    }
    return result;
}

/// In the form of a scenario, to be compared or taken over.
QString show(const QString& kind, const QStringList& texts)
{
    QString result;
    for (const QString& text : texts) {
        result += "\n  " + kind + ' ' + text;
    }
    return result;
}

} // namespace

QString RulePlayer::play(const QStringList& lines)
{
    begin({});
    for (int index = 0; index < lines.size();) {
        const QString line = lines.at(index);
        QStringList expectations;
        while (++index < lines.size() && isExpectation(lines.at(index))) {
            expectations.append(lines.at(index));
        }
        const QJsonObject before = Mirror::picture();
        const Outcome outcome = perform(line);
        QString problem = fault + check(outcome, expectations);
        const auto match = reply.match(line);
        const bool isRefusal = match.hasMatch() && !match.captured(4).isEmpty() &&
                               match.captured(4) != "success" && match.captured(5).isEmpty();
        if (problem.isEmpty() && isRefusal && outcome.ends == 0 && Mirror::picture() != before) {
            problem = "\n  the refusal has changed the mirror";
        }
        if (!problem.isEmpty()) {
            return line + problem;
        }
    }
    return {};
}

/// A new rig on which the lines have happened.
void RulePlayer::begin(const QStringList& lines)
{
    rig.reset();
    rig = makeRig();
    endsBefore = 0;
    takeOutcome();
    for (const QString& line : lines) {
        if (!isExpectation(line)) {
            perform(line);
        }
    }
}

RulePlayer::Outcome RulePlayer::perform(const QString& line)
{
    fault.clear();
    const QString fields = line.mid(line.indexOf('{'));
    if (const auto match = object.match(line); match.hasMatch()) {
        QJsonObject values = Rules::object(match.captured(4));
        values.insert("id", match.captured(3).toInt());
        if (match.captured(1).isEmpty()) {
            Mirror::add(match.captured(2), values);
            takeOutcome();
            return {};
        }
        Mirror::set(match.captured(2), match.captured(3).toInt(), values);
    } else if (line.startsWith("session ")) {
        Mirror::setSession(Rules::object(fields));
        takeOutcome();
        return {};
    } else if (line.startsWith("slot ")) {
        rig->runSlot(line.mid(5));
    } else if (const QJsonObject message = messageOf(line); !message.isEmpty()) {
        return give(line, message);
    } else {
        fault = "\n  what is this?";
    }
    return takeOutcome();
}

RulePlayer::Outcome RulePlayer::give(const QString& line, const QJsonObject& message)
{
    const auto match = reply.match(line);
    if (!match.hasMatch()) {
        SessionFixture::receive(message);
        if (rig->endCount() == endsBefore && SessionFixture::queued().value(0) != "ack 70") {
            fault = "\n  not acknowledged first";
        }
        return takeOutcome();
    }
    QJsonObject answer = message;
    answer.insert("order", Data::parser.orderCounter);
    request(match.captured(1), match.captured(2), Rules::object(match.captured(3)));
    Fleet::takeRequests();
    SessionFixture::receive(answer);
    return takeOutcome();
}

RulePlayer::Outcome RulePlayer::takeOutcome()
{
    const int ends = rig->endCount() - endsBefore;
    endsBefore += ends;
    return {rig->page().take(), Fleet::takeRequests(), ends};
}

QString RulePlayer::check(const Outcome& outcome, const QStringList& expectations)
{
    const auto isSame = [](const QString& text, const QString& expected) {
        return text == expected;
    };
    const auto isSameRequest = [](const QString& text, const QString& expected) {
        return isLike(text, expected);
    };
    QString problem;
    if (!isLike(outcome.calls, all(expectations, "page"), isSame)) {
        problem += "\n the page heard" + show("page", outcome.calls);
    }
    if (!isLike(outcome.requests, split(all(expectations, "asks")), isSameRequest)) {
        problem += "\n the server was asked" + show("asks", outcome.requests);
    }
    if ((outcome.ends == 1) != expectations.contains("ends")) {
        problem += "\n sessions that have ended: " + QString::number(outcome.ends);
    }
    for (const QString& line : expectations) {
        problem += lookAt(line);
    }
    return problem;
}

QString RulePlayer::lookAt(const QString& line)
{
    if (line.startsWith("log ")) {
        return rig->log().hasLineWith(line.mid(4)) ? QString() : "\n nothing logged: " + line;
    }
    if (line.startsWith("silent ")) {
        return rig->log().hasLineWith(line.mid(7)) ? "\n logged in spite of: " + line : QString();
    }
    if (line.startsWith("is session ")) {
        const QJsonValue session = Mirror::picture().value("session");
        return Rules::fits(session, Rules::object(line.mid(11)))
                   ? QString()
                   : "\n " + Rules::show(session.toObject()) + " but " + line;
    }
    if (line.startsWith("has ")) {
        QStringList ids;
        for (const QJsonValue id : Mirror::ids(line.section(' ', 1, 1))) {
            ids.append(QString::number(id.toInt()));
        }
        return ids.join(' ') == line.section(' ', 2) ? QString()
                                                     : "\n " + ids.join(' ') + " but " + line;
    }
    const auto match = object.match(line);
    if (!match.hasMatch()) {
        return {};
    }
    const QJsonValue item = Mirror::one(match.captured(2), match.captured(3).toInt());
    return Rules::fits(item, Rules::object(match.captured(4)))
               ? QString()
               : "\n " + Rules::show(item.toObject()) + " but " + line;
}

QString RulePlayer::spoil(const QStringList& lines)
{
    QString problem;
    for (int index = 0; index < lines.size() && problem.isEmpty(); ++index) {
        if (!messageOf(lines.at(index)).isEmpty() && !lines.at(index).endsWith("~~")) {
            problem = spoilLine(lines.mid(0, index), lines.at(index));
        }
    }
    return problem;
}

/// Whether something of what was put in has come anywhere.
QString RulePlayer::leakOf(const Outcome& outcome)
{
    const QString told = (outcome.calls + outcome.requests).join('\n');
    const QString mirror = Rules::show(Mirror::picture());
    return Spoilt::isIn(told) || Spoilt::isIn(mirror) ? "\n leaks into " + told + mirror
                                                      : QString();
}

QString RulePlayer::spoilLine(const QStringList& before, const QString& line)
{
    begin(before);
    QStringList usual;
    for (int times = 0; times < 3; ++times) {
        const Outcome outcome = perform(line);
        usual += outcome.calls + outcome.requests;
    }
    const auto isUsual = [&usual](const QString& text) { return usual.contains(text); };
    for (const QJsonObject& message : Spoilt::versions(messageOf(line))) {
        begin(before);
        const QString problem = leakOf(give(line, message));
        begin(before + QStringList{line});
        const Outcome later = give(line, message);
        const QStringList told = later.calls + later.requests;
        const bool isKnown = line.endsWith('~') || std::all_of(told.begin(), told.end(), isUsual);
        if (!problem.isEmpty() || !isKnown) {
            return line + "\n spoilt: " + Rules::show(message) + problem +
                   show("later", isKnown ? QStringList() : told);
        }
    }
    return {};
}
