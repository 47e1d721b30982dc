#include "network/Redaction.h"

namespace
{

/// The place behind the text that begins with a quote at `at`.
int behindText(const QByteArray& json, int at)
{
    for (++at; at < json.size() && json.at(at) != '"'; ++at) {
        at += json.at(at) == '\\' ? 1 : 0;
    }
    return qMin(at + 1, json.size());
}

/// The place behind the value that begins at `at`: of an array or object, behind all of it.
int behindValue(const QByteArray& json, int at)
{
    int depth = 0;
    while (at < json.size()) {
        const char byte = json.at(at);
        if (byte == '"') {
            at = behindText(json, at);
            continue;
        }
        const bool closes = byte == ']' || byte == '}';
        if (depth == 0 && (closes || byte == ',' || byte == '\n')) {
            return at;
        }
        depth += byte == '[' || byte == '{' ? 1 : 0;
        depth -= closes ? 1 : 0;
        ++at;
    }
    return at;
}

} // namespace

QByteArray redacted(const QByteArray& json)
{
    QByteArray result;
    int kept = 0; // up to here all has been taken over
    for (int at = json.indexOf('"'); at >= 0; at = json.indexOf('"', at)) {
        const int end = behindText(json, at);
        const bool isKey = end < json.size() && json.at(end) == ':';
        const QByteArray name = isKey ? json.mid(at, end - at).toLower() : QByteArray();
        at = end;
        if (name.contains("password")) {
            at = behindValue(json, json.indexOf(' ', end) == end + 1 ? end + 2 : end + 1);
            result += json.mid(kept, end - kept) + ": \"***\"";
            kept = at;
        }
    }
    return kept == 0 ? json : result + json.mid(kept);
}
